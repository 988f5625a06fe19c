// The values of a persistent record.
#pragma once

#include "Platform/ObjectRow.h"
#include "SharedCore/Storage/PersistentIdentifier.h"

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace sharedcore {

// A row that stands alone, or one of a store with what was changed since. The thread of its record.
class BackingData
{
public:
    // A row that stands alone, with an identity of its own.
    BackingData(std::string_view entityName, std::vector<platform::ColumnValue> values);
    // A row of the store.
    BackingData(std::string_view entityName, platform::ObjectRow row);

    [[nodiscard]] const PersistentIdentifier &identifier() const { return identifier_; }
    [[nodiscard]] const std::vector<platform::ColumnValue> &values() const { return values_; }
    [[nodiscard]] bool isStored() const { return isStored_; }

    void set(std::size_t place, platform::ColumnValue value);

    // What differs from the store's row; nothing where there is none.
    [[nodiscard]] bool hasChanges() const;
    [[nodiscard]] bool isChanged(std::size_t place) const;
    [[nodiscard]] std::vector<std::pair<std::size_t, platform::ColumnValue>> changes() const;

    // What the store has. REQUIRES: isStored().
    [[nodiscard]] const platform::ColumnValue &stored(std::size_t place) const;
    // The store has another value now. The record's own stays.
    void setStored(std::size_t place, platform::ColumnValue value);

    // The store has the row as it is here.
    void becomeStored();
    // No store has the row any more.
    void becomeTransient();

private:
    void keepStored();

    PersistentIdentifier identifier_;
    std::vector<platform::ColumnValue> values_;
    std::vector<platform::ColumnValue> stored_; // empty while it is what values_ is
    bool isStored_ = false;
};

} // namespace sharedcore
