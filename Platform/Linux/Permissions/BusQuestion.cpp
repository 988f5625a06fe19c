#include "Platform/Linux/Permissions/BusQuestion.h"

#include <QDBusPendingCallWatcher>

#include <utility>

namespace platform {

namespace {

// Of a call without a bus Qt tells no end.
QDBusPendingCall call(const QDBusConnection &bus, const QDBusMessage &question,
                      std::chrono::milliseconds patience)
{
    return bus.isConnected()
               ? bus.asyncCall(question, static_cast<int>(patience.count()))
               : QDBusPendingCall::fromError(QDBusError(QDBusError::Disconnected, QStringLiteral("no bus")));
}

} // namespace

void askService(const QDBusConnection &bus, const QDBusMessage &question, std::chrono::milliseconds patience,
                QObject *context, std::function<void(const QDBusMessage &answer)> next)
{
    auto *reply = new QDBusPendingCallWatcher(call(bus, question, patience), context);
    QObject::connect(reply, &QDBusPendingCallWatcher::finished, context, [reply, next = std::move(next)] {
        reply->deleteLater();
        next(reply->reply());
    });
}

} // namespace platform
