// The service that keeps short secrets for the user.
#pragma once

#include "Platform/SecretText.h"

#include <optional>
#include <string_view>

namespace platform {

// A secret is named by an account and a service, both UTF-8 without U+0000, and by nothing else; one whose
// names are anything else is never found nor kept. Any thread, one call at a time; others wait. A service
// that is absent, locked or refuses makes a call fail: within 2 s where nobody can be asked, and otherwise
// when the user has answered. Nothing secret is kept anywhere else, and memory that held a secret is cleared.
class SecretStore
{
public:
    SecretStore() = default;
    SecretStore(const SecretStore &) = delete;
    SecretStore &operator=(const SecretStore &) = delete;
    virtual ~SecretStore() = default;

    // True: the secret is kept, in place of any before. The bytes may be any.
    virtual bool save(std::string_view secret, std::string_view account, std::string_view service) = 0;

    // Nothing where there is none, or it cannot be read now.
    [[nodiscard]] virtual std::optional<SecretText> read(std::string_view account,
                                                         std::string_view service) = 0;

    // True: there was one, and it is gone. False: there was none, or it is still there.
    virtual bool remove(std::string_view account, std::string_view service) = 0;
};

} // namespace platform
