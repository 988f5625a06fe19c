// The entry of the tests of the portals: the session bus of the process is a private one.

#include "Tests/Platform/Portal/PortalTest.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

namespace {

testsupport::PrivateBus *bus = nullptr;

} // namespace

testsupport::PrivateBus &testsupport::sessionBus()
{
    return *bus;
}

int main(int argc, char **argv)
{
    testsupport::PrivateRuntime runtime;
    testsupport::PrivateBus privateBus(runtime);
    bus = &privateBus;
    qputenv("DBUS_SESSION_BUS_ADDRESS", privateBus.address().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
