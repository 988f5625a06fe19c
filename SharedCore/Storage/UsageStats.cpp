#include "SharedCore/Storage/UsageStats.h"

#include "Foundation/CheckedArithmetic.h"

namespace sharedcore {

void UsageStats::recordLaunch(const Clock &now)
{
    launchCount = foundation::checkedSum(launchCount, 1);
    lastLaunchDate = now();
    if (!firstLaunchDate) {
        firstLaunchDate = now();
    }
}

void UsageStats::recordFeature(std::string_view name)
{
    auto &count = featureUsage.try_emplace(std::string(name), 0).first->second;
    count = foundation::checkedSum(count, 1);
}

} // namespace sharedcore
