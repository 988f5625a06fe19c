// The entry of test programs that need Qt's event loop and fonts, on its off-screen display and without a
// session bus.

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    testing::InitGoogleTest(&argc, argv);
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
