#include "Platform/ObjectSchema.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace platform {

namespace {

// The place of the type's alternative in ColumnValue.
std::size_t alternativeOf(ColumnType type)
{
    return static_cast<std::size_t>(type) + 1;
}

bool isNotANumber(const ColumnValue &value)
{
    const auto *number = std::get_if<double>(&value);
    return number != nullptr && std::isnan(*number);
}

bool isTooLong(const ColumnValue &value)
{
    const auto *text = std::get_if<std::string>(&value);
    return text != nullptr && text->size() > longestText;
}

std::string lowered(std::string name)
{
    std::ranges::transform(name, name.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return name;
}

template <class Named> bool areNamesSound(const std::vector<Named> &list, std::set<std::string> taken)
{
    return std::ranges::all_of(list, [&taken](const Named &item) {
        const bool isPlain = !item.name.empty() && item.name.find('\0') == std::string::npos;
        return isPlain && taken.insert(lowered(item.name)).second;
    });
}

bool isSound(const Entity &entity)
{
    const auto isFilled = [](const Column &column) { return fits(column, column.initialValue); };
    return !entity.columns.empty() && areNamesSound(entity.columns, {lowered(keyColumnName)}) &&
           std::ranges::all_of(entity.columns, isFilled);
}

} // namespace

bool fits(const Column &column, const ColumnValue &value)
{
    if (value.index() == 0) {
        return column.isOptional;
    }
    return value.index() == alternativeOf(column.type) && !isNotANumber(value) && !isTooLong(value);
}

bool fit(const Entity &entity, const std::vector<ColumnValue> &values)
{
    return std::ranges::equal(entity.columns, values, fits);
}

bool isSound(const ObjectSchema &schema)
{
    return schema.version >= 1 && !schema.entities.empty() && areNamesSound(schema.entities, {}) &&
           std::ranges::all_of(schema.entities, [](const Entity &entity) { return isSound(entity); });
}

} // namespace platform
