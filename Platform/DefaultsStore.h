// The service that keeps a program's plain values by key.
#pragma once

#include "Platform/PropertyValue.h"

#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace platform {

// The values of one domain: an application's own, or a suite that several programs share. Any thread; a call
// waits for the disk, and at most some seconds for others. Failure is a value: what could not be written
// leaves what was there, and the next call tries from the start.
//
// Keys are UTF-8 of any length, told apart by their bytes; one that is not UTF-8 is never found nor kept.
class DefaultsStore
{
public:
    DefaultsStore() = default;
    DefaultsStore(const DefaultsStore &) = delete;
    DefaultsStore &operator=(const DefaultsStore &) = delete;
    virtual ~DefaultsStore() = default;

    // The value of the type that it was stored with, whoever stored it last; nothing where there is none, and
    // where it cannot be read now.
    [[nodiscard]] virtual std::optional<PropertyValue> value(std::string_view key) = 0;

    // The same, without a copy of it: the same object at each call, as long as nothing was saved in between.
    [[nodiscard]] virtual std::shared_ptr<const PropertyValue> sharedValue(std::string_view key)
    {
        auto found = value(key);
        return found ? std::make_shared<const PropertyValue>(std::move(*found)) : nullptr;
    }

    // True: the value is on the disk, whole, in place of any before. False: nothing has changed; the store
    // cannot be written now, or the value has no stored form (see PropertyValueCoding.h).
    virtual bool setValue(std::string_view key, const PropertyValue &value) = 0;

    // True: there is no such key now. False: the store cannot be written now.
    virtual bool remove(std::string_view key) = 0;
};

} // namespace platform
