#include "Platform/Linux/LinuxPlatform.h"

#include "Platform/Linux/InputPosters.h"
#include "Platform/Linux/LaunchEnvironment.h"
#include "Platform/Linux/Portal/PortalAppearance.h"
#include "Platform/Linux/Session/ApplicationLinks.h"
#include "Platform/Linux/Wayland/WaylandWindow.h"
#include "Platform/Linux/X11/XWindowPresenter.h"

#include <QWindow>

namespace platform {

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

std::unique_ptr<Platform> makeNativePlatform()
{
    return std::make_unique<LinuxPlatform>();
}

} // namespace platform
