// The preferences record as the settings form edits it.
#pragma once

#include "SharedCore/Storage/AppPreferences.h"

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

namespace sharedui {

// Two-way properties over one record. Writing one writes that field, and then stores the whole record, with
// what it holds besides, before the call returns; what cannot be stored leaves the stored record as it was
// and the property as it was written. Main thread.
class PreferencesForm : public QObject
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool launchAtLogin READ launchAtLogin WRITE setLaunchAtLogin NOTIFY changed)
    Q_PROPERTY(bool showMenuBarIcon READ showMenuBarIcon WRITE setShowMenuBarIcon NOTIFY changed)
    // The raw text of the theme: "system", "light" or "dark". Any other text is ignored.
    Q_PROPERTY(QString theme READ theme WRITE setTheme NOTIFY changed)
    Q_PROPERTY(bool reduceMotion READ reduceMotion WRITE setReduceMotion NOTIFY changed)
    Q_PROPERTY(bool reduceTransparency READ reduceTransparency WRITE setReduceTransparency NOTIFY changed)

public:
    using QObject::QObject;

    // Starts anew from the stored record, or from the defaults where there is none that can be read. Before
    // the first call the properties have the defaults.
    Q_INVOKABLE void load();

    [[nodiscard]] bool launchAtLogin() const { return prefs_.launchAtLogin; }
    void setLaunchAtLogin(bool isOn) { write(&Prefs::launchAtLogin, isOn); }
    [[nodiscard]] bool showMenuBarIcon() const { return prefs_.showMenuBarIcon; }
    void setShowMenuBarIcon(bool isOn) { write(&Prefs::showMenuBarIcon, isOn); }
    [[nodiscard]] QString theme() const;
    void setTheme(const QString &rawValue);
    [[nodiscard]] bool reduceMotion() const { return prefs_.reduceMotion; }
    void setReduceMotion(bool isOn) { write(&Prefs::reduceMotion, isOn); }
    [[nodiscard]] bool reduceTransparency() const { return prefs_.reduceTransparency; }
    void setReduceTransparency(bool isOn) { write(&Prefs::reduceTransparency, isOn); }

Q_SIGNALS:
    void changed();
    // After each write was stored, or could not be.
    void preferencesSaved();

private:
    using Prefs = sharedcore::AppPreferences;

    // The writing half of each two-way property.
    template <class Value> void write(Value Prefs::*keyPath, Value value)
    {
        prefs_.*keyPath = value;
        prefs_.save();
        Q_EMIT changed();
        Q_EMIT preferencesSaved();
    }

    Prefs prefs_;
};

} // namespace sharedui
