// Numbers as texts, in the style of printf.
#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

namespace sharedui {

// Formats for exactly one double: text, "%%", and one conversion e, f, g or a (or a capital one) with any
// flags, a width and a precision of up to three digits each. The decimal point is that of the user's locale.
class NumberText : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    // The value in the format; in "%.0f" where that is not for exactly one double. Any thread.
    Q_INVOKABLE [[nodiscard]] static QString formatted(const QString &format, double value);
};

} // namespace sharedui
