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
    std::optional<QColor> accent; // nothing where the desktop names none
    QString fontFamily;           // empty where the desktop names none
    QString fixedFontFamily;      // empty where the desktop names none

    bool operator==(const AppearanceValues &) const = default;
};

// Main thread. Follows the desktop for as long as it lives.
class Appearance : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] const AppearanceValues &values() const { return values_; }

    // Waits until the desktop's first answer has come or is overdue, at most 0.1 s after construction: a
    // first frame in the wrong appearance would flash.
    virtual void awaitFirstAnswer() {}

Q_SIGNALS:
    // After values() changed.
    void changed();

protected:
    void setValues(const AppearanceValues &values);

private:
    AppearanceValues values_;
};

} // namespace platform
