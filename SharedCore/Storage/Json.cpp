#include "SharedCore/Storage/Json.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace sharedcore {

namespace {

// Builds the value as the parser comes by its parts. The parser does not call itself, so depth costs memory
// only.
class JsonBuilder
{
public:
    JsonBuilder() noexcept(false) = default;
    JsonBuilder(const JsonBuilder &) = delete;
    JsonBuilder &operator=(const JsonBuilder &) = delete;
    ~JsonBuilder() = default;

    [[nodiscard]] const Json &value() const { return value_; }

    // What the parser calls, by its names.
    bool null() { return add(nullptr); }
    bool boolean(bool isTrue) { return add(isTrue); }
    bool number_integer(std::int64_t number) { return add(number); }
    bool number_unsigned(std::uint64_t number) { return add(number); }
    bool number_float(double number, const std::string & /*text*/) { return add(number); }
    bool string(std::string &text) { return add(std::move(text)); }
    static bool binary(Json::binary_t & /*bytes*/) { return false; }
    bool start_object(std::size_t /*count*/) { return begin(Json::object()); }
    bool end_object() { return end(); }
    bool start_array(std::size_t /*count*/) { return begin(Json::array()); }
    bool end_array() { return end(); }

    bool key(std::string &key)
    {
        key_ = std::move(key);
        return !open_.back()->contains(key_);
    }

    static bool parse_error(std::size_t /*position*/, const std::string & /*token*/,
                            const nlohmann::detail::exception & /*error*/)
    {
        return false;
    }

private:
    bool add(Json value)
    {
        place(std::move(value));
        return true;
    }

    Json &place(Json value)
    {
        if (open_.empty()) {
            return value_ = std::move(value);
        }
        auto &parent = *open_.back();
        return parent.is_array() ? parent.emplace_back(std::move(value)) : parent[key_] = std::move(value);
    }

    bool begin(Json value)
    {
        open_.push_back(&place(std::move(value)));
        return open_.size() <= deepestJson;
    }

    bool end()
    {
        open_.pop_back();
        return true;
    }

    Json value_;
    std::string key_;
    std::vector<Json *> open_; // none of them moves before what is inside it is complete
};

platform::Data bytesOf(std::string_view text)
{
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

} // namespace

std::optional<platform::Data> jsonText(const std::function<bool(Json &)> &write)
{
    try {
        Json value;
        return write(value) ? std::optional(bytesOf(value.dump())) : std::nullopt;
    } catch (const Json::exception &) { // a text that is not UTF-8
        return std::nullopt;
    }
}

bool readJsonText(std::span<const std::byte> text, const std::function<bool(const Json &)> &read)
{
    JsonBuilder builder;
    const auto *begin = reinterpret_cast<const char *>(text.data());
    return Json::sax_parse(begin, begin + text.size(), &builder) && read(builder.value());
}

void becomeObject(Json &value)
{
    value = Json::object();
}

void becomeList(Json &value)
{
    value = Json::array();
}

Json &addMember(Json &object, std::string_view key)
{
    return object[std::string(key)];
}

Json &addItem(Json &list)
{
    return list.emplace_back(nullptr);
}

bool isNull(const Json &value)
{
    return value.is_null();
}

bool isObject(const Json &value)
{
    return value.is_object();
}

const Json *findMember(const Json &object, std::string_view key)
{
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

bool readMembers(const Json &object, const std::function<bool(const std::string &, const Json &)> &read)
{
    return object.is_object() &&
           std::ranges::all_of(object.get_ref<const Json::object_t &>(),
                               [&](const auto &member) { return read(member.first, member.second); });
}

bool readItems(const Json &list, const std::function<bool(const Json &)> &read)
{
    return list.is_array() && std::ranges::all_of(list, read);
}

} // namespace sharedcore
