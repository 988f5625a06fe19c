#include "SharedCore/Storage/AppPreferences.h"

namespace sharedcore {

std::string_view AppPreferences::rawValue(Theme theme)
{
    return rawText(theme);
}

std::optional<AppPreferences::Theme> AppPreferences::themeFromRawValue(std::string_view rawValue)
{
    return caseOfRawText<Theme>(rawValue);
}

const AppPreferences &AppPreferences::defaultSettings()
{
    static const AppPreferences settings;
    return settings;
}

} // namespace sharedcore
