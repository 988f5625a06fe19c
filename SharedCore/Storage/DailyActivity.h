// What was done with mouse and keyboard on a day.
#pragma once

#include "SharedCore/Storage/PersistentModel.h"
#include "SharedCore/Storage/RecordTime.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace sharedcore {

// Its thread and its life are those of a PersistentModel. Nothing merges the records of one day: whoever
// keeps one a day fetches the one there is.
class DailyActivity final : public PersistentModel
{
public:
    static constexpr std::string_view entityName = "DailyActivity";

    // A record with all counters at zero. The date stays as it is given, with its time of day.
    explicit DailyActivity(foundation::Date date = recordTime());
    // The record that the backing data is of. REQUIRES: it has this class's entity and properties.
    explicit DailyActivity(BackingData backing);

    [[nodiscard]] foundation::Date date() const;
    void setDate(foundation::Date date);
    [[nodiscard]] double mouseDistance() const;
    void setMouseDistance(double mouseDistance);
    [[nodiscard]] std::int64_t keystrokes() const;
    void setKeystrokes(std::int64_t keystrokes);
    // Seconds.
    [[nodiscard]] double activeTime() const;
    void setActiveTime(double activeTime);

    // The properties above in their order, without defaults and attributes.
    [[nodiscard]] static const std::array<PropertyMetadata<DailyActivity>, 4> &schemaMetadata();
    [[nodiscard]] static std::vector<platform::ColumnValue>
    initialValues(foundation::Date date = recordTime());
};

} // namespace sharedcore
