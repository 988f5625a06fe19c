#include "Foundation/Utf8.h"
#include "Platform/PropertyValueCoding.h"
#include "Platform/PropertyValueTypes.h"

#include <algorithm>
#include <bit>

namespace platform {

namespace {

using Result = std::optional<PropertyValue>;

// Nothing is believed of a length before the bytes are there, so nothing large is made for a few bytes.
class Decoder
{
public:
    explicit Decoder(std::span<const std::byte> bytes)
        : bytes_(bytes)
    {}

    [[nodiscard]] bool isAtEnd() const { return bytes_.empty(); }

    Result read(int depth)
    {
        const auto type = take(1);
        if (!type) {
            return std::nullopt;
        }
        switch (static_cast<PropertyType>(type->front())) {
        case PropertyType::list:
            return depth < deepestPropertyValue ? readList(depth + 1) : std::nullopt;
        case PropertyType::dictionary:
            return depth < deepestPropertyValue ? readDictionary(depth + 1) : std::nullopt;
        default:
            return readSingle(static_cast<PropertyType>(type->front()));
        }
    }

private:
    std::optional<std::span<const std::byte>> take(std::uint64_t length)
    {
        if (length > bytes_.size()) {
            return std::nullopt;
        }
        const auto taken = bytes_.first(length);
        bytes_ = bytes_.subspan(length);
        return taken;
    }

    std::optional<std::uint64_t> readNumber()
    {
        const auto bytes = take(sizeof(std::uint64_t));
        if (!bytes) {
            return std::nullopt;
        }
        std::uint64_t number = 0;
        for (std::size_t index = 0; index < bytes->size(); ++index) {
            number |= std::to_integer<std::uint64_t>((*bytes)[index]) << (8 * index);
        }
        return number;
    }

    std::optional<std::span<const std::byte>> readCounted()
    {
        const auto length = readNumber();
        return length ? take(*length) : std::nullopt;
    }

    std::optional<std::string> readText()
    {
        const auto bytes = readCounted();
        if (!bytes) {
            return std::nullopt;
        }
        std::string text(bytes->size(), '\0');
        std::ranges::transform(*bytes, text.begin(), [](std::byte byte) { return static_cast<char>(byte); });
        return foundation::isUtf8(text) ? std::optional(std::move(text)) : std::nullopt;
    }

    Result readSingle(PropertyType type)
    {
        switch (type) {
        case PropertyType::text:
            return as(readText(), [](std::string &text) { return std::move(text); });
        case PropertyType::wholeNumber:
            return as(readNumber(), [](std::uint64_t number) { return static_cast<std::int64_t>(number); });
        case PropertyType::doubleNumber:
            return as(readNumber(), [](std::uint64_t number) { return std::bit_cast<double>(number); });
        case PropertyType::boolean:
            return readBoolean();
        case PropertyType::date:
            return as(readNumber(), [](std::uint64_t number) {
                return foundation::Date(std::chrono::microseconds(static_cast<std::int64_t>(number)));
            });
        case PropertyType::data:
            return as(readCounted(), [](auto bytes) { return Data(bytes.begin(), bytes.end()); });
        default:
            return std::nullopt;
        }
    }

    template <class Content, class Make> static Result as(std::optional<Content> content, const Make &make)
    {
        return content ? Result(make(*content)) : std::nullopt;
    }

    Result readBoolean()
    {
        const auto byte = take(1);
        if (!byte || std::to_integer<unsigned>(byte->front()) > 1) {
            return std::nullopt;
        }
        return std::to_integer<unsigned>(byte->front()) == 1;
    }

    Result readList(int depth)
    {
        const auto count = readNumber();
        if (!count) {
            return std::nullopt;
        }
        PropertyList list;
        for (std::uint64_t index = 0; index < *count; ++index) {
            auto value = read(depth);
            if (!value) {
                return std::nullopt;
            }
            list.push_back(std::move(*value));
        }
        return list;
    }

    Result readDictionary(int depth)
    {
        const auto count = readNumber();
        if (!count) {
            return std::nullopt;
        }
        PropertyDictionary dictionary;
        for (std::uint64_t index = 0; index < *count; ++index) {
            if (!readEntry(dictionary, depth)) {
                return std::nullopt;
            }
        }
        return dictionary;
    }

    bool readEntry(PropertyDictionary &dictionary, int depth)
    {
        auto key = readText();
        if (!key || (!dictionary.empty() && *key <= dictionary.rbegin()->first)) {
            return false;
        }
        auto value = read(depth);
        if (!value) {
            return false;
        }
        dictionary.emplace_hint(dictionary.end(), std::move(*key), std::move(*value));
        return true;
    }

    std::span<const std::byte> bytes_;
};

} // namespace

std::optional<PropertyValue> decodedPropertyValue(std::span<const std::byte> bytes)
{
    Decoder decoder(bytes);
    auto value = decoder.read(0);
    return decoder.isAtEnd() ? std::move(value) : std::nullopt;
}

} // namespace platform
