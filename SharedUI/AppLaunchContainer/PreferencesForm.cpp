#include "SharedUI/AppLaunchContainer/PreferencesForm.h"

namespace sharedui {

using sharedcore::AppPreferences;

void PreferencesForm::load()
{
    prefs_ = AppPreferences::load();
    Q_EMIT changed();
}

QString PreferencesForm::theme() const
{
    const auto rawValue = AppPreferences::rawValue(prefs_.theme);
    return QString::fromUtf8(rawValue.data(), static_cast<qsizetype>(rawValue.size()));
}

void PreferencesForm::setTheme(const QString &rawValue)
{
    if (const auto theme = AppPreferences::themeFromRawValue(rawValue.toStdString())) {
        write(&AppPreferences::theme, *theme);
    }
}

} // namespace sharedui
