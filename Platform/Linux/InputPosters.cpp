#include "Platform/Linux/InputPosters.h"

#include "Platform/Linux/Portal/PortalInputPoster.h"
#include "Platform/Linux/Uinput/UinputInputPoster.h"
#include "Platform/Linux/Wayland/WaylandSocket.h"
#include "Platform/Linux/Wayland/WlrootsInputPoster.h"
#include "Platform/Linux/X11/XtestInputPoster.h"

namespace platform {

namespace {

std::unique_ptr<InputPoster> openNone(Obstacle &why)
{
    why = {QStringLiteral("No other way to post input is known here."),
           QStringLiteral("Remove the obstacle of one of the ways above.")};
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
        {x11 | wayland, {QStringLiteral("none"), openNone}},
    };
}

} // namespace

std::vector<NamedInputPoster> namedInputPosters()
{
    const auto session = isWaylandSession() ? wayland : x11;
    std::vector<NamedInputPoster> posters;
    for (const auto &way : allWays()) {
        if ((way.sessions & session) != 0) {
            posters.push_back(way.poster);
        }
    }
    return posters;
}

std::vector<FallbackInputPoster::Candidate> inputPosterCandidates()
{
    const auto forced = qEnvironmentVariable("STIRRA_INPUT_BACKEND");
    for (const auto &way : allWays()) {
        if (way.poster.name == forced) {
            return {way.poster.open};
        }
    }
    std::vector<FallbackInputPoster::Candidate> all;
    for (const auto &poster : namedInputPosters()) {
        all.push_back(poster.open);
    }
    return all;
}

} // namespace platform
