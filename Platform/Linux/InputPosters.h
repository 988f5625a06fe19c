// The ways to post input on a Linux desktop.
#pragma once

#include "Platform/FallbackInputPoster.h"

namespace platform {

// In the order in which they are asked. The environment variable STIRRA_INPUT_BACKEND ("xtest" or "none")
// leaves only the one it names, for tests and trouble-shooting; another name leaves all.
[[nodiscard]] std::vector<FallbackInputPoster::Candidate> inputPosterCandidates();

} // namespace platform
