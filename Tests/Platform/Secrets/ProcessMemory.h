// What lies in the memory of this process.
#pragma once

#include <string>
#include <string_view>

namespace platform {

// A text that is kept in another form, so that looking for it does not find this.
class MaskedText
{
public:
    // Of two parts, so that it is not in the program as it stands either.
    MaskedText(std::string_view first, std::string_view second);

    [[nodiscard]] std::string plain() const;
    // To where there is room for it.
    void writePlain(char *memory) const;
    [[nodiscard]] std::size_t size() const { return masked_.size(); }

private:
    std::string masked_;
};

// How often it lies in the memory that the process can write and shares with nobody.
[[nodiscard]] int countInMemory(const MaskedText &text);

// Overwrites it.
void clear(std::string &text);

} // namespace platform
