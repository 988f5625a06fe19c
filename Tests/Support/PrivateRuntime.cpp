#include "Tests/Support/PrivateRuntime.h"

#include <QDir>

#include <array>

namespace testsupport {

namespace {

struct Folder
{
    const char *variable;
    const char *name;
};

constexpr std::array folders{
    Folder{"HOME", "home"},          Folder{"XDG_RUNTIME_DIR", "run"},  Folder{"XDG_CONFIG_HOME", "config"},
    Folder{"XDG_DATA_HOME", "data"}, Folder{"XDG_CACHE_HOME", "cache"}, Folder{"XDG_STATE_HOME", "state"},
};

// What would lead a program to the user's session, or make it look and speak as the user's.
constexpr std::array sessionVariables{
    "DISPLAY",
    "XAUTHORITY",
    "WAYLAND_DISPLAY",
    "WAYLAND_SOCKET",
    "DBUS_SESSION_BUS_ADDRESS",
    "DBUS_STARTER_ADDRESS",
    "AT_SPI_BUS_ADDRESS",
    "SESSION_MANAGER",
    "DESKTOP_STARTUP_ID",
    "XDG_ACTIVATION_TOKEN",
    "XDG_CURRENT_DESKTOP",
    "XDG_SESSION_ID",
    "XDG_SESSION_TYPE",
    "DESKTOP_SESSION",
    "XMODIFIERS",
    "LANGUAGE",
    "LANG",
};

bool looksPersonal(const QString &variable)
{
    return variable.startsWith(QLatin1String("QT_")) || variable.startsWith(QLatin1String("QSG_")) ||
           variable.startsWith(QLatin1String("GTK_")) || variable.startsWith(QLatin1String("LC_")) ||
           variable.startsWith(QLatin1String("STIRRA_"));
}

} // namespace

PrivateRuntime::PrivateRuntime()
    : folder_(QStringLiteral("/tmp/stirra-XXXXXX"))
    , environment_(QProcessEnvironment::systemEnvironment())
{
    for (const auto *variable : sessionVariables) {
        environment_.remove(QString::fromLatin1(variable));
    }
    const auto names = environment_.keys();
    for (const auto &variable : names) {
        if (looksPersonal(variable)) {
            environment_.remove(variable);
        }
    }
    for (const auto &folder : folders) {
        const auto path = folder_.filePath(QString::fromLatin1(folder.name));
        QDir().mkpath(path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        environment_.insert(QString::fromLatin1(folder.variable), path);
    }
    environment_.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    // Nothing may reach the input devices of the machine that the tests run on.
    environment_.insert(QStringLiteral("STIRRA_UINPUT_DEVICE"), path(QStringLiteral("no-uinput")));
}

} // namespace testsupport
