// Storage in the test's hands: kept in memory, and failing on command. Any thread.
#pragma once

#include "Platform/StorageServices.h"

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace fakes {

// What one domain holds, whoever opened it.
struct FakeDefaults
{
    std::mutex mutex;
    std::map<std::string, platform::PropertyValue, std::less<>> values;
    std::atomic<bool> isReadable = true;
    std::atomic<bool> isWritable = true;
};

class FakeDefaultsStore final : public platform::DefaultsStore
{
public:
    explicit FakeDefaultsStore(std::shared_ptr<FakeDefaults> defaults)
        : defaults_(std::move(defaults))
    {}

    std::optional<platform::PropertyValue> value(std::string_view key) override;
    bool setValue(std::string_view key, const platform::PropertyValue &value) override;
    bool remove(std::string_view key) override;

private:
    std::shared_ptr<FakeDefaults> defaults_;
};

class FakeSecretStore final : public platform::SecretStore
{
public:
    bool save(std::string_view secret, std::string_view account, std::string_view service) override;
    std::optional<platform::SecretText> read(std::string_view account, std::string_view service) override;
    bool remove(std::string_view account, std::string_view service) override;

    std::atomic<bool> isAvailable = true;

private:
    using Name = std::pair<std::string, std::string>;

    [[nodiscard]] bool isPossible(const Name &name) const;

    std::mutex mutex_;
    std::map<Name, std::string> secrets_;
};

class FakeStorage final : public platform::StorageServices
{
public:
    std::unique_ptr<platform::DefaultsStore> openApplicationDefaults() override;
    std::unique_ptr<platform::DefaultsStore> openSuite(std::string_view name) override;
    FakeSecretStore &secrets() override { return secrets_; }

    // Of the application; and of a suite, which it makes where it is not there yet.
    [[nodiscard]] FakeDefaults &applicationDefaults() { return *applicationDefaults_; }
    [[nodiscard]] FakeDefaults &suite(const std::string &name) { return *sharedSuite(name); }

    std::atomic<bool> refusesSuites = false;

private:
    [[nodiscard]] std::shared_ptr<FakeDefaults> sharedSuite(const std::string &name);

    std::mutex mutex_;
    std::shared_ptr<FakeDefaults> applicationDefaults_ = std::make_shared<FakeDefaults>();
    std::map<std::string, std::shared_ptr<FakeDefaults>> suites_;
    FakeSecretStore secrets_;
};

} // namespace fakes
