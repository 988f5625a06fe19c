// The values of the bus's messages, by their types.
#pragma once

#include "Platform/Linux/Bus/BusPointer.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// Writes into a message that is not sent yet. What fails, which only the end of memory does, is remembered,
// and what comes after it is left out. REQUIRES: the message, if there is one, outlives it; texts are UTF-8.
class BusWriter
{
public:
    explicit BusWriter(sd_bus_message *message)
        : message_(message)
    {}

    BusWriter &add(std::int32_t value) { return addBasic('i', &value); }
    BusWriter &add(std::uint32_t value) { return addBasic('u', &value); }
    BusWriter &add(bool value);
    BusWriter &add(const std::string &text) { return addBasic('s', text.c_str()); }
    BusWriter &add(const char *text) { return addBasic('s', text); }
    BusWriter &addPath(const char *path) { return addBasic('o', path); }
    BusWriter &add(const std::vector<std::int32_t> &values);
    // So many bytes, for the caller to fill before the next call of this writer; null where that fails.
    [[nodiscard]] std::uint8_t *addBytes(std::size_t count);

    // What `fill` adds is an array, of elements of the type, a structure or a dictionary's entry of the
    // types.
    template <class Fill> BusWriter &array(const char *element, Fill fill) { return in('a', element, fill); }
    template <class Fill> BusWriter &structure(const char *types, Fill fill) { return in('r', types, fill); }
    template <class Fill> BusWriter &entry(const char *types, Fill fill) { return in('e', types, fill); }
    template <class Fill> BusWriter &variant(const char *type, Fill fill) { return in('v', type, fill); }

    // Below 0: an error of the kernel's numbers.
    [[nodiscard]] int result() const { return result_; }

private:
    BusWriter &addBasic(char type, const void *value);
    void note(int result);
    [[nodiscard]] bool isGood() const { return result_ >= 0; }

    template <class Fill> BusWriter &in(char container, const char *types, Fill fill)
    {
        note(isGood() ? sd_bus_message_open_container(message_, container, types) : 0);
        if (isGood()) {
            fill();
            note(isGood() ? sd_bus_message_close_container(message_) : 0);
        }
        return *this;
    }

    sd_bus_message *message_;
    int result_ = 0;
};

// Reads a message that came, from its first value on. What is not there, or of another type, reads as
// nothing, as does all that comes after it. REQUIRES: the message outlives it, and the texts that it gives.
class BusReader
{
public:
    explicit BusReader(sd_bus_message *message)
        : message_(message)
    {}

    [[nodiscard]] std::int32_t number();
    [[nodiscard]] bool flag();
    [[nodiscard]] std::string_view text();
    [[nodiscard]] std::vector<std::int32_t> numbers();
    [[nodiscard]] std::vector<std::string_view> texts();
    void passOver(const char *types);

    // Calls `read` for each structure of an array of them.
    template <class Read> void structures(const char *types, Read read)
    {
        const std::string element = std::string("(") + types + ")";
        if (!enter('a', element.c_str())) {
            return;
        }
        while (!isAtEnd() && enter('r', types)) {
            read();
            leave();
        }
        leave();
    }
    // Reads what a variant of that type holds.
    template <class Read> void variant(const char *type, Read read)
    {
        if (enter('v', type)) {
            read();
            leave();
        }
    }

    // Whether all was there so far, in a message that is no error.
    [[nodiscard]] bool isGood() const;
    [[nodiscard]] int result() const { return result_; }

private:
    [[nodiscard]] bool read(char type, void *value);
    [[nodiscard]] bool enter(char container, const char *types);
    void leave();
    [[nodiscard]] bool isAtEnd() const;
    [[nodiscard]] bool isThere(int result);

    sd_bus_message *message_;
    int result_ = 0;
};

} // namespace platform
