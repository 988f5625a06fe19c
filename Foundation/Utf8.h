// Whether bytes are text. Any thread.
#pragma once

#include <string_view>

namespace foundation {

// True where the bytes are well-formed UTF-8 (RFC 3629): no overlong form, no surrogate, nothing above
// U+10FFFF, no sequence cut short. Empty text and U+0000 are well-formed.
bool isUtf8(std::string_view bytes);

} // namespace foundation
