// The JSON that records are written as. Any thread.
#pragma once

#include "Platform/PropertyValue.h"

#include <nlohmann/json_fwd.hpp>

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace sharedcore {

using Json = nlohmann::json;

// Lists and objects inside one another beyond this many are refused when reading.
inline constexpr std::size_t deepestJson = 512;

// The text of the value that `write` fills in; nothing where it says false, and where a text or a key of the
// value is not UTF-8.
std::optional<platform::Data> jsonText(const std::function<bool(Json &)> &write);

// Hands the value that the text is to `read`, and gives its answer. False for anything but one JSON value
// (RFC 8259), and also where an object has a key twice, a number has no double, or the value is too deep.
bool readJsonText(std::span<const std::byte> text, const std::function<bool(const Json &)> &read);

// Makes the value an empty object or list.
void becomeObject(Json &value);
void becomeList(Json &value);
// The new member or item, null at first. REQUIRES: the value is an object, or a list.
Json &addMember(Json &object, std::string_view key);
Json &addItem(Json &list);

[[nodiscard]] bool isNull(const Json &value);
[[nodiscard]] bool isObject(const Json &value);
// Nothing where the value is no object, or has no such key.
[[nodiscard]] const Json *findMember(const Json &object, std::string_view key);
// Hands each member or item to `read` until that says false. False as well where the value is no object, or
// no list.
bool readMembers(const Json &object, const std::function<bool(const std::string &, const Json &)> &read);
bool readItems(const Json &list, const std::function<bool(const Json &)> &read);

} // namespace sharedcore
