#include "SharedCore/Storage/BackingData.h"

namespace sharedcore {

BackingData::BackingData(std::string_view entityName, std::vector<platform::ColumnValue> values)
    : identifier_(PersistentIdentifier::make(entityName))
    , values_(std::move(values))
{}

BackingData::BackingData(std::string_view entityName, platform::ObjectRow row)
    : identifier_{entityName, row.key}
    , values_(std::move(row.values))
    , isStored_(true)
{}

void BackingData::set(std::size_t place, platform::ColumnValue value)
{
    keepStored();
    values_[place] = std::move(value);
}

bool BackingData::hasChanges() const
{
    return !stored_.empty() && stored_ != values_;
}

bool BackingData::isChanged(std::size_t place) const
{
    return !stored_.empty() && stored_[place] != values_[place];
}

std::vector<std::pair<std::size_t, platform::ColumnValue>> BackingData::changes() const
{
    std::vector<std::pair<std::size_t, platform::ColumnValue>> changes;
    for (std::size_t place = 0; place < values_.size(); ++place) {
        if (isChanged(place)) {
            changes.emplace_back(place, values_[place]);
        }
    }
    return changes;
}

const platform::ColumnValue &BackingData::stored(std::size_t place) const
{
    return stored_.empty() ? values_[place] : stored_[place];
}

void BackingData::setStored(std::size_t place, platform::ColumnValue value)
{
    keepStored();
    stored_[place] = std::move(value);
}

void BackingData::becomeStored()
{
    isStored_ = true;
    stored_.clear();
}

void BackingData::becomeTransient()
{
    isStored_ = false;
    stored_.clear();
}

void BackingData::keepStored()
{
    if (isStored_ && stored_.empty()) {
        stored_ = values_;
    }
}

} // namespace sharedcore
