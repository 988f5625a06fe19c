// What the tests of posting through XTEST have in common.
#pragma once

#include "Platform/Linux/X11/XtestInputPoster.h"

#include "Tests/Support/XClient.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <memory>

namespace testsupport {

// Makes DISPLAY name a display for as long as it lives; the X client library reads it at each connection.
class ScopedDisplay
{
public:
    explicit ScopedDisplay(const QString &display);
    ScopedDisplay(const ScopedDisplay &) = delete;
    ScopedDisplay &operator=(const ScopedDisplay &) = delete;
    ~ScopedDisplay();

private:
    QByteArray before_;
};

// A poster on that display; nothing where none can be made.
[[nodiscard]] std::unique_ptr<platform::InputPoster> posterOn(const QString &display);

// How long an idle clock runs before a test posts, so that a reset can be told.
inline constexpr std::chrono::milliseconds idleEnough(500);

// Waits until the user has done nothing for that long.
[[nodiscard]] bool becomesIdle(const XClient &x);
// Waits until the idle clock tells that something was done after `start`. REQUIRES: it was idle at `start`.
[[nodiscard]] bool becomesActiveAfter(const XClient &x, std::chrono::steady_clock::time_point start);

} // namespace testsupport
