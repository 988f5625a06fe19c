// The bus of the tests of the portals.
#pragma once

#include "Tests/Support/PrivateBus.h"

namespace testsupport {

// The private bus that is this process's session bus.
[[nodiscard]] PrivateBus &sessionBus();

// Its runtime.
[[nodiscard]] PrivateRuntime &sessionRuntime();

} // namespace testsupport
