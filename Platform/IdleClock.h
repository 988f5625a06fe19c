// The desktop's own clock of how long its user has done nothing.
#pragma once

#include <QString>

namespace platform {

// Main thread of a Qt application whose event loop runs in between.
class IdleClock
{
public:
    IdleClock() = default;
    IdleClock(const IdleClock &) = delete;
    IdleClock &operator=(const IdleClock &) = delete;
    virtual ~IdleClock() = default;

    // What programs know the clock by, such as the name of its interface.
    [[nodiscard]] virtual QString name() const = 0;

    // Whether nothing has happened for a second, as far as the desktop has told by now. To be asked several
    // times a second: a clock that has to be read is read then.
    [[nodiscard]] virtual bool isIdle() = 0;
};

} // namespace platform
