// How long a display's user has done nothing, as screen savers and presence programs read it.
#pragma once

#include "Tests/Support/PrivateRuntime.h"
#include "Tests/Support/XClient.h"

#include <chrono>
#include <optional>

namespace testsupport {

// The MIT screen saver extension's answer; nothing without the extension.
[[nodiscard]] std::optional<std::chrono::milliseconds> idleTime(const XClient &x);

// The answer of Debian's xprintidle program; nothing where it fails. REQUIRES: a display in the environment.
[[nodiscard]] std::optional<std::chrono::milliseconds> printedIdleTime(const PrivateRuntime &runtime);

} // namespace testsupport
