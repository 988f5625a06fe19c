#include "Foundation/Utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace foundation {

namespace {

// One line of RFC 3629's table of well-formed sequences: the first byte, the second, and how many there are.
struct Form
{
    unsigned char firstLow;
    unsigned char firstHigh;
    unsigned char secondLow;
    unsigned char secondHigh;
    std::size_t length;
};

constexpr std::array forms{
    Form{0xC2, 0xDF, 0x80, 0xBF, 2}, Form{0xE0, 0xE0, 0xA0, 0xBF, 3}, Form{0xE1, 0xEC, 0x80, 0xBF, 3},
    Form{0xED, 0xED, 0x80, 0x9F, 3}, Form{0xEE, 0xEF, 0x80, 0xBF, 3}, Form{0xF0, 0xF0, 0x90, 0xBF, 4},
    Form{0xF1, 0xF3, 0x80, 0xBF, 4}, Form{0xF4, 0xF4, 0x80, 0x8F, 4},
};

unsigned char byteAt(std::string_view bytes, std::size_t index)
{
    return static_cast<unsigned char>(bytes[index]);
}

bool isWithin(unsigned char byte, unsigned char low, unsigned char high)
{
    return byte >= low && byte <= high;
}

bool hasForm(std::string_view bytes, const Form &form)
{
    return isWithin(byteAt(bytes, 0), form.firstLow, form.firstHigh) && bytes.size() >= form.length &&
           isWithin(byteAt(bytes, 1), form.secondLow, form.secondHigh) &&
           std::ranges::all_of(bytes.substr(2, form.length - 2), [](char byte) {
               return isWithin(static_cast<unsigned char>(byte), 0x80, 0xBF);
           });
}

// Of the character that the bytes begin with; 0 where they begin with none.
std::size_t characterLength(std::string_view bytes)
{
    if (byteAt(bytes, 0) < 0x80) {
        return 1;
    }
    const auto *form = std::ranges::find_if(forms, [bytes](const Form &f) { return hasForm(bytes, f); });
    return form == forms.end() ? 0 : form->length;
}

} // namespace

bool isUtf8(std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto length = characterLength(bytes);
        if (length == 0) {
            return false;
        }
        bytes.remove_prefix(length);
    }
    return true;
}

} // namespace foundation
