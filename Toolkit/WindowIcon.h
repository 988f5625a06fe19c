// The application's icon for its window.
#pragma once

#include <QIcon>
#include <QString>

class QQuickWindow;

namespace toolkit {

// Drawn from an SVG file, the one that the desktop shows for the application. Main thread.
[[nodiscard]] QIcon windowIcon(const QString &drawing);

// Gives the window that icon, for programs that run without being installed; it is not worth a delay of the
// first frame. Main thread.
void setIconAfterFirstFrame(QQuickWindow &window, const QString &drawing);

} // namespace toolkit
