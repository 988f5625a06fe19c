#include "SharedCore/Storage/Json.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace sharedcore {

namespace {

// Builds the value as the parser comes by its parts. The parser does not call itself, so depth costs memory
// only.
class JsonBuilder final : public Json::json_sax_t
{
public:
    [[nodiscard]] const Json &value() const { return value_; }

    bool null() override { return add(nullptr); }
    bool boolean(bool isTrue) override { return add(isTrue); }
    bool number_integer(number_integer_t number) override { return add(number); }
    bool number_unsigned(number_unsigned_t number) override { return add(number); }
    bool number_float(number_float_t number, const string_t & /*text*/) override { return add(number); }
    bool string(string_t &text) override { return add(std::move(text)); }
    bool binary(binary_t & /*bytes*/) override { return false; }
    bool start_object(std::size_t /*count*/) override { return begin(Json::object()); }
    bool end_object() override { return end(); }
    bool start_array(std::size_t /*count*/) override { return begin(Json::array()); }
    bool end_array() override { return end(); }

    bool key(string_t &key) override
    {
        key_ = std::move(key);
        return !open_.back()->contains(key_);
    }

    bool parse_error(std::size_t /*position*/, const std::string & /*token*/,
                     const nlohmann::detail::exception & /*error*/) override
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
    const auto found = object.find(std::string(key));
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
