// What keeps things on a Linux desktop.
#include "Platform/Linux/Defaults/DefaultsFile.h"
#include "Platform/Linux/Defaults/SqliteDefaultsStore.h"
#include "Platform/Linux/Secrets/SecretServiceStore.h"
#include "Platform/StorageServices.h"

namespace platform {

namespace {

// The user has no place where files could be kept.
class NoDefaultsStore final : public DefaultsStore
{
public:
    std::optional<PropertyValue> value(std::string_view /*key*/) override { return std::nullopt; }
    bool setValue(std::string_view /*key*/, const PropertyValue & /*value*/) override { return false; }
    bool remove(std::string_view /*key*/) override { return false; }
};

std::unique_ptr<DefaultsStore> openDomain(std::string_view name)
{
    auto file = defaultsFile(name);
    if (file.empty()) {
        return std::make_unique<NoDefaultsStore>();
    }
    return std::make_unique<SqliteDefaultsStore>(std::move(file));
}

class LinuxStorage final : public StorageServices
{
public:
    std::unique_ptr<DefaultsStore> openApplicationDefaults() override
    {
        return openDomain(applicationDomain());
    }

    std::unique_ptr<DefaultsStore> openSuite(std::string_view name) override
    {
        return isDomainName(name) && name != applicationDomain() ? openDomain(name) : nullptr;
    }

    SecretStore &secrets() override { return secrets_; }

private:
    SecretServiceStore secrets_;
};

} // namespace

std::unique_ptr<StorageServices> makeNativeStorage()
{
    return std::make_unique<LinuxStorage>();
}

} // namespace platform
