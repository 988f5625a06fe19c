#include "Platform/Linux/InputPosters.h"

#include "Platform/Linux/Portal/PortalInputPoster.h"
#include "Platform/Linux/Uinput/UinputInputPoster.h"
#include "Platform/Linux/Wayland/WaylandSocket.h"
#include "Platform/Linux/Wayland/WlrootsInputPoster.h"
#include "Platform/Linux/X11/XtestInputPoster.h"

#include <algorithm>

namespace platform {

namespace {

std::unique_ptr<InputPoster> openNone(Obstacle &why)
{
    why = {QStringLiteral("STIRRA_INPUT_BACKEND allows no way to post input."),
           QStringLiteral("Take the variable out of the environment.")};
    return nullptr;
}

constexpr unsigned x11 = 1;
constexpr unsigned wayland = 2;

struct Way
{
    unsigned sessions; // the kinds of session that it is for
    NamedInputPoster poster;
};

std::vector<Way> allWays()
{
    return {
        {x11, {QStringLiteral("xtest"), XtestInputPoster::create}},
        {wayland, {QStringLiteral("wlroots"), WlrootsInputPoster::create}},
        {wayland, {QStringLiteral("portal"), PortalInputPoster::candidate()}},
        {x11 | wayland,
         {QStringLiteral("uinput"), [](Obstacle &why) { return UinputInputPoster::create(why); }}},
        {0, {QStringLiteral("none"), openNone}},
    };
}

// The name in the environment, if it is one.
QString forcedName(const std::vector<Way> &ways)
{
    const auto name = qEnvironmentVariable("STIRRA_INPUT_BACKEND");
    const auto isNamed = [&name](const Way &way) { return way.poster.name == name; };
    return std::ranges::any_of(ways, isNamed) ? name : QString();
}

} // namespace

std::vector<NamedInputPoster> namedInputPosters()
{
    const auto ways = allWays();
    const auto forced = forcedName(ways);
    const auto session = isWaylandSession() ? wayland : x11;
    std::vector<NamedInputPoster> posters;
    for (const auto &[sessions, poster] : ways) {
        const bool isForced = poster.name == forced;
        if (isForced || (sessions & session) != 0) {
            posters.push_back({poster.name, poster.open, isForced || forced.isEmpty()});
        }
    }
    return posters;
}

std::vector<FallbackInputPoster::Candidate> inputPosterCandidates()
{
    std::vector<FallbackInputPoster::Candidate> candidates;
    for (const auto &poster : namedInputPosters()) {
        if (poster.isTried) {
            candidates.push_back(poster.open);
        }
    }
    return candidates;
}

} // namespace platform
