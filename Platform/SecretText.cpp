#include "Platform/SecretText.h"

#include <algorithm>

namespace platform {

SecretText::SecretText(std::string_view bytes)
    : bytes_(new char[bytes.size() + 1], ClearingDelete{bytes.size()})
{
    std::ranges::copy(bytes, bytes_.get());
}

void SecretText::ClearingDelete::operator()(char *bytes) const
{
    volatile char *each = bytes; // writes that nobody reads would be left out otherwise
    for (std::size_t index = 0; index < size; ++index) {
        each[index] = 0;
    }
    delete[] bytes;
}

} // namespace platform
