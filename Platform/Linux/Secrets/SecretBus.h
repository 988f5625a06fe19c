// The way to the secret service, and whether it would have to ask somebody.
#pragma once

#include "Platform/Linux/Secrets/TimedCalls.h"

namespace platform {

using SecretAttributes = GlibPointer<GHashTable>;

// Whether secrets are asked for over the session bus. They lie in a file where the environment says so, and
// in a sandbox that has them so.
bool areSecretsOnTheBus();

using SecretBusConnection = GlibPointer<GDBusConnection>;

// The session bus, where there is one and it answers; its end does not end this process. To be held as long
// as the service is asked: a connection that nobody holds is closed, and the next one would be another, which
// is waited for without a limit, and whose end ends the process.
[[nodiscard]] SecretBusConnection connectToBus(TimedCalls &calls);

// Whether there is a screen on which the user could be asked.
bool canSomebodyBeAsked();

// What the service says of an item, or of the place for a new one.
enum class SecretAccess {
    open,   // nobody has to be asked
    locked, // somebody has to be asked
    absent, // there is nothing, or nobody answers
};

[[nodiscard]] SecretAccess accessToItem(TimedCalls &calls, GDBusConnection *bus, GHashTable *attributes);
[[nodiscard]] SecretAccess accessForNewItem(TimedCalls &calls, GDBusConnection *bus);

} // namespace platform
