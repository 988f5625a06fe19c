// Windows that are in no list of running programs, on X11.
#pragma once

#include <QObject>

namespace platform {

// While it lives, each window that the program shows is out of task bars and pagers from the start: a list
// that shows it for a moment would flicker. Those that are shown already are listXWindow()'s. Main thread;
// where the toolkit does not run on X11 nothing happens.
class XUnlistedWindows final : public QObject
{
    Q_OBJECT

public:
    XUnlistedWindows();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace platform
