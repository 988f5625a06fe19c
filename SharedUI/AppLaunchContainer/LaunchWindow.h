// The window that hosts a root view.
#pragma once

#include "Toolkit/SystemStyle.h"

#include <QQuickWindow>

#include <memory>

namespace sharedui {

// Titled, closable, resizable, in the desktop's background colour. The root fills it. It is never smaller
// than 380 × 520 points, nor than the root's properties `minimumWidth` and `minimumHeight` where it has them;
// they are followed. The desktop's keys for closing a window and quitting a program work where no view takes
// them. Closed, it stays as it is, and can be shown again. Main thread.
class LaunchWindow final : public QQuickWindow
{
    Q_OBJECT

public:
    // Without a root it is empty.
    explicit LaunchWindow(std::unique_ptr<QQuickItem> root);
    ~LaunchWindow() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private Q_SLOTS:
    void updateMinimumSize();

private:
    void followMinimum(const char *property);
    [[nodiscard]] int rootMinimum(const char *property) const;

    toolkit::SystemStyle style_;
    std::unique_ptr<QQuickItem> root_;
};

} // namespace sharedui
