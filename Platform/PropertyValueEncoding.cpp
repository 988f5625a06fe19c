#include "Foundation/Utf8.h"
#include "Platform/PropertyValueCoding.h"
#include "Platform/PropertyValueTypes.h"

#include <algorithm>
#include <bit>
#include <string_view>

namespace platform {

namespace {

class Encoder
{
public:
    bool write(const PropertyValue &value, int depth)
    {
        return std::visit([this, depth](const auto &content) { return writeContent(content, depth); }, value);
    }

    [[nodiscard]] Data take() { return std::move(bytes_); }

private:
    void writeByte(std::uint8_t byte) { bytes_.push_back(std::byte{byte}); }

    void writeNumber(std::uint64_t number)
    {
        for (int index = 0; index < 8; ++index) {
            writeByte(static_cast<std::uint8_t>(number >> (8 * index)));
        }
    }

    void writeType(PropertyType type) { writeByte(static_cast<std::uint8_t>(type)); }

    bool writeText(std::string_view text)
    {
        writeNumber(text.size());
        std::ranges::transform(text, std::back_inserter(bytes_),
                               [](char letter) { return static_cast<std::byte>(letter); });
        return foundation::isUtf8(text);
    }

    bool writeContent(const std::string &text, int /*depth*/)
    {
        writeType(PropertyType::text);
        return writeText(text);
    }

    bool writeContent(std::int64_t number, int /*depth*/)
    {
        writeType(PropertyType::wholeNumber);
        writeNumber(static_cast<std::uint64_t>(number));
        return true;
    }

    bool writeContent(double number, int /*depth*/)
    {
        writeType(PropertyType::doubleNumber);
        writeNumber(std::bit_cast<std::uint64_t>(number));
        return true;
    }

    bool writeContent(bool isTrue, int /*depth*/)
    {
        writeType(PropertyType::boolean);
        writeByte(isTrue ? 1 : 0);
        return true;
    }

    bool writeContent(foundation::Date date, int /*depth*/)
    {
        writeType(PropertyType::date);
        writeNumber(static_cast<std::uint64_t>(date.time_since_epoch().count()));
        return true;
    }

    bool writeContent(const Data &data, int /*depth*/)
    {
        writeType(PropertyType::data);
        writeNumber(data.size());
        bytes_.insert(bytes_.end(), data.begin(), data.end());
        return true;
    }

    bool writeContent(const PropertyList &list, int depth)
    {
        writeType(PropertyType::list);
        writeNumber(list.size());
        return depth < deepestPropertyValue &&
               std::ranges::all_of(list, [&](const auto &value) { return write(value, depth + 1); });
    }

    bool writeContent(const PropertyDictionary &dictionary, int depth)
    {
        writeType(PropertyType::dictionary);
        writeNumber(dictionary.size());
        return depth < deepestPropertyValue && std::ranges::all_of(dictionary, [&](const auto &entry) {
                   return writeText(entry.first) && write(entry.second, depth + 1);
               });
    }

    Data bytes_;
};

} // namespace

std::optional<Data> encodedPropertyValue(const PropertyValue &value)
{
    Encoder encoder;
    if (!encoder.write(value, 0)) {
        return std::nullopt;
    }
    return encoder.take();
}

} // namespace platform
