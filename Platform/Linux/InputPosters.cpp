#include "Platform/Linux/InputPosters.h"

#include "Platform/Linux/X11/XtestInputPoster.h"

#include <QByteArray>

#include <array>

namespace platform {

namespace {

struct NamedCandidate
{
    const char *name;
    FallbackInputPoster::Candidate open;
};

std::array<NamedCandidate, 2> namedCandidates()
{
    return {{
        {"xtest", XtestInputPoster::create},
        {"none", [] { return std::unique_ptr<InputPoster>(); }},
    }};
}

} // namespace

std::vector<FallbackInputPoster::Candidate> inputPosterCandidates()
{
    const auto forced = qgetenv("STIRRA_INPUT_BACKEND");
    std::vector<FallbackInputPoster::Candidate> all;
    for (const auto &candidate : namedCandidates()) {
        if (forced == candidate.name) {
            return {candidate.open};
        }
        all.push_back(candidate.open);
    }
    return all;
}

} // namespace platform
