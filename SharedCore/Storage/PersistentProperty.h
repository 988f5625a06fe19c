// What a property of a persistent record may be, and how it stands in its column.
#pragma once

#include "Platform/ObjectSchema.h"

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace sharedcore {

// Text is UTF-8.
template <class Value>
concept PlainProperty = std::same_as<Value, std::string> || std::same_as<Value, std::int64_t> ||
    std::same_as<Value, double> || std::same_as<Value, bool> || std::same_as<Value, foundation::Date>;

template <class Value> struct PropertyTraits;

template <PlainProperty Value> struct PropertyTraits<Value>
{
    static constexpr bool isOptional = false;
    static constexpr platform::ColumnType columnType()
    {
        using enum platform::ColumnType;
        if constexpr (std::same_as<Value, std::string>) {
            return text;
        } else if constexpr (std::same_as<Value, std::int64_t>) {
            return wholeNumber;
        } else if constexpr (std::same_as<Value, double>) {
            return number;
        } else if constexpr (std::same_as<Value, bool>) {
            return boolean;
        } else {
            return date;
        }
    }
    static platform::ColumnValue toColumn(Value value) { return value; }
    static const Value &fromColumn(const platform::ColumnValue &value) { return std::get<Value>(value); }
};

template <PlainProperty Value> struct PropertyTraits<std::optional<Value>>
{
    static constexpr bool isOptional = true;
    static constexpr platform::ColumnType columnType() { return PropertyTraits<Value>::columnType(); }
    static platform::ColumnValue toColumn(std::optional<Value> value)
    {
        return value ? PropertyTraits<Value>::toColumn(std::move(*value)) : platform::ColumnValue();
    }
    static std::optional<Value> fromColumn(const platform::ColumnValue &value)
    {
        const auto *held = std::get_if<Value>(&value);
        return held != nullptr ? std::optional(*held) : std::nullopt;
    }
};

template <class Value> platform::ColumnValue toColumn(Value value)
{
    return PropertyTraits<Value>::toColumn(std::move(value));
}

} // namespace sharedcore
