// What the user prefers, in every application of the family.
#pragma once

#include "SharedCore/Storage/AppSettings.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace sharedcore {

// A plain value. Nothing in the shared modules acts on it; an application that wants to reads it with load().
// The memberwise initialiser is that of an aggregate: AppPreferences{.theme = AppPreferences::Theme::dark}.
struct AppPreferences
{
    enum class Theme { light, dark, system };

    // The text that the case is stored as.
    [[nodiscard]] static std::string_view rawValue(Theme theme);
    // The case whose text is exactly `rawValue`; nothing for any other text.
    [[nodiscard]] static std::optional<Theme> themeFromRawValue(std::string_view rawValue);

    bool launchAtLogin = false;
    bool showMenuBarIcon = true;
    std::map<std::string, std::string> keyboardShortcuts = {}; // from an action's name to the shortcut's text
    Theme theme = Theme::system;
    bool reduceMotion = false;
    bool reduceTransparency = false;

    static constexpr std::string_view settingsKey = "appPreferences";
    [[nodiscard]] static const AppPreferences &defaultSettings();
    [[nodiscard]] static AppPreferences load() { return loadSettings<AppPreferences>(); }
    void save() const { saveSettings(*this); }

    bool operator==(const AppPreferences &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{Field{"launchAtLogin", &AppPreferences::launchAtLogin},
                          Field{"showMenuBarIcon", &AppPreferences::showMenuBarIcon},
                          Field{"keyboardShortcuts", &AppPreferences::keyboardShortcuts},
                          Field{"theme", &AppPreferences::theme},
                          Field{"reduceMotion", &AppPreferences::reduceMotion},
                          Field{"reduceTransparency", &AppPreferences::reduceTransparency}};
    }
};

template <> struct RawTexts<AppPreferences::Theme>
{
    using Theme = AppPreferences::Theme;
    static constexpr std::array cases{std::pair{Theme::light, std::string_view("light")},
                                      std::pair{Theme::dark, std::string_view("dark")},
                                      std::pair{Theme::system, std::string_view("system")}};
};

static_assert(AppSettings<AppPreferences>);

} // namespace sharedcore
