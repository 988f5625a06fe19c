#include "Tests/Support/Wayland/PrivateSway.h"

#include "Tests/Support/Eventually.h"

#include <QDir>
#include <QFile>

#include <pwd.h>
#include <unistd.h>

namespace testsupport {

namespace {

constexpr std::chrono::seconds startTime(30);

constexpr auto configuration = "xwayland disable\n"
                               "focus_follows_mouse no\n"
                               "default_border none\n"
                               "output HEADLESS-1 resolution 1280x800\n";

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(content);
    }
}

// To root the folder stays open all the same.
void giveTo(const passwd &user, const QString &path)
{
    static_cast<void>(chown(QFile::encodeName(path).constData(), user.pw_uid, user.pw_gid));
}

QString socketIn(const QString &folder, const QString &pattern)
{
    const auto names = QDir(folder).entryList({pattern}, QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    return names.isEmpty() ? QString() : folder + QLatin1Char('/') + names.first();
}

} // namespace

PrivateSway::PrivateSway(PrivateRuntime &runtime, const QByteArray &furtherConfiguration)
    : folder_(QStringLiteral("/tmp/stirra-sway-XXXXXX"))
{
    writeFile(folder_.filePath(QStringLiteral("config")), configuration + furtherConfiguration);
    if (const auto *nobody = geteuid() == 0 ? getpwnam("nobody") : nullptr) {
        giveTo(*nobody, folder_.path());
        giveTo(*nobody, folder_.filePath(QStringLiteral("config")));
    }
    auto line = commandLine();
    const auto program = line.takeFirst();
    process_ = std::make_unique<ChildProcess>(program, line, environmentFor(runtime));
    static_cast<void>(eventually(
        [this] {
            const bool isUp = !socketIn(folder_.path(), QStringLiteral("sway-ipc.*.sock")).isEmpty() &&
                              command(QStringLiteral("nop"));
            display_ = isUp ? socketIn(folder_.path(), QStringLiteral("wayland-?")) : QString();
            return isOpen() || !process_->isRunning();
        },
        startTime));
    runtime.environment().insert(QStringLiteral("WAYLAND_DISPLAY"), display_);
    runtime.environment().insert(QStringLiteral("STIRRA_INPUT_BACKEND"), QStringLiteral("wlroots"));
}

QStringList PrivateSway::commandLine() const
{
    const QStringList sway{QStringLiteral("sway"), QStringLiteral("-c"),
                           folder_.filePath(QStringLiteral("config"))};
    const QStringList asNobody{QStringLiteral("setpriv"), QStringLiteral("--reuid=nobody"),
                               QStringLiteral("--regid=nogroup"), QStringLiteral("--clear-groups"),
                               QStringLiteral("--pdeathsig=TERM")};
    return geteuid() == 0 ? asNobody + sway : sway;
}

QProcessEnvironment PrivateSway::environmentFor(const PrivateRuntime &runtime) const
{
    auto environment = runtime.environment();
    for (const auto *variable : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME",
                                 "XDG_CACHE_HOME", "XDG_STATE_HOME"}) {
        environment.insert(QString::fromLatin1(variable), folder_.path());
    }
    for (const auto *variable : {"DISPLAY", "WAYLAND_DISPLAY", "SWAYSOCK"}) {
        environment.remove(QString::fromLatin1(variable));
    }
    environment.insert(QStringLiteral("WLR_BACKENDS"), QStringLiteral("headless"));
    environment.insert(QStringLiteral("WLR_RENDERER"), QStringLiteral("pixman"));
    environment.insert(QStringLiteral("WLR_LIBINPUT_NO_DEVICES"), QStringLiteral("1"));
    return environment;
}

bool PrivateSway::command(const QString &words) const
{
    ChildProcess message(
        QStringLiteral("swaymsg"),
        {QStringLiteral("-s"), socketIn(folder_.path(), QStringLiteral("sway-ipc.*.sock")), words},
        QProcessEnvironment::systemEnvironment());
    return message.waitForExit() == 0;
}

bool PrivateSway::putPointer(int x, int y) const
{
    return command(QStringLiteral("seat seat0 cursor set %1 %2").arg(x).arg(y));
}

} // namespace testsupport
