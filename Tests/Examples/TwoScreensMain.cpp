// The entry of test programs that look at the places of windows: on two screens, 1000 × 800 and right of it
// 600 × 500 points.

#include <QGuiApplication>
#include <QTemporaryFile>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    QTemporaryFile screens;
    if (!screens.open()) {
        return EXIT_FAILURE;
    }
    screens.write(R"({"screens": [
        {"name": "one", "x": 0, "y": 0, "width": 1000, "height": 800},
        {"name": "two", "x": 1000, "y": 0, "width": 600, "height": 500}]})");
    screens.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toLocal8Bit());
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
