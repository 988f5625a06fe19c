#include "Platform/Linux/X11/XUnlistedWindows.h"

#include "Platform/Linux/X11/XWindowPresenter.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

namespace platform {

XUnlistedWindows::XUnlistedWindows()
{
    qGuiApp->installEventFilter(this);
}

// The toolkit tells a window that it is shown before it maps it.
bool XUnlistedWindows::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show && watched->isWindowType()) {
        const auto *window = qobject_cast<QWindow *>(watched);
        if (window && window->isTopLevel()) {
            unlistHiddenXWindow(*window);
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace platform
