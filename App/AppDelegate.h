// Builds the main window at launch and brings it back on reopen.
#pragma once

#include "Platform/Application.h"

#include <QObject>
#include <QString>

#include <memory>

class QQmlComponent;
class QQuickView;

namespace stirra {

// Main thread. Closing the window ends neither the process nor an active engine: the window and all that is
// in it live as long as the delegate.
class AppDelegate : public QObject, public platform::ApplicationDelegate
{
    Q_OBJECT

public:
    // Begins to read the views, on a thread of Qt's own.
    explicit AppDelegate(QObject *parent = nullptr);
    ~AppDelegate() override;

    // Builds the window and shows it. Once per launch.
    void applicationDidFinishLaunching() override;

    // Shows the window again where no window is visible, and leaves it as it is where one is. Always true:
    // the desktop's own handling follows, which is to bring a visible window to the front.
    bool applicationShouldHandleReopen(bool hasVisibleWindows, const QString &activationToken);

    // What the desktop does by itself when an application is opened again: its window comes to the front.
    void applicationReopened(const QString &activationToken) override;

    [[nodiscard]] QQuickView *mainWindow() const { return mainWindow_.get(); }

private:
    std::unique_ptr<QQuickView> preparedWindow_; // until the launch
    QQmlComponent *mainView_ = nullptr;          // owned by its window
    std::unique_ptr<QQuickView> mainWindow_;
};

} // namespace stirra
