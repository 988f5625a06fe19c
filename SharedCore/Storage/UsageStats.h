// How often an application was used, when, and for what.
#pragma once

#include "SharedCore/Storage/Coding.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace sharedcore {

// A plain value, without a key of its own: the application that keeps it stores it with StorageManager::set()
// under a key that it chooses, and begins again from UsageStats() where get() gives nothing. The memberwise
// initialiser is that of an aggregate: UsageStats{.launchCount = 3}.
struct UsageStats
{
    using Clock = std::function<foundation::Date()>;

    std::int64_t launchCount = 0;
    std::optional<foundation::Date> firstLaunchDate = {};
    std::optional<foundation::Date> lastLaunchDate = {};
    double totalUsageTime = 0; // in seconds; the application adds to it
    std::map<std::string, std::int64_t, std::less<>> featureUsage = {};

    // One more launch, now. The first one is the first launch too; its two dates are two readings of the
    // clock. A count beyond 64 bits is a fatal error.
    void recordLaunch(const Clock &now = foundation::currentDate);
    // One more use of the feature; names are case-sensitive. A count beyond 64 bits is a fatal error.
    void recordFeature(std::string_view name);

    bool operator==(const UsageStats &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{Field{"launchCount", &UsageStats::launchCount},
                          Field{"firstLaunchDate", &UsageStats::firstLaunchDate},
                          Field{"lastLaunchDate", &UsageStats::lastLaunchDate},
                          Field{"totalUsageTime", &UsageStats::totalUsageTime},
                          Field{"featureUsage", &UsageStats::featureUsage}};
    }
};

static_assert(Codable<UsageStats>);

} // namespace sharedcore
