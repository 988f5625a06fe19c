// What the tests of a Linux desktop's permissions have in common.
#pragma once

#include "Platform/Linux/Permissions/LinuxPermissions.h"
#include "Tests/Platform/Portal/PortalTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/FakeBusService.h"

#include <gmock/gmock.h>

namespace platform {

// Far more patient than isAnswered(), so that an answer is never the end of the patience; a test of a service
// that is silent makes them impatient.
class PermissionsTest : public testing::Test
{
protected:
    using Request = void (LinuxPermissions::*)(Permissions::Answer answer);
    using Service = testsupport::FakeBusService;

    static constexpr auto portalName = "org.freedesktop.portal.Desktop";
    static constexpr auto storeName = "org.freedesktop.impl.portal.PermissionStore";
    static constexpr auto calendarName = "org.gnome.evolution.dataserver.Sources5";

    PermissionsTest();

    // What microphoneStatus() says, asked from a thread of its own: the services answer on this one.
    [[nodiscard]] MicrophoneStatus microphoneStatus() const;

    // Makes the request. Its answers come into `answers`.
    void make(Request request);
    // Whether one answer comes, and it is this one, and no second one follows. REQUIRES: a request was made.
    [[nodiscard]] bool isAnswered(bool isGranted);
    // The same for a request that is made now.
    [[nodiscard]] bool answers(Request request, bool isGranted);

    // Waits until what a service has sent so far has been taken in.
    [[nodiscard]] bool settles(const char *name) const;

    // The desktop's privacy switch, as the Settings portal tells it.
    void tellSwitch(const QVariant &disablesMicrophone);
    // What the store keeps for the program "org.stirra.Sandboxed", which this one is from now on.
    void keepInStore(const QStringList &permissions);

    // Of the services of this bus.
    void use(const QDBusConnection &bus) { sources.bus = bus; }

    PermissionSources sources;
    Service portal{testsupport::sessionBus(), portalName};
    Service store{testsupport::sessionBus(), storeName};
    std::vector<bool> given; // the answers of the requests
};

} // namespace platform
