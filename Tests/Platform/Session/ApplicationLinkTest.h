// What the tests of both links have in common: other processes that claim to be the application.
#pragma once

#include "Platform/ApplicationLink.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"

#include <chrono>
#include <memory>
#include <vector>

namespace testsupport {

// The bound for a claim; the promise is a quarter of it.
inline constexpr std::chrono::seconds longestClaim(1);

// Another process that claims over the bus of the environment ("bus") or a socket (its path).
class OtherApplication
{
public:
    OtherApplication(const PrivateRuntime &runtime, const QString &way, const QString &token,
                     std::chrono::steady_clock::time_point when = {});

    // Waits until it knows which it is, and says whether it is the application.
    [[nodiscard]] bool isSole();
    // What it was told since, one line each: "reopen TOKEN" or "quit".
    [[nodiscard]] QList<QByteArray> requests() const;
    [[nodiscard]] bool wasTold(const QByteArray &request) const;
    [[nodiscard]] ChildProcess &process() { return process_; }

private:
    ChildProcess process_;
};

// Lets so many processes claim in the same instant, with the tokens "t0", "t1" and so on. EXPECTs that one of
// them is the application, that the others end with 0, and that it heard all of them.
void expectExactlyOneOf(int count, const PrivateRuntime &runtime, const QString &way);

// The answer of the claim; EXPECTs that it comes in time.
[[nodiscard]] bool claimInTime(platform::ApplicationLink &link);

} // namespace testsupport
