// A gateway to storage that is in the test's hands.
#pragma once

#include "SharedCore/Storage/StorageManager.h"
#include "Tests/Fakes/FakeStorage.h"

#include <gtest/gtest.h>

namespace sharedcore {

class OwnStorageManager : public StorageManager
{
public:
    explicit OwnStorageManager(platform::StorageServices &services)
        : StorageManager(services)
    {}
};

// The services behind StorageManager::shared(), in memory. They are there before its first use, which is
// within a test; each test finds them empty.
fakes::FakeStorage &sharedStorage();

class StorageTest : public testing::Test
{
protected:
    static platform::Data data(std::string_view text)
    {
        platform::Data bytes;
        for (const char letter : text) {
            bytes.push_back(static_cast<std::byte>(letter));
        }
        return bytes;
    }

    void store(std::string_view key, std::string_view json)
    {
        manager_.set(platform::PropertyValue(data(json)), key);
    }

    // The data under the key, as text; or what says that it is something else.
    [[nodiscard]] std::string stored(std::string_view key)
    {
        const auto value = manager_.get(key);
        const auto *bytes = value ? std::get_if<platform::Data>(&*value) : nullptr;
        if (!bytes) {
            return value ? "(no data)" : "(nothing)";
        }
        std::string text;
        for (const auto byte : *bytes) {
            text += static_cast<char>(byte);
        }
        return text;
    }

    // The value that the JSON is decoded as.
    template <Codable Value> std::optional<Value> decoded(std::string_view json)
    {
        store("decoded", json);
        return manager_.get<Value>("decoded");
    }

    // The JSON that the value is encoded as.
    template <Codable Value> std::string encoded(const Value &value)
    {
        manager_.remove("encoded");
        manager_.set(value, "encoded");
        return stored("encoded");
    }

    fakes::FakeStorage storage_;
    OwnStorageManager manager_{storage_};
};

} // namespace sharedcore
