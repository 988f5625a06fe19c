// A heart in the panel that beats, and nothing else. The argument is its beats a minute.

#include "Platform/MenuBarServices.h"
#include "Platform/Platform.h"
#include "SharedCore/MenuBarManager/AnimatedStatusIcon.h"
#include "SharedCore/MenuBarManager/MenuBarManager.h"

#include <QGuiApplication>

int main(int argc, char **argv)
{
    platform::prepareProcess();
    const QGuiApplication application(argc, argv);
    const auto native = platform::makeNativePlatform();
    const platform::PlatformInstallation installation(*native);
    const double bpm = QGuiApplication::arguments().value(1).toDouble();

    auto item = platform::MenuBarServices::current().makeStatusItem({"org.stirra.Heart", "Heart"});
    sharedcore::AnimatedStatusIcon icon;
    icon.startAnimation(item, sharedcore::generateHeartFrames(), bpm);
    const int status = QGuiApplication::exec();
    icon.stopAnimation();
    return status;
}
