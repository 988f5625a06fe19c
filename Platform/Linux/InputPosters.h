// The ways to post input on a Linux desktop.
#pragma once

#include "Platform/Diagnosis.h"

namespace platform {

// The ways of this session, in the order in which they are asked. Asks which kind of session it is.
[[nodiscard]] std::vector<NamedInputPoster> namedInputPosters();

// The same without their names. The environment variable STIRRA_INPUT_BACKEND leaves only the one it names
// ("xtest", "wlroots", "portal", "uinput", "none"), whatever the session, for tests and trouble-shooting;
// another name leaves all.
[[nodiscard]] std::vector<FallbackInputPoster::Candidate> inputPosterCandidates();

} // namespace platform
