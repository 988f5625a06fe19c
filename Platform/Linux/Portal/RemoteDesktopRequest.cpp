#include "Platform/Linux/Portal/RemoteDesktopRequest.h"

#include "Platform/Linux/Portal/RemoteDesktopCalls.h"

#include <QDBusObjectPath>
#include <QDBusPendingReply>
#include <QUuid>

#include <utility>

namespace platform {

using namespace remotedesktop;

namespace {

constexpr unsigned success = 0;
constexpr unsigned cancelledByTheUser = 1;

} // namespace

RemoteDesktopRequest::RemoteDesktopRequest(const QDBusConnection &bus, QString portal, QObject *parent)
    : QObject(parent)
    , bus_(bus)
    , portal_(std::move(portal))
    , token_(makeToken())
{}

QString RemoteDesktopRequest::makeToken()
{
    return QStringLiteral("stirra_") + QUuid::createUuid().toString(QUuid::Id128);
}

RemoteDesktopRequest::~RemoteDesktopRequest()
{
    if (isOpen_) {
        bus_.send(closeCall(portal_, path_, requestInterface));
    }
}

void RemoteDesktopRequest::send(const QDBusMessage &call)
{
    isOpen_ = true;
    listenAt(handlePath(bus_, "request", token_));
    auto *reply = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, &RemoteDesktopRequest::takeReply);
}

void RemoteDesktopRequest::listenAt(const QString &path)
{
    path_ = path;
    bus_.connect(portal_, path_, QString::fromLatin1(requestInterface), QStringLiteral("Response"), this,
                 SLOT(takeResponse(unsigned, QVariantMap)));
}

void RemoteDesktopRequest::takeReply(QDBusPendingCallWatcher *reply)
{
    const QDBusPendingReply<QDBusObjectPath> handle(*reply);
    reply->deleteLater();
    if (handle.isError()) {
        finish(Answer::failed, {});
        return;
    }
    if (handle.value().path() != path_) {
        listenAt(handle.value().path()); // a portal from before there were tokens
    }
    Q_EMIT taken();
}

void RemoteDesktopRequest::takeResponse(unsigned code, const QVariantMap &results)
{
    if (code == success) {
        finish(Answer::granted, results);
    } else {
        finish(code == cancelledByTheUser ? Answer::refused : Answer::failed, {});
    }
}

void RemoteDesktopRequest::finish(Answer answer, const QVariantMap &results)
{
    if (std::exchange(isOpen_, false)) {
        Q_EMIT answered(answer, results);
    }
}

} // namespace platform
