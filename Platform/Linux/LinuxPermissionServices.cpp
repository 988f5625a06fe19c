// What is asked for permissions on a Linux desktop, and what opens links there.
#include "Platform/LinkOpener.h"
#include "Platform/Linux/Permissions/DesktopLinkOpener.h"
#include "Platform/Linux/Permissions/LinuxPermissions.h"
#include "Platform/Linux/Permissions/Sandbox.h"
#include "Platform/Platform.h"
#include "Platform/Trust.h"

namespace platform {

namespace {

constexpr std::chrono::milliseconds queryPatience(400); // of which a call makes two
constexpr std::chrono::seconds answerPatience(10);

// The portal's question comes with the session that posting needs, so it is asked for the session in which
// the application will post.
void prepareToPost()
{
    Platform::current().inputPoster().prepare();
}

} // namespace

std::unique_ptr<Permissions> makeNativePermissions()
{
    return std::make_unique<LinuxPermissions>(PermissionSources{.bus = QDBusConnection::sessionBus(),
                                                                .sandbox = sandboxedApplication(),
                                                                .isTrusted = isTrusted,
                                                                .askForInput = prepareToPost,
                                                                .queryPatience = queryPatience,
                                                                .answerPatience = answerPatience});
}

std::unique_ptr<LinkOpener> makeNativeLinkOpener()
{
    return std::make_unique<DesktopLinkOpener>(QDBusConnection::sessionBus());
}

} // namespace platform
