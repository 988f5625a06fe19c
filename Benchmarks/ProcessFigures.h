// What the kernel says of a running process.
#pragma once

#include <sys/types.h>

#include <map>

namespace benchmarks {

// Megabytes (1024 x 1024) of /proc/PID/smaps_rollup.
struct Memory
{
    double resident = 0;     // Rss: shared libraries counted in full
    double privateDirty = 0; // what the process wrote, and nobody else can use
    double privateAll = 0;   // the same, and the clean pages that no other process has mapped just now
};

// Each throws NotMeasured where the process has ended.
[[nodiscard]] Memory memoryOf(pid_t process);
// CPU time of all threads since the process began, ended ones included; in seconds.
[[nodiscard]] double cpuTimeOf(pid_t process);
// Voluntary context switches by thread.
using WakeUps = std::map<pid_t, long>;
[[nodiscard]] WakeUps wakeUpsOf(pid_t process);
// How many there were between two readings; threads that ended in between are left out.
[[nodiscard]] long wakeUpsBetween(const WakeUps &before, const WakeUps &after);

} // namespace benchmarks
