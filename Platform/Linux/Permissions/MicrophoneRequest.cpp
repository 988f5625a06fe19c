#include "Platform/Linux/Permissions/MicrophoneRequest.h"

#include "Platform/Linux/Permissions/BusQuestion.h"
#include "Platform/Linux/Permissions/MicrophoneQuestions.h"
#include "Platform/Linux/Portal/RemoteDesktopCalls.h"

#include <QCoreApplication>

#include <utility>

namespace platform {

using namespace remotedesktop;

namespace {

constexpr auto deviceInterface = "org.freedesktop.portal.Device";

// Of the bus's own library, when the connection ends.
bool followEnd(QDBusConnection bus, QObject *receiver, const char *slot)
{
    return bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                       QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), receiver,
                       slot);
}

} // namespace

MicrophoneRequest::MicrophoneRequest(PermissionSources sources, Permissions::Answer answer)
    : QObject(QCoreApplication::instance())
    , sources_(std::move(sources))
    , answer_(std::move(answer))
    , portalWatcher_(QString::fromLatin1(serviceName), sources_.bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    patience_.setSingleShot(true);
    connect(&patience_, &QTimer::timeout, this, &MicrophoneRequest::giveUp);
}

void MicrophoneRequest::start()
{
    patience_.start(sources_.answerPatience);
    followEnd(sources_.bus, this, SLOT(giveUp()));
    ask(switchQuestion(), &MicrophoneRequest::takeSwitch);
}

void MicrophoneRequest::ask(const QDBusMessage &question, Step next)
{
    askService(sources_.bus, question, sources_.queryPatience, this,
               [this, next](const QDBusMessage &answer) {
                   if (answer_) {
                       (this->*next)(answer);
                   }
               });
}

void MicrophoneRequest::takeSwitch(const QDBusMessage &answer)
{
    if (isSwitchedOff(answer)) {
        finish(false);
    } else if (sources_.sandbox) {
        ask(storeQuestion(), &MicrophoneRequest::takeStore);
    } else {
        finish(true);
    }
}

void MicrophoneRequest::takeStore(const QDBusMessage &answer)
{
    const auto status = storedStatus(answer, *sources_.sandbox);
    if (status != MicrophoneStatus::notDetermined) {
        finish(status == MicrophoneStatus::authorized);
        return;
    }
    auto question = desktopCall(QString::fromLatin1(serviceName), "Get", propertiesInterface);
    question << QString::fromLatin1(deviceInterface) << QStringLiteral("version");
    ask(question, &MicrophoneRequest::takePortal);
}

void MicrophoneRequest::takePortal(const QDBusMessage &answer)
{
    if (answer.type() == QDBusMessage::ReplyMessage) {
        askUser(answer.service());
    } else {
        finish(false);
    }
}

// Without a time limit, once the portal has taken the question.
void MicrophoneRequest::askUser(const QString &portal)
{
    connect(&portalWatcher_, &QDBusServiceWatcher::serviceOwnerChanged, this, &MicrophoneRequest::giveUp);
    auto *request = new RemoteDesktopRequest(sources_.bus, portal, this);
    connect(request, &RemoteDesktopRequest::taken, &patience_, &QTimer::stop);
    connect(request, &RemoteDesktopRequest::answered, this, [this](RemoteDesktopRequest::Answer answer) {
        finish(answer == RemoteDesktopRequest::Answer::granted);
    });
    auto call = desktopCall(portal, "AccessDevice", deviceInterface);
    call << static_cast<unsigned>(QCoreApplication::applicationPid())
         << QStringList(QStringLiteral("microphone"))
         << QVariantMap{{QStringLiteral("handle_token"), request->token()}};
    request->send(call);
}

void MicrophoneRequest::finish(bool isGranted)
{
    if (const auto answer = std::exchange(answer_, nullptr)) {
        patience_.stop();
        deleteLater();
        answer(isGranted);
    }
}

} // namespace platform
