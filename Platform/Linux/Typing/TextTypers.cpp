#include "Platform/Linux/Typing/TextTypers.h"

#include "Platform/Linux/Wayland/WaylandSocket.h"
#include "Platform/Linux/Wayland/WlrootsTextTyper.h"
#include "Platform/Linux/X11/XtestTextTyper.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>

namespace platform {

namespace {

constexpr unsigned x11 = 1;
constexpr unsigned wayland = 2;

struct Way
{
    const char *name;
    unsigned sessions; // the kinds of session that it is for
    std::unique_ptr<TextTyper> (*open)(PortalTyping &portal, std::u16string_view text, QString &why,
                                       const std::stop_token &stop);
};

constexpr std::array ways{
    Way{"xtest", x11,
        [](PortalTyping & /*portal*/, std::u16string_view text, QString &why, const std::stop_token &stop) {
            return XtestTextTyper::create(text, why, stop);
        }},
    Way{"wlroots", wayland,
        [](PortalTyping & /*portal*/, std::u16string_view text, QString &why, const std::stop_token &) {
            return WlrootsTextTyper::create(text, why);
        }},
    Way{"portal", wayland,
        [](PortalTyping &portal, std::u16string_view /*text*/, QString &why, const std::stop_token &) {
            return portal.open(why);
        }},
};

} // namespace

std::unique_ptr<TextTyper> LinuxTyping::open(std::u16string_view text, QString &why,
                                             const std::stop_token &stop)
{
    const auto wanted = qgetenv("STIRRA_INPUT_BACKEND");
    const bool isForbidden = wanted == "none" || wanted == "uinput";
    const bool isForced = std::ranges::any_of(ways, [&](const Way &way) { return wanted == way.name; });
    const auto session = isWaylandSession() ? wayland : x11;
    why = QStringLiteral("STIRRA_INPUT_BACKEND allows no way to type.");
    for (const auto &way : ways) {
        const bool isTried = isForced ? wanted == way.name : (way.sessions & session) != 0;
        auto typer = isTried && !isForbidden ? way.open(portal_, text, why, stop) : nullptr;
        if (typer) {
            return typer;
        }
    }
    return nullptr;
}

bool LinuxTyping::typesIntoOwnWindow() const
{
    return QGuiApplication::focusWindow() != nullptr;
}

std::unique_ptr<TypingServices> makeNativeTyping()
{
    return std::make_unique<LinuxTyping>();
}

} // namespace platform
