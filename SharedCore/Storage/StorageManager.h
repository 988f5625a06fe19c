// The one gateway to what lasts: the application's defaults, the family's shared ones, and the keychain.
#pragma once

#include "Platform/StorageServices.h"
#include "SharedCore/Storage/Encodable.h"
#include "SharedCore/Storage/Identifiers.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace sharedcore {

// Any thread; adds no lock to those of the services. Throws nothing, logs nothing: what cannot be written is
// dropped and leaves what was stored, and what cannot be read is nothing, so that callers fall back to their
// defaults. A call may wait for the disk, and some seconds for other programs; one of the keychain as long as
// the user takes to answer, where there is a user to ask.
//
// Keys and texts are UTF-8. A class that overrides one of several operations of a name brings the others back
// with `using StorageManager::set;` and `using StorageManager::get;`.
class StorageManager
{
public:
    // The one instance, made at its first use with the services that are current then.
    [[nodiscard]] static StorageManager &shared();

    StorageManager(const StorageManager &) = delete;
    StorageManager &operator=(const StorageManager &) = delete;
    virtual ~StorageManager();

    // Stores the JSON of a value as data. A value without JSON (a NaN in it, a text that is not UTF-8) is
    // dropped.
    virtual void set(const Encodable &value, std::string_view key);
    // True: `into` holds the value that the data under the key is the JSON of. False: there is no data, or
    // it is of another value.
    [[nodiscard]] virtual bool get(Decodable &into, std::string_view key);
    // Stores a plain value as it is; an absent one removes the key.
    virtual void set(const std::optional<platform::PropertyValue> &value, std::string_view key);
    // The plain value as it is stored.
    [[nodiscard]] virtual std::optional<platform::PropertyValue> get(std::string_view key);
    virtual void remove(std::string_view key);

    // Keeps a short secret text, in place of any before. True where it is kept.
    virtual bool saveToKeychain(std::string_view value, std::string_view account,
                                std::string_view service = familyIdentifier);
    // Nothing where there is none, and where it is not UTF-8.
    [[nodiscard]] virtual std::optional<std::string>
    readFromKeychain(std::string_view account, std::string_view service = familyIdentifier);
    // True where there was one and it is gone.
    virtual bool deleteFromKeychain(std::string_view account, std::string_view service = familyIdentifier);

    // The family's shared defaults: a new object at each call, on the same values. Nothing where the system
    // refuses them.
    [[nodiscard]] virtual std::unique_ptr<platform::DefaultsStore> sharedDefaults();

    // The operations on encodable values, for any such type. A text, a number or a Boolean is stored as JSON
    // too; platform::PropertyValue(...) around it makes it a plain value.
    template <Codable Value> void set(const Value &value, std::string_view key)
    {
        const EncodableReference<Value> reference(value);
        set(static_cast<const Encodable &>(reference), key);
    }
    template <Codable Value> [[nodiscard]] std::optional<Value> get(std::string_view key)
    {
        DecodableValue<Value> decoded;
        return get(decoded, key) ? std::optional(std::move(decoded.value)) : std::nullopt;
    }
    // Which of the two it means is for the caller to say: std::string or platform::PropertyValue.
    void set(const char *text, std::string_view key) = delete;

protected:
    explicit StorageManager(platform::StorageServices &services);

private:
    platform::StorageServices &services_;
    const std::unique_ptr<platform::DefaultsStore> defaults_;
};

} // namespace sharedcore
