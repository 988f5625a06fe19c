#include "SharedCore/Storage/StorageManager.h"

#include "Foundation/Utf8.h"

namespace sharedcore {

using platform::PropertyValue;

StorageManager &StorageManager::shared()
{
    static StorageManager instance(platform::StorageServices::current());
    return instance;
}

StorageManager::StorageManager(platform::StorageServices &services)
    : services_(services)
    , defaults_(services.openApplicationDefaults())
{}

StorageManager::~StorageManager() = default;

void StorageManager::set(const Encodable &value, std::string_view key)
{
    if (auto bytes = encodedRecord(value)) {
        defaults_->setValue(key, PropertyValue(std::move(*bytes)));
    }
}

bool StorageManager::get(Decodable &into, std::string_view key)
{
    return into.decodeStored(defaults_->sharedValue(key));
}

void StorageManager::set(const std::optional<PropertyValue> &value, std::string_view key)
{
    if (value) {
        defaults_->setValue(key, *value);
    } else {
        defaults_->remove(key);
    }
}

std::optional<PropertyValue> StorageManager::get(std::string_view key)
{
    return defaults_->value(key);
}

void StorageManager::remove(std::string_view key)
{
    defaults_->remove(key);
}

bool StorageManager::saveToKeychain(std::string_view value, std::string_view account,
                                    std::string_view service)
{
    return foundation::isUtf8(value) && services_.secrets().save(value, account, service);
}

std::optional<std::string> StorageManager::readFromKeychain(std::string_view account,
                                                            std::string_view service)
{
    std::optional<std::string> text;
    const auto secret = services_.secrets().read(account, service);
    if (secret && foundation::isUtf8(secret->view())) {
        text.emplace(secret->view());
    }
    return text;
}

bool StorageManager::deleteFromKeychain(std::string_view account, std::string_view service)
{
    return services_.secrets().remove(account, service);
}

std::unique_ptr<platform::DefaultsStore> StorageManager::sharedDefaults()
{
    return services_.openSuite(applicationGroupIdentifier);
}

} // namespace sharedcore
