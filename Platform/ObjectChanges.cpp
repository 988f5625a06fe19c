#include "Platform/ObjectChanges.h"

#include <algorithm>

namespace platform {

namespace {

bool isSound(const ObjectInsertion &insertion, const ObjectSchema &schema)
{
    return insertion.entity < schema.entities.size() &&
           fit(schema.entities[insertion.entity], insertion.row.values);
}

bool isSound(const ObjectUpdate &update, const ObjectSchema &schema)
{
    if (update.entity >= schema.entities.size()) {
        return false;
    }
    const auto &columns = schema.entities[update.entity].columns;
    return std::ranges::all_of(update.values, [&columns](const auto &change) {
        return change.first < columns.size() && fits(columns[change.first], change.second);
    });
}

bool isSound(const ObjectDeletion &deletion, const ObjectSchema &schema)
{
    return deletion.entity < schema.entities.size();
}

} // namespace

bool isSound(const ObjectChanges &changes, const ObjectSchema &schema)
{
    const auto sound = [&schema](const auto &change) { return isSound(change, schema); };
    return std::ranges::all_of(changes.insertions, sound) && std::ranges::all_of(changes.updates, sound) &&
           std::ranges::all_of(changes.deletions, sound);
}

} // namespace platform
