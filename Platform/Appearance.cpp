#include "Platform/Appearance.h"

namespace platform {

namespace {

AppearanceValues preferred(const AppearancePreferences &preferences, AppearanceValues values)
{
    values.isDark = preferences.isDark.value_or(values.isDark);
    values.reducesMotion = values.reducesMotion || preferences.reducesMotion;
    values.reducesTransparency = values.reducesTransparency || preferences.reducesTransparency;
    return values;
}

} // namespace

void Appearance::setValues(const AppearanceValues &values)
{
    if (values == desktop_) {
        return;
    }
    desktop_ = values;
    Q_EMIT desktopChanged();
    update();
}

void Appearance::prefer(const AppearancePreferences &preferences)
{
    preferences_ = preferences;
    update();
}

void Appearance::update()
{
    auto values = preferred(preferences_, desktop_);
    if (values != values_) {
        values_ = std::move(values);
        Q_EMIT changed();
    }
}

} // namespace platform
