// The entry of the tests that make up devices: on file systems of their own, before there is any thread.

#include "Tests/Support/PrivateMount.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <iostream>

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!testing::GTEST_FLAG(list_tests) && !testsupport::separateMounts()) {
        std::cerr << "This needs leave to make name spaces.\n";
        return EXIT_FAILURE;
    }
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
