// How values become JSON and come back: strictly, all of a value or nothing of it. Any thread.
#pragma once

#include "Foundation/ReferenceDate.h"
#include "SharedCore/Storage/Json.h"
#include "SharedCore/Storage/RawText.h"

#include <concepts>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace sharedcore {

// What can be encoded and decoded specialises this. `encode` writes into a null value, and says false where
// the value has no JSON; `decode` says false, whatever it has put into `value`, where the JSON is not of that
// type.
template <class Value> struct Coding;

template <class Value>
concept Codable = std::default_initializable<Value> &&
    requires(const Value &value, Value &decoded, Json &json)
{
    {
        Coding<Value>::encode(value, json)
        } -> std::same_as<bool>;
    {
        Coding<Value>::decode(std::as_const(json), decoded)
        } -> std::same_as<bool>;
};

// true and false; no number counts as one of them.
template <> struct Coding<bool>
{
    static bool encode(bool value, Json &json);
    static bool decode(const Json &json, bool &value);
};

// A number without a fraction, in the signed 64-bit range. One that is written with a fraction or an exponent
// (1.0, 1e3) counts up to 2^53, where every whole number is exact.
template <> struct Coding<std::int64_t>
{
    static bool encode(std::int64_t value, Json &json);
    static bool decode(const Json &json, std::int64_t &value);
};

// Any number; NaN and the infinities cannot be encoded.
template <> struct Coding<double>
{
    static bool encode(double value, Json &json);
    static bool decode(const Json &json, double &value);
};

// UTF-8; anything else cannot be encoded.
template <> struct Coding<std::string>
{
    static bool encode(const std::string &value, Json &json);
    static bool decode(const Json &json, std::string &value);
};

// Seconds since 2001-01-01 00:00:00 UTC. The last moments of the range, which would round to one outside it,
// cannot be encoded.
template <> struct Coding<foundation::Date>
{
    static bool encode(foundation::Date value, Json &json);
    static bool decode(const Json &json, foundation::Date &value);
};

// Other whole numbers, where they fit into their type and into 64 signed bits.
template <std::integral Number> struct Coding<Number>
{
    static bool encode(Number value, Json &json)
    {
        return std::in_range<std::int64_t>(value) &&
               Coding<std::int64_t>::encode(static_cast<std::int64_t>(value), json);
    }
    static bool decode(const Json &json, Number &value)
    {
        std::int64_t number = 0;
        const bool isWhole = Coding<std::int64_t>::decode(json, number) && std::in_range<Number>(number);
        value = static_cast<Number>(number);
        return isWhole;
    }
};

// The raw text of a case.
template <HasRawTexts Enumeration> struct Coding<Enumeration>
{
    static bool encode(Enumeration value, Json &json)
    {
        return Coding<std::string>::encode(std::string(rawText(value)), json);
    }
    static bool decode(const Json &json, Enumeration &value)
    {
        std::string text;
        const bool isText = Coding<std::string>::decode(json, text);
        const auto found = caseOfRawText<Enumeration>(text);
        value = found.value_or(Enumeration{});
        return isText && found.has_value();
    }
};

// Null where it is absent; a record leaves an absent one out.
template <Codable Value> struct Coding<std::optional<Value>>
{
    static bool encode(const std::optional<Value> &value, Json &json)
    {
        return !value || Coding<Value>::encode(*value, json);
    }
    static bool decode(const Json &json, std::optional<Value> &value)
    {
        value.reset();
        return isNull(json) || Coding<Value>::decode(json, value.emplace());
    }
};

template <Codable Value> struct Coding<std::vector<Value>>
{
    static bool encode(const std::vector<Value> &values, Json &json)
    {
        becomeList(json);
        for (const auto &value : values) {
            if (!Coding<Value>::encode(value, addItem(json))) {
                return false;
            }
        }
        return true;
    }
    static bool decode(const Json &json, std::vector<Value> &values)
    {
        return readItems(json, [&values](const Json &item) {
            Value value{};
            const bool isDecoded = Coding<Value>::decode(item, value);
            values.push_back(std::move(value));
            return isDecoded;
        });
    }
};

// An object with the keys of the map.
template <Codable Value, class Order> struct Coding<std::map<std::string, Value, Order>>
{
    using Map = std::map<std::string, Value, Order>;

    static bool encode(const Map &values, Json &json)
    {
        becomeObject(json);
        for (const auto &[key, value] : values) {
            if (!Coding<Value>::encode(value, addMember(json, key))) {
                return false;
            }
        }
        return true;
    }
    static bool decode(const Json &json, Map &values)
    {
        return readMembers(json, [&values](const std::string &key, const Json &member) {
            return Coding<Value>::decode(member, values[key]);
        });
    }
};

// A key of a record's object, and where its value lies.
template <class Record, class Value> struct Field
{
    std::string_view key;
    Value Record::*value;
};

template <class Record, class Value> Field(const char *, Value Record::*) -> Field<Record, Value>;

// A record lists its fields in a static function:
//
//     static constexpr auto fields() { return std::tuple{Field{"count", &Visits::count}, ...}; }
template <class Record>
concept HasFields = requires
{
    std::tuple_size<decltype(Record::fields())>::value;
};

// An object with exactly these keys. An optional value may be absent, or null; every other has to be there.
// Further keys are ignored.
template <HasFields Record> struct Coding<Record>
{
    static bool encode(const Record &record, Json &json)
    {
        becomeObject(json);
        return std::apply([&](const auto &...fields) { return (encodeField(record, fields, json) && ...); },
                          Record::fields());
    }

    static bool decode(const Json &json, Record &record)
    {
        return isObject(json) &&
               std::apply([&](const auto &...fields) { return (decodeField(json, fields, record) && ...); },
                          Record::fields());
    }

private:
    template <class Value>
    static bool encodeField(const Record &record, const Field<Record, Value> &field, Json &json)
    {
        return Coding<Value>::encode(record.*field.value, addMember(json, field.key));
    }

    template <class Value>
    static bool encodeField(const Record &record, const Field<Record, std::optional<Value>> &field,
                            Json &json)
    {
        const auto &value = record.*field.value;
        return !value || Coding<Value>::encode(*value, addMember(json, field.key));
    }

    template <class Value>
    static bool decodeField(const Json &json, const Field<Record, Value> &field, Record &record)
    {
        const auto *member = findMember(json, field.key);
        return member && Coding<Value>::decode(*member, record.*field.value);
    }

    template <class Value>
    static bool decodeField(const Json &json, const Field<Record, std::optional<Value>> &field,
                            Record &record)
    {
        const auto *member = findMember(json, field.key);
        return !member || Coding<std::optional<Value>>::decode(*member, record.*field.value);
    }
};

} // namespace sharedcore
