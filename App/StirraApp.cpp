#include "App/StirraApp.h"

#include "App/AppDelegate.h"
#include "Platform/Platform.h"

#include <QGuiApplication>
#include <QQuickView>

namespace stirra {

namespace {

void nameApplication()
{
    QGuiApplication::setApplicationName(QStringLiteral("stirra"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Stirra"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.stirra.Stirra"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

// What the desktop does by itself when an application is opened again: its window comes to the front.
void reopen(AppDelegate &delegate, const QString &activationToken)
{
    auto *window = delegate.mainWindow();
    const bool isVisible = window && window->isVisible() && !(window->windowStates() & Qt::WindowMinimized);
    if (delegate.applicationShouldHandleReopen(isVisible, activationToken) && isVisible) {
        platform::Platform::current().present(*window, activationToken);
    }
}

int run(platform::Platform &platform)
{
    auto &link = platform.applicationLink();
    bool isEnding = false; // before the main loop runs nobody would hear a quit
    QObject::connect(&link, &platform::ApplicationLink::quitRequested, &link,
                     [&isEnding] { isEnding = true; });
    if (!link.claim()) {
        return 0;
    }
    static_cast<void>(platform.appearance()); // what it asks the desktop is answered while the views are read
    AppDelegate delegate;
    QObject::connect(&link, &platform::ApplicationLink::reopenRequested, &delegate,
                     [&delegate](const QString &token) { reopen(delegate, token); });
    delegate.applicationDidFinishLaunching();
    QObject::connect(&link, &platform::ApplicationLink::quitRequested, qApp, &QGuiApplication::quit);
    return isEnding ? 0 : QGuiApplication::exec();
}

} // namespace

int StirraApp::main(int argc, char **argv)
{
    platform::prepareProcess();
    nameApplication();
    const QGuiApplication application(argc, argv);
    const auto platform = platform::makeNativePlatform();
    const platform::PlatformInstallation installation(*platform);
    return run(*platform);
}

} // namespace stirra
