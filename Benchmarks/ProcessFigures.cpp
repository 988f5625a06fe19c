#include "Benchmarks/ProcessFigures.h"

#include "Benchmarks/Report.h"

#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

namespace benchmarks {

namespace {

constexpr double kilobytesPerMegabyte = 1024;

std::filesystem::path folderOf(pid_t process)
{
    return std::filesystem::path("/proc") / std::to_string(process);
}

// The numbers of a file of lines like "Rss:   1234 kB".
std::map<std::string, long> numbersIn(const std::filesystem::path &path)
{
    std::ifstream file(path);
    std::map<std::string, long> numbers;
    for (std::string line; std::getline(file, line);) {
        const auto colon = line.find(':');
        char *end = nullptr;
        const char *start = line.c_str() + (colon == std::string::npos ? line.size() : colon + 1);
        const long value = std::strtol(start, &end, 10);
        if (end != start) {
            numbers[line.substr(0, colon)] = value;
        }
    }
    return numbers;
}

} // namespace

Memory memoryOf(pid_t process)
{
    auto numbers = numbersIn(folderOf(process) / "smaps_rollup");
    if (numbers["Rss"] == 0) {
        throw NotMeasured("no process to read the memory of");
    }
    const auto megabytes = [&numbers](const char *name) {
        return static_cast<double>(numbers[name]) / kilobytesPerMegabyte;
    };
    return {megabytes("Rss"), megabytes("Private_Dirty"),
            megabytes("Private_Dirty") + megabytes("Private_Clean")};
}

double cpuTimeOf(pid_t process)
{
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &time) != 0) {
        throw NotMeasured("no process to read the CPU time of");
    }
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

WakeUps wakeUpsOf(pid_t process)
{
    WakeUps wakeUps;
    std::error_code error;
    for (const auto &thread : std::filesystem::directory_iterator(folderOf(process) / "task", error)) {
        const auto id = static_cast<pid_t>(std::stol(thread.path().filename().string()));
        wakeUps[id] = numbersIn(thread.path() / "status")["voluntary_ctxt_switches"];
    }
    if (wakeUps.empty()) {
        throw NotMeasured("no process to count the wake-ups of");
    }
    return wakeUps;
}

long wakeUpsBetween(const WakeUps &before, const WakeUps &after)
{
    long sum = 0;
    for (const auto &[thread, count] : after) {
        const auto found = before.find(thread);
        sum += count - (found == before.end() ? 0 : found->second);
    }
    return sum;
}

} // namespace benchmarks
