// Values that can be encoded and decoded, for functions that cannot be templates. Any thread.
#pragma once

#include "SharedCore/Storage/Coding.h"

#include <memory>
#include <optional>
#include <span>

namespace sharedcore {

class Encodable
{
public:
    Encodable() = default;
    Encodable(const Encodable &) = delete;
    Encodable &operator=(const Encodable &) = delete;
    virtual ~Encodable() = default;

    [[nodiscard]] virtual bool encode(Json &json) const = 0;
};

class Decodable
{
public:
    Decodable() = default;
    Decodable(const Decodable &) = delete;
    Decodable &operator=(const Decodable &) = delete;
    virtual ~Decodable() = default;

    [[nodiscard]] virtual bool decode(const Json &json) = 0;

    // Decodes the JSON that the data is; false where it is no data. One that keeps what it made of the same
    // object before need not do it again.
    [[nodiscard]] virtual bool decodeStored(const std::shared_ptr<const platform::PropertyValue> &stored);
};

// REQUIRES: the value outlives it.
template <Codable Value> class EncodableReference final : public Encodable
{
public:
    explicit EncodableReference(const Value &value)
        : value_(value)
    {}

    bool encode(Json &json) const override { return Coding<Value>::encode(value_, json); }

private:
    const Value &value_;
};

// Holds the value that was decoded. Each thread keeps the last one of its type, with the stored object that
// it was made of.
template <Codable Value> class DecodableValue final : public Decodable
{
public:
    bool decode(const Json &json) override { return Coding<Value>::decode(json, value); }

    bool decodeStored(const std::shared_ptr<const platform::PropertyValue> &stored) override
    {
        thread_local Last last;
        if (!stored || stored != last.stored) {
            last.isDecoded = Decodable::decodeStored(stored);
            last.stored = stored;
            last.value = last.isDecoded ? value : Value{};
        } else {
            value = last.value;
        }
        return last.isDecoded;
    }

    Value value{};

private:
    struct Last
    {
        std::shared_ptr<const platform::PropertyValue> stored; // kept, so that no other can have its address
        Value value{};
        bool isDecoded = false;
    };
};

// The bytes of a value's JSON, and back; nothing where it has none, or they are not of such a value.
std::optional<platform::Data> encodedRecord(const Encodable &value);
bool decodeRecord(std::span<const std::byte> bytes, Decodable &into);

} // namespace sharedcore
