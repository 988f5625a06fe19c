#include "Tests/Support/Xorg/PrivateXorg.h"

#include "Tests/Support/Eventually.h"

#include <QFile>

namespace testsupport {

namespace {

// %1 to %3 are the sockets of the devices.
constexpr auto configuration = R"(
Section "ServerFlags"
  Option "AutoAddDevices" "off"
  Option "AutoAddGPU" "off"
  Option "DontVTSwitch" "on"
EndSection
Section "Files"
  FontPath "built-ins"
EndSection
Section "Device"
  Identifier "card"
  Driver "dummy"
EndSection
Section "Monitor"
  Identifier "monitor"
  HorizSync 5-1000
  VertRefresh 5-200
EndSection
Section "Screen"
  Identifier "screen"
  Device "card"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Modes "1280x800"
  EndSubSection
EndSection
Section "InputDevice"
  Identifier "mouse"
  Driver "inputtest"
  Option "SocketPath" "%1"
  Option "DeviceType" "Pointer"
EndSection
Section "InputDevice"
  Identifier "second mouse"
  Driver "inputtest"
  Option "SocketPath" "%2"
  Option "DeviceType" "Pointer"
EndSection
Section "InputDevice"
  Identifier "keyboard"
  Driver "inputtest"
  Option "SocketPath" "%3"
  Option "DeviceType" "Keyboard"
EndSection
Section "ServerLayout"
  Identifier "layout"
  Screen "screen"
  InputDevice "mouse" "CorePointer"
  InputDevice "second mouse"
  InputDevice "keyboard" "CoreKeyboard"
EndSection
)";

QString configurationFor(const PrivateRuntime &runtime)
{
    return QString::fromLatin1(configuration)
        .arg(runtime.path(QStringLiteral("mouse")), runtime.path(QStringLiteral("mouse2")),
             runtime.path(QStringLiteral("keyboard")));
}

QString writeConfiguration(const PrivateRuntime &runtime)
{
    QFile file(runtime.path(QStringLiteral("xorg.conf")));
    if (file.open(QIODevice::WriteOnly)) {
        file.write(configurationFor(runtime).toUtf8());
    }
    return file.fileName();
}

QStringList serverArguments(const PrivateRuntime &runtime)
{
    return {QStringLiteral("-displayfd"), QStringLiteral("1"),
            // A seat that is not the machine's first has no console to take over.
            QStringLiteral("-seat"), QStringLiteral("stirra-tests"),
            // The machine's own configuration folder is passed over for an empty one.
            QStringLiteral("-config"), writeConfiguration(runtime), QStringLiteral("-configdir"),
            runtime.path(QStringLiteral("config")), QStringLiteral("-logfile"),
            runtime.path(QStringLiteral("xorg.log")), QStringLiteral("-nolisten"), QStringLiteral("tcp"),
            QStringLiteral("-noreset")};
}

} // namespace

PrivateXorg::PrivateXorg(PrivateRuntime &runtime)
{
    start(runtime);
    if (!display_.isEmpty()) {
        runtime.environment().insert(QStringLiteral("DISPLAY"), display_);
        mouse_.emplace(runtime.path(QStringLiteral("mouse")));
        secondMouse_.emplace(runtime.path(QStringLiteral("mouse2")));
        keyboard_.emplace(runtime.path(QStringLiteral("keyboard")));
    }
}

void PrivateXorg::start(PrivateRuntime &runtime)
{
    process_ = std::make_unique<ChildProcess>(QStringLiteral("Xorg"), serverArguments(runtime),
                                              runtime.environment());
    static_cast<void>(
        eventually([this] { return process_->standardOutput().endsWith('\n') || !process_->isRunning(); },
                   std::chrono::seconds(30)));
    const auto number = process_->standardOutput().trimmed();
    if (!number.isEmpty()) {
        display_ = QLatin1Char(':') + QString::fromLatin1(number);
    }
}

bool PrivateXorg::isOpen() const
{
    return mouse_ && mouse_->isOpen() && secondMouse_->isOpen() && keyboard_->isOpen();
}

} // namespace testsupport
