#include "Tests/Fakes/FakeStorage.h"

#include "Foundation/Utf8.h"
#include "Platform/PropertyValueCoding.h"

namespace fakes {

std::optional<platform::PropertyValue> FakeDefaultsStore::value(std::string_view key)
{
    const std::scoped_lock lock(defaults_->mutex);
    const auto found = defaults_->values.find(key);
    if (!defaults_->isReadable || found == defaults_->values.end()) {
        return std::nullopt;
    }
    return found->second;
}

bool FakeDefaultsStore::setValue(std::string_view key, const platform::PropertyValue &value)
{
    const std::scoped_lock lock(defaults_->mutex);
    if (!defaults_->isWritable || !foundation::isUtf8(key) || !platform::encodedPropertyValue(value)) {
        return false;
    }
    defaults_->values.insert_or_assign(std::string(key), value);
    return true;
}

bool FakeDefaultsStore::remove(std::string_view key)
{
    const std::scoped_lock lock(defaults_->mutex);
    if (!defaults_->isWritable) {
        return false;
    }
    defaults_->values.erase(std::string(key));
    return true;
}

bool FakeSecretStore::isPossible(const Name &name) const
{
    const auto isText = [](const std::string &text) {
        return foundation::isUtf8(text) && text.find('\0') == std::string::npos;
    };
    return isAvailable && isText(name.first) && isText(name.second);
}

bool FakeSecretStore::save(std::string_view secret, std::string_view account, std::string_view service)
{
    const std::scoped_lock lock(mutex_);
    const Name name(account, service);
    if (!isPossible(name)) {
        return false;
    }
    secrets_.insert_or_assign(name, std::string(secret));
    return true;
}

std::optional<platform::SecretText> FakeSecretStore::read(std::string_view account, std::string_view service)
{
    const std::scoped_lock lock(mutex_);
    const auto found = secrets_.find(Name(account, service));
    return isAvailable && found != secrets_.end() ? std::optional<platform::SecretText>(found->second)
                                                  : std::nullopt;
}

bool FakeSecretStore::remove(std::string_view account, std::string_view service)
{
    const std::scoped_lock lock(mutex_);
    return isAvailable && secrets_.erase(Name(account, service)) > 0;
}

std::unique_ptr<platform::DefaultsStore> FakeStorage::openApplicationDefaults()
{
    return std::make_unique<FakeDefaultsStore>(applicationDefaults_);
}

std::unique_ptr<platform::DefaultsStore> FakeStorage::openSuite(std::string_view name)
{
    if (refusesSuites) {
        return nullptr;
    }
    return std::make_unique<FakeDefaultsStore>(sharedSuite(std::string(name)));
}

std::shared_ptr<FakeDefaults> FakeStorage::sharedSuite(const std::string &name)
{
    const std::scoped_lock lock(mutex_);
    auto &suite = suites_[name];
    if (!suite) {
        suite = std::make_shared<FakeDefaults>();
    }
    return suite;
}

} // namespace fakes
