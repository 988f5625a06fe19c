// The pure functions that the main view computes its texts and symbols with.
#pragma once

#include "App/StirraEngine.h"

#include <QVariantList>

namespace stirra {

// The system symbol name of a mode.
[[nodiscard]] QString modeIcon(StirraEngine::Mode mode);

// "15s" below a minute, else whole minutes, "2m"; what is left over is dropped. A value that is not finite,
// or whose whole part is outside the signed 64-bit range, is a fatal error.
[[nodiscard]] QString formatInterval(double seconds);

// The same for the views. Main thread.
class MainViewText : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    // One object for each mode, in order: mode, name, icon.
    Q_PROPERTY(QVariantList modes READ modes CONSTANT)
    // The intervals to choose from, in seconds.
    Q_PROPERTY(QList<double> intervals READ intervals CONSTANT)

public:
    using QObject::QObject;

    [[nodiscard]] static QVariantList modes();
    [[nodiscard]] static QList<double> intervals();

    Q_INVOKABLE static QString formatInterval(double seconds) { return stirra::formatInterval(seconds); }
};

} // namespace stirra
