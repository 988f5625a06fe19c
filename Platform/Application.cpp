#include "Platform/Application.h"

#include "Platform/Platform.h"

#include <QGuiApplication>

namespace platform {

namespace {

void nameApplication(const ApplicationNames &names)
{
    QGuiApplication::setApplicationName(names.name);
    QGuiApplication::setApplicationDisplayName(names.displayName);
    QGuiApplication::setDesktopFileName(names.desktopEntry);
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

int run(Platform &platform, const std::function<std::unique_ptr<ApplicationDelegate>()> &makeDelegate)
{
    auto &link = platform.applicationLink();
    bool isEnding = false; // before the main loop runs nobody would hear a quit
    QObject::connect(&link, &ApplicationLink::quitRequested, &link, [&isEnding] { isEnding = true; });
    if (!link.claim()) {
        return 0;
    }
    static_cast<void>(platform.appearance()); // what it asks the desktop is answered while the views are read
    const auto delegate = makeDelegate();
    const QObject lifeOfTheDelegate;
    QObject::connect(&link, &ApplicationLink::reopenRequested, &lifeOfTheDelegate,
                     [&delegate](const QString &token) { delegate->applicationReopened(token); });
    delegate->applicationDidFinishLaunching();
    QObject::connect(&link, &ApplicationLink::quitRequested, qApp, &QGuiApplication::quit);
    return isEnding ? 0 : QGuiApplication::exec();
}

} // namespace

int runApplication(int argc, char **argv, const ApplicationNames &names,
                   const std::function<std::unique_ptr<ApplicationDelegate>()> &makeDelegate)
{
    prepareProcess();
    nameApplication(names);
    const QGuiApplication application(argc, argv);
    const auto platform = makeNativePlatform();
    const PlatformInstallation installation(*platform);
    return run(*platform, makeDelegate);
}

} // namespace platform
