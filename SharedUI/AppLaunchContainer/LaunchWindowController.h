// Opens the one main window of an application of the family, and shows it again.
#pragma once

#include <QObject>
#include <QSize>
#include <QString>

#include <functional>
#include <memory>

class QQmlEngine;
class QQuickItem;
class QWindow;

namespace sharedcore {
class StorageManager;
}

namespace sharedui {

class FrameAutosave;
class LaunchWindow;

// One window for life: once it was presented it keeps its title, its content and its state, also while it is
// closed. Its frame is remembered from one run to the next, in the application's defaults under the
// application's name followed by ".mainWindow" (FrameAutosave.h).
//
// Main thread; a call of present(), presentDeferred() or bringToFront() on another one ends the process.
// REQUIRES: a platform is installed.
class LaunchWindowController : public QObject
{
    Q_OBJECT

public:
    // Makes the root view; the engine lives as long as the window. qmlView() gives one for a QML type.
    using RootBuilder = std::function<std::unique_ptr<QQuickItem>(QQmlEngine &engine)>;

    static constexpr QSize defaultSize{480, 680}; // of the content, in points

    // The one instance, made at its first use.
    [[nodiscard]] static LaunchWindowController &shared();
    // Ends it with its window, if there is one. For the end of a program, while the platform is there.
    static void endShared();

    LaunchWindowController(const LaunchWindowController &) = delete;
    LaunchWindowController &operator=(const LaunchWindowController &) = delete;
    ~LaunchWindowController() override;

    // Makes the application a regular one, activates it, and shows the window in front with the focus. The
    // first call makes the window, with the name as its title, and calls `root`, once; where that gives
    // nothing the window is empty. It has the remembered frame, else the size, in the middle of the screen;
    // never less than 380 × 520 points nor than the root's own minimum (LaunchWindow.h). Later calls show
    // that same window as it is, and ignore what they are given.
    void present(const QString &appName, QSize idealSize, const RootBuilder &root);
    void present(const QString &appName, const RootBuilder &root) { present(appName, defaultSize, root); }

    // Returns at once; present() follows on a later turn of the main loop, unless the controller has ended
    // by then.
    void presentDeferred(const QString &appName, QSize idealSize, const RootBuilder &root);
    void presentDeferred(const QString &appName, const RootBuilder &root)
    {
        presentDeferred(appName, defaultSize, root);
    }

    // Activates the application and, where a window was presented, shows it in front with the focus. The
    // token is what the user's act in another program gave for it (ApplicationDelegate's reopening).
    void bringToFront(const QString &activationToken = {});

    // The window is about to close. Does nothing, on purpose: the closed window stays with its content and
    // state, and the application stays a regular one.
    void windowWillClose(QWindow &window);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    explicit LaunchWindowController(sharedcore::StorageManager &storage);

private:
    void makeWindow(const QString &appName, QSize idealSize, const RootBuilder &root);

    sharedcore::StorageManager &storage_;
    std::unique_ptr<QQmlEngine> engine_;
    std::unique_ptr<LaunchWindow> window_;
    std::unique_ptr<FrameAutosave> autosave_;
};

} // namespace sharedui
