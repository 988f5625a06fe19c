// Secrets in the desktop's keyring.
#pragma once

#include "Platform/SecretStore.h"

#include <mutex>

namespace platform {

// An item has the attributes account and service and no others, so every program that looks for these finds
// it. It goes to the keyring that the user has made the default one. Nothing is connected before the first
// call; a service that went away is looked for again at each.
class SecretServiceStore final : public SecretStore
{
public:
    bool save(std::string_view secret, std::string_view account, std::string_view service) override;
    std::optional<SecretText> read(std::string_view account, std::string_view service) override;
    bool remove(std::string_view account, std::string_view service) override;

private:
    std::mutex mutex_;
};

} // namespace platform
