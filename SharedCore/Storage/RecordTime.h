// The time that new records are of.
#pragma once

#include "Foundation/ReferenceDate.h"

#include <functional>

namespace sharedcore {

// The present moment. Two calls of a process give two different moments, also within one microsecond. Any
// thread.
[[nodiscard]] foundation::Date recordTime();

// Gives the time instead of the system's clock for as long as it lives, exactly as it is; for tests. Main
// thread, while no other makes records.
class RecordTimeSource
{
public:
    explicit RecordTimeSource(std::function<foundation::Date()> now);
    RecordTimeSource(const RecordTimeSource &) = delete;
    RecordTimeSource &operator=(const RecordTimeSource &) = delete;
    ~RecordTimeSource();
};

} // namespace sharedcore
