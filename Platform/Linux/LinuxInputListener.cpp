#include "Platform/InputListener.h"
#include "Platform/Linux/InputPosters.h"
#include "Platform/Linux/Listening/LibinputTap.h"
#include "Platform/Linux/Portal/PortalInputPoster.h"
#include "Platform/Linux/Uinput/UinputFile.h"
#include "Platform/Linux/Wayland/WaylandSocket.h"
#include "Platform/Linux/Wayland/WlrootsInputPoster.h"
#include "Platform/Linux/X11/XInputTap.h"

#include <QString>

#include <algorithm>
#include <array>

namespace platform {

namespace {

// A way to listen, and the kind of session that it is for.
struct Way
{
    QLatin1String name;
    bool isForWayland;
    bool (*isPossible)();
    std::unique_ptr<InputTap> (*makeTap)(EventMask mask, InputListener::Handler handler);
};

std::unique_ptr<InputTap> makeLibinputTap(EventMask mask, InputListener::Handler handler)
{
    return LibinputTap::create(mask, std::move(handler), openCompositorView());
}

// As the table has it.
std::unique_ptr<InputTap> makeNone(EventMask /*mask*/, InputListener::Handler /*handler*/) // NOLINT
{
    return nullptr;
}

// The last one is there to be forced.
constexpr std::array ways{
    Way{QLatin1String("xinput"), false, XInputTap::isPossible, XInputTap::create},
    Way{QLatin1String("libinput"), true, LibinputTap::isPossible, makeLibinputTap},
    Way{QLatin1String("none"), false, [] { return false; }, makeNone},
};

// STIRRA_LISTEN_BACKEND names the way for tests and trouble-shooting, whatever the session; another name
// names none.
const Way &wayOfSession()
{
    const auto forced = qEnvironmentVariable("STIRRA_LISTEN_BACKEND");
    const auto *named = std::ranges::find(ways, forced, &Way::name);
    if (named != ways.end()) {
        return *named;
    }
    return *std::ranges::find(ways, isWaylandSession(), &Way::isForWayland);
}

// The portal asks the user, unless it has done so and the session runs. A device of the kernel's or of the
// compositor's would be seen by others, so only what it takes to make one is looked at.
bool postsUnasked(const NamedInputPoster &way)
{
    if (!way.isTried) {
        return false;
    }
    if (way.name == QLatin1String("portal")) {
        return PortalInputPoster::isAnyReady();
    }
    if (way.name == QLatin1String("uinput")) {
        return kernelUinputFile()->open() == 0;
    }
    if (way.name == QLatin1String("wlroots")) {
        return WlrootsInputPoster::isOffered();
    }
    Obstacle why;
    const auto poster = way.open(why);
    return poster && poster->isReady();
}

class LinuxInputListener final : public InputListener
{
public:
    [[nodiscard]] bool isTrusted() override
    {
        return wayOfSession().isPossible() && std::ranges::any_of(namedInputPosters(), postsUnasked);
    }

    [[nodiscard]] std::unique_ptr<InputTap> makeTap(EventMask mask, Handler handler) override
    {
        return wayOfSession().makeTap(mask, std::move(handler));
    }
};

} // namespace

std::unique_ptr<InputListener> makeNativeInputListener()
{
    return std::make_unique<LinuxInputListener>();
}

} // namespace platform
