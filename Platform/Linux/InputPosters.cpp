#include "Platform/Linux/InputPosters.h"

#include "Platform/Linux/X11/XtestInputPoster.h"

namespace platform {

namespace {

std::unique_ptr<InputPoster> openNone(Obstacle &why)
{
    why = {QStringLiteral("No other way to post input is known here."),
           QStringLiteral("Remove the obstacle of one of the ways above.")};
    return nullptr;
}

} // namespace

std::vector<NamedInputPoster> namedInputPosters()
{
    return {
        {QStringLiteral("xtest"), XtestInputPoster::create},
        {QStringLiteral("none"), openNone},
    };
}

std::vector<FallbackInputPoster::Candidate> inputPosterCandidates()
{
    const auto forced = qEnvironmentVariable("STIRRA_INPUT_BACKEND");
    std::vector<FallbackInputPoster::Candidate> all;
    for (const auto &[name, open] : namedInputPosters()) {
        if (forced == name) {
            return {open};
        }
        all.push_back(open);
    }
    return all;
}

} // namespace platform
