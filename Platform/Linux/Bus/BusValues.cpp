#include "Platform/Linux/Bus/BusValues.h"

#include <cerrno>

namespace platform {

BusWriter &BusWriter::add(bool value)
{
    const int number = value ? 1 : 0;
    return addBasic('b', &number);
}

BusWriter &BusWriter::add(const std::vector<std::int32_t> &values)
{
    if (isGood()) {
        note(sd_bus_message_append_array(message_, 'i', values.data(), values.size() * sizeof(std::int32_t)));
    }
    return *this;
}

std::uint8_t *BusWriter::addBytes(std::size_t count)
{
    void *bytes = nullptr;
    if (isGood()) {
        note(sd_bus_message_append_array_space(message_, 'y', count, &bytes));
    }
    return isGood() ? static_cast<std::uint8_t *>(bytes) : nullptr;
}

BusWriter &BusWriter::addBasic(char type, const void *value)
{
    if (isGood()) {
        note(sd_bus_message_append_basic(message_, type, value));
    }
    return *this;
}

void BusWriter::note(int result)
{
    if (isGood()) {
        result_ = result;
    }
}

std::int32_t BusReader::number()
{
    std::int32_t value = 0;
    return read('i', &value) ? value : 0;
}

bool BusReader::flag()
{
    int value = 0;
    return read('b', &value) && value != 0;
}

std::string_view BusReader::text()
{
    const char *value = nullptr;
    return read('s', static_cast<void *>(&value)) ? std::string_view(value) : std::string_view();
}

std::vector<std::int32_t> BusReader::numbers()
{
    std::vector<std::int32_t> values;
    if (enter('a', "i")) {
        while (!isAtEnd()) {
            values.push_back(number());
        }
        leave();
    }
    return values;
}

std::vector<std::string_view> BusReader::texts()
{
    std::vector<std::string_view> values;
    if (enter('a', "s")) {
        while (!isAtEnd()) {
            values.push_back(text());
        }
        leave();
    }
    return values;
}

void BusReader::passOver(const char *types)
{
    if (result_ >= 0) {
        result_ = sd_bus_message_skip(message_, types);
    }
}

bool BusReader::isGood() const
{
    return result_ >= 0 && sd_bus_message_is_method_error(message_, nullptr) == 0;
}

bool BusReader::read(char type, void *value)
{
    return result_ >= 0 && isThere(sd_bus_message_read_basic(message_, type, value));
}

bool BusReader::enter(char container, const char *types)
{
    return result_ >= 0 && isThere(sd_bus_message_enter_container(message_, container, types));
}

void BusReader::leave()
{
    if (result_ >= 0) {
        result_ = sd_bus_message_exit_container(message_);
    }
}

// Of the array or structure that is being read, or of the message.
bool BusReader::isAtEnd() const
{
    return result_ < 0 || sd_bus_message_at_end(message_, 0) != 0;
}

bool BusReader::isThere(int result)
{
    result_ = result == 0 ? -ENXIO : result;
    return result_ > 0;
}

} // namespace platform
