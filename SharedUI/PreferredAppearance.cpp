#include "SharedUI/PreferredAppearance.h"

#include "Platform/Platform.h"

namespace sharedui {

namespace {

using Theme = sharedcore::AppPreferences::Theme;

std::optional<bool> isDark(Theme theme)
{
    return theme == Theme::system ? std::nullopt : std::optional(theme == Theme::dark);
}

} // namespace

void applyAppearance(const sharedcore::AppPreferences &preferences)
{
    platform::Platform::current().appearance().prefer(
        {.isDark = isDark(preferences.theme),
         .reducesMotion = preferences.reduceMotion,
         .reducesTransparency = preferences.reduceTransparency});
}

PreferredAppearance::PreferredAppearance(QObject *parent)
    : QObject(parent)
{
    apply();
}

void PreferredAppearance::apply()
{
    applyAppearance(sharedcore::AppPreferences::load());
}

} // namespace sharedui
