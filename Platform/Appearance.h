// How the user wants programs to look: light or dark, the accent colour, the fonts.
#pragma once

#include <QColor>
#include <QObject>
#include <QString>

#include <optional>

namespace platform {

struct AppearanceValues
{
    bool isDark = false;
    std::optional<QColor> accent = {}; // nothing where the desktop names none
    QString fontFamily = {};           // empty where the desktop names none
    QString fixedFontFamily = {};      // empty where the desktop names none
    bool reducesMotion = false;
    bool reducesTransparency = false;

    bool operator==(const AppearanceValues &) const = default;
};

// What the user wants of one program, over what the desktop says.
struct AppearancePreferences
{
    std::optional<bool> isDark = {}; // nothing: as the desktop is
    bool reducesMotion = false;
    bool reducesTransparency = false;
};

// Main thread. Follows the desktop, and what the program prefers over it, for as long as it lives.
class Appearance : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] const AppearanceValues &values() const { return values_; }
    // The same without what the program prefers: what surrounds its windows looks so.
    [[nodiscard]] const AppearanceValues &desktopValues() const { return desktop_; }

    // Waits until the desktop's first answer has come or is overdue, at most 0.1 s after construction: a
    // first frame in the wrong appearance would flash.
    virtual void awaitFirstAnswer() {}

    // In place of what was preferred before. Other programs do not notice.
    void prefer(const AppearancePreferences &preferences);

Q_SIGNALS:
    // After values() changed.
    void changed();
    // After desktopValues() changed.
    void desktopChanged();

protected:
    // What the desktop says.
    void setValues(const AppearanceValues &values);

private:
    void update();

    AppearanceValues desktop_;
    AppearancePreferences preferences_;
    AppearanceValues values_;
};

} // namespace platform
