// The way to the secret service, and whether it would have to ask somebody.
#pragma once

#include "Platform/Linux/Secrets/TimedCalls.h"

#include <optional>

namespace platform {

using SecretAttributes = GlibPointer<GHashTable>;

// Whether secrets are asked for over the session bus. They lie in a file where the environment says so, and
// in a sandbox that has them so.
bool areSecretsOnTheBus();

// Connects to the session bus, where there is one, and keeps its end from ending this process. False where it
// does not answer.
bool connectToBus(TimedCalls &calls);

// Whether there is a screen on which the user could be asked.
bool canSomebodyBeAsked();

// What the service says of an item, or of the place for a new one.
enum class SecretAccess {
    open,   // nobody has to be asked
    locked, // somebody has to be asked
    absent, // there is nothing, or nobody answers
};

// REQUIRES: connectToBus() was true.
[[nodiscard]] SecretAccess accessToItem(TimedCalls &calls, GHashTable *attributes);
[[nodiscard]] SecretAccess accessForNewItem(TimedCalls &calls);

} // namespace platform
