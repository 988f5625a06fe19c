// Settings records that are stored under a key of their own.
#pragma once

#include "SharedCore/Storage/StorageManager.h"

#include <concepts>
#include <string_view>

namespace sharedcore {

// A record that can be encoded and decoded, with the key that it is stored under, the value that stands in
// where nothing usable is stored, and the two operations.
template <class Settings>
concept AppSettings = Codable<Settings> && std::copyable<Settings> && requires(const Settings &settings)
{
    {
        Settings::settingsKey
        } -> std::convertible_to<std::string_view>;
    {
        Settings::defaultSettings()
        } -> std::same_as<const Settings &>;
    {
        Settings::load()
        } -> std::same_as<Settings>;
    {
        settings.save()
        } -> std::same_as<void>;
};

// What a record's two operations do:
//
//     [[nodiscard]] static Visits load() { return loadSettings<Visits>(); }
//     void save() const { saveSettings(*this); }

// The stored record; the default settings where there is none, or anything of it is not as it should be. Bad
// data stays where it is until the next save.
template <class Settings> [[nodiscard]] Settings loadSettings()
{
    auto stored = StorageManager::shared().get<Settings>(Settings::settingsKey);
    return stored ? std::move(*stored) : Settings::defaultSettings();
}

// Where the record cannot be encoded or written, what was stored stays.
template <class Settings> void saveSettings(const Settings &settings)
{
    StorageManager::shared().set(settings, Settings::settingsKey);
}

} // namespace sharedcore
