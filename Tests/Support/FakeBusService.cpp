#include "Tests/Support/FakeBusService.h"

#include "Tests/Support/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

#include <algorithm>
#include <utility>

namespace testsupport {

namespace {

// The options are the call's last argument.
QString requestPath(const QDBusMessage &call)
{
    const auto options = qdbus_cast<QVariantMap>(call.arguments().last());
    auto sender = call.service().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
        .arg(sender, options.value(QStringLiteral("handle_token")).toString());
}

QDBusMessage handleOf(const QDBusMessage &call)
{
    return call.createReply(QVariant::fromValue(QDBusObjectPath(requestPath(call))));
}

} // namespace

FakeBusService::FakeBusService(const PrivateBus &bus, const char *name)
    : bus_(bus.connect())
{
    isOpen_ = bus_.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath) &&
              bus_.registerService(QString::fromLatin1(name));
}

FakeBusService::~FakeBusService()
{
    bus_.unregisterObject(QStringLiteral("/"), QDBusConnection::UnregisterTree);
    QDBusConnection::disconnectFromBus(bus_.name());
}

void FakeBusService::answer(const char *method, Answer answer)
{
    answers_[QString::fromLatin1(method)] = std::move(answer);
}

void FakeBusService::answer(const char *method, const QVariantList &values)
{
    answer(method, [values](const QDBusMessage &call) { return call.createReply(values); });
}

void FakeBusService::refuse(const char *method, const char *error)
{
    answer(method, [name = QString::fromLatin1(error)](const QDBusMessage &call) {
        return call.createErrorReply(name, QStringLiteral("refused"));
    });
}

void FakeBusService::ignore(const char *method)
{
    answer(method, [](const QDBusMessage & /*call*/) { return QDBusMessage(); });
}

void FakeBusService::answerLater(const char *method)
{
    answer(method, [this](const QDBusMessage &call) {
        request_ = call;
        return handleOf(call);
    });
}

void FakeBusService::answerAtOnce(const char *method, unsigned code)
{
    answer(method, [this, code](const QDBusMessage &call) {
        request_ = call;
        respond(code);
        return handleOf(call);
    });
}

void FakeBusService::respond(unsigned code)
{
    auto response = QDBusMessage::createTargetedSignal(request_.service(), requestPath(request_),
                                                       QStringLiteral("org.freedesktop.portal.Request"),
                                                       QStringLiteral("Response"));
    response << code << QVariantMap();
    bus_.send(response);
}

std::vector<QDBusMessage> FakeBusService::calls(const char *method) const
{
    std::vector<QDBusMessage> calls;
    std::ranges::copy_if(calls_, std::back_inserter(calls), [method](const QDBusMessage &call) {
        return call.member() == QLatin1String(method);
    });
    return calls;
}

QString FakeBusService::introspect(const QString & /*path*/) const
{
    return {};
}

bool FakeBusService::handleMessage(const QDBusMessage &message, const QDBusConnection & /*connection*/)
{
    const auto answer = answers_.value(message.member());
    if (!answer) {
        return false;
    }
    calls_.push_back(message);
    const auto reply = answer(message);
    if (reply.type() == QDBusMessage::InvalidMessage) {
        message.setDelayedReply(true);
        return true;
    }
    return bus_.send(reply);
}

} // namespace testsupport
