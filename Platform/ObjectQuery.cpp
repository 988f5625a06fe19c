#include "Platform/ObjectQuery.h"

#include <algorithm>

namespace platform {

namespace {

bool isSound(const Condition &condition, const Entity &entity)
{
    if (condition.column >= entity.columns.size()) {
        return false;
    }
    auto column = entity.columns[condition.column];
    column.isOptional = true;
    const bool isText = std::holds_alternative<std::string>(condition.value);
    return fits(column, condition.value) && (condition.comparison != Comparison::contains || isText);
}

bool contains(const ColumnValue &value, const ColumnValue &part)
{
    const auto *text = std::get_if<std::string>(&value);
    return text != nullptr && text->find(std::get<std::string>(part)) != std::string::npos;
}

bool areInOrder(const ColumnValue &value, Comparison comparison, const ColumnValue &bound)
{
    if (value.index() == 0 || bound.index() == 0) {
        return false;
    }
    switch (comparison) {
    case Comparison::less:
        return value < bound;
    case Comparison::lessOrEqual:
        return value <= bound;
    case Comparison::greater:
        return value > bound;
    default:
        return value >= bound;
    }
}

bool holds(const Condition &condition, const ColumnValue &value)
{
    switch (condition.comparison) {
    case Comparison::equal:
        return value == condition.value;
    case Comparison::notEqual:
        return value != condition.value;
    case Comparison::contains:
        return contains(value, condition.value);
    default:
        return areInOrder(value, condition.comparison, condition.value);
    }
}

} // namespace

bool isSound(const ObjectQuery &query, const ObjectSchema &schema)
{
    if (query.entity >= schema.entities.size()) {
        return false;
    }
    const auto &entity = schema.entities[query.entity];
    const auto isKnown = [&entity](const Ordering &ordering) {
        return ordering.column < entity.columns.size();
    };
    return std::ranges::all_of(query.conditions,
                               [&entity](const Condition &c) { return isSound(c, entity); }) &&
           std::ranges::all_of(query.orderings, isKnown);
}

bool matches(const ObjectQuery &query, const std::vector<ColumnValue> &values)
{
    return std::ranges::all_of(query.conditions, [&values](const Condition &condition) {
        return holds(condition, values[condition.column]);
    });
}

bool comesBefore(const ObjectQuery &query, const ObjectRow &left, const ObjectRow &right)
{
    for (const auto &ordering : query.orderings) {
        const auto &one = left.values[ordering.column];
        const auto &other = right.values[ordering.column];
        if (one != other) {
            return (one < other) != ordering.isDescending;
        }
    }
    const bool isDescending = !query.orderings.empty() && query.orderings.back().isDescending;
    return isDescending ? right.key < left.key : left.key < right.key;
}

void arrange(const ObjectQuery &query, std::vector<ObjectRow> &rows)
{
    std::ranges::sort(rows, [&query](const ObjectRow &left, const ObjectRow &right) {
        return comesBefore(query, left, right);
    });
    if (query.limit && rows.size() > *query.limit) {
        rows.resize(*query.limit);
    }
}

} // namespace platform
