#include "Platform/Linux/LinuxPlatform.h"

#include "Platform/Linux/InputPosters.h"
#include "Platform/Linux/LaunchEnvironment.h"
#include "Platform/Linux/Portal/PortalAppearance.h"
#include "Platform/Linux/Session/ApplicationLinks.h"
#include "Platform/Linux/Wayland/WaylandWindow.h"
#include "Platform/Linux/X11/XWindowPresenter.h"

#include <QGuiApplication>
#include <QWindow>

#include <utility>

namespace platform {

namespace {

// In the order in which they were shown first; pop-ups follow their window by themselves.
QWindowList visibleWindows()
{
    auto windows = QGuiApplication::topLevelWindows();
    windows.removeIf([](const QWindow *window) {
        return !window->isVisible() || window->transientParent() ||
               window->windowStates() & Qt::WindowMinimized;
    });
    return windows;
}

} // namespace

LinuxPlatform::~LinuxPlatform()
{
    awaitFontConfiguration();
}

InputPoster &LinuxPlatform::inputPoster()
{
    if (!inputPoster_) {
        inputPoster_.emplace(inputPosterCandidates());
    }
    return *inputPoster_;
}

Appearance &LinuxPlatform::appearance()
{
    if (!appearance_) {
        appearance_ = std::make_unique<PortalAppearance>();
    }
    return *appearance_;
}

ApplicationLink &LinuxPlatform::applicationLink()
{
    if (!applicationLink_) {
        applicationLink_ = makeApplicationLink(launchToken());
        terminationSignals_ = std::make_unique<TerminationSignals>();
        QObject::connect(terminationSignals_.get(), &TerminationSignals::received, applicationLink_.get(),
                         &ApplicationLink::quitRequested);
    }
    return *applicationLink_;
}

void LinuxPlatform::present(QWindow &window, const QString &activationToken)
{
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    activateWindow(window, activationToken);
    activateXWindow(window, activationToken);
}

void LinuxPlatform::activate()
{
    auto windows = visibleWindows();
    for (auto *window : windows) {
        window->raise();
    }
    if (!windows.isEmpty() && !QGuiApplication::focusWindow()) {
        activateWindow(*windows.last(), {});
    }
}

void LinuxPlatform::setActivationPolicy(ActivationPolicy policy)
{
    if (std::exchange(activationPolicy_, policy) == policy) {
        return;
    }
    const bool isListed = policy == ActivationPolicy::regular;
    for (auto *window : visibleWindows()) {
        listXWindow(*window, isListed);
    }
    unlistedWindows_ = isListed ? nullptr : std::make_unique<XUnlistedWindows>();
}

bool LinuxPlatform::placesWindows()
{
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

std::unique_ptr<Platform> makeNativePlatform()
{
    return std::make_unique<LinuxPlatform>();
}

} // namespace platform
