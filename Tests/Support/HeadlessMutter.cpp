#include "Tests/Support/HeadlessMutter.h"

#include "Tests/Support/Eventually.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusReply>

namespace testsupport {

namespace {

constexpr auto socketName = "wayland-test";
constexpr auto remoteDesktop = "org.gnome.Mutter.RemoteDesktop";
constexpr auto remoteDesktopSession = "org.gnome.Mutter.RemoteDesktop.Session";
constexpr auto idleMonitor = "org.gnome.Mutter.IdleMonitor";
constexpr unsigned finishFlag = 1;

QProcessEnvironment withoutDisplays(QProcessEnvironment environment)
{
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    return environment;
}

QStringList arguments()
{
    return {QStringLiteral("--headless"),    QStringLiteral("--wayland"),
            QStringLiteral("--no-x11"),      QStringLiteral("--wayland-display"),
            QString::fromLatin1(socketName), QStringLiteral("--virtual-monitor"),
            QStringLiteral("1280x800")};
}

} // namespace

HeadlessMutter::HeadlessMutter(PrivateRuntime &runtime, const PrivateBus &bus)
    : process_(QStringLiteral("mutter"), arguments(), withoutDisplays(runtime.environment()))
    , bus_(bus.connect())
    , display_(runtime.runtimeFolder() + QLatin1Char('/') + QString::fromLatin1(socketName))
{
    const auto isUp = [this] {
        inputSession_ = openInputSession();
        return !inputSession_.isEmpty() || !process_.isRunning();
    };
    static_cast<void>(eventually(isUp, std::chrono::seconds(30)));
    runtime.environment().insert(QStringLiteral("WAYLAND_DISPLAY"), display_);
}

HeadlessMutter::~HeadlessMutter()
{
    QDBusConnection::disconnectFromBus(bus_.name());
}

QDBusMessage HeadlessMutter::call(const char *name, const QString &path, const char *interface,
                                  const char *method, const QVariantList &arguments) const
{
    auto message = QDBusMessage::createMethodCall(
        QString::fromLatin1(name), path, QString::fromLatin1(interface), QString::fromLatin1(method));
    message.setArguments(arguments);
    return bus_.call(message);
}

QString HeadlessMutter::openInputSession() const
{
    const QDBusReply<QDBusObjectPath> session = call(
        remoteDesktop, QStringLiteral("/org/gnome/Mutter/RemoteDesktop"), remoteDesktop, "CreateSession");
    const auto path = session.isValid() ? session.value().path() : QString();
    const bool isStarted =
        !path.isEmpty() &&
        call(remoteDesktop, path, remoteDesktopSession, "Start").type() == QDBusMessage::ReplyMessage;
    return isStarted ? path : QString();
}

std::optional<std::chrono::milliseconds> HeadlessMutter::idleTime() const
{
    const QDBusReply<qulonglong> idle =
        call(idleMonitor, QStringLiteral("/org/gnome/Mutter/IdleMonitor/Core"), idleMonitor, "GetIdletime");
    return idle.isValid() ? std::optional(std::chrono::milliseconds(idle.value())) : std::nullopt;
}

bool HeadlessMutter::becomesIdle(std::chrono::milliseconds duration) const
{
    return eventually([&] { return idleTime() > duration; }, duration + std::chrono::seconds(10));
}

void HeadlessMutter::send(const char *method, const QVariantList &arguments) const
{
    static_cast<void>(call(remoteDesktop, inputSession_, remoteDesktopSession, method, arguments));
}

void HeadlessMutter::take(const RemoteDesktopInput &input) const
{
    const auto &values = input.values;
    if (input.method == QLatin1String("NotifyPointerMotion")) {
        send("NotifyPointerMotionRelative", values);
    } else if (input.method == QLatin1String("NotifyPointerAxis")) {
        const bool isLast = input.options.value(QStringLiteral("finish")).toBool();
        send("NotifyPointerAxis", values + QVariantList{isLast ? finishFlag : 0U});
    } else if (input.method == QLatin1String("NotifyKeyboardKeycode")) {
        send("NotifyKeyboardKeycode", {values.value(0).toUInt(), values.value(1).toUInt() != 0});
    }
}

} // namespace testsupport
