// The entry of the tests on a panel: the session bus, the X server and the runtime folder of the process are
// private.

#include "Tests/Platform/Portal/PortalTest.h"
#include "Tests/Support/PrivateXvfb.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

namespace {

testsupport::PrivateBus *bus = nullptr;
testsupport::PrivateRuntime *runtime = nullptr;

} // namespace

testsupport::PrivateBus &testsupport::sessionBus()
{
    return *bus;
}

testsupport::PrivateRuntime &testsupport::sessionRuntime()
{
    return *runtime;
}

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    testsupport::PrivateRuntime privateRuntime;
    testsupport::PrivateBus privateBus(privateRuntime);
    const testsupport::PrivateXvfb server(privateRuntime);
    bus = &privateBus;
    runtime = &privateRuntime;
    qputenv("XDG_RUNTIME_DIR", privateRuntime.runtimeFolder().toLocal8Bit());
    qunsetenv("WAYLAND_DISPLAY");
    qputenv("DISPLAY", server.display().toLocal8Bit());
    qputenv("DBUS_SESSION_BUS_ADDRESS", privateBus.address().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
