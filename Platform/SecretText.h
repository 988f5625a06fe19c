// Text that leaves nothing behind in memory.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace platform {

// Bytes of its own, overwritten before their memory is given back. Can be moved, which copies nothing.
class SecretText
{
public:
    explicit SecretText(std::string_view bytes);
    SecretText(SecretText &&other) noexcept = default;
    SecretText &operator=(SecretText &&other) noexcept = default;
    ~SecretText() = default;

    [[nodiscard]] std::string_view view() const { return {bytes_.get(), bytes_.get_deleter().size}; }

private:
    struct ClearingDelete
    {
        void operator()(char *bytes) const;
        std::size_t size = 0;
    };

    std::unique_ptr<char[], ClearingDelete> bytes_; // NOLINT(modernize-avoid-c-arrays)
};

} // namespace platform
