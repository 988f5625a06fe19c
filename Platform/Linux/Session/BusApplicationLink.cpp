#include "Platform/Linux/Session/BusApplicationLink.h"

#include "Platform/Linux/Session/ApplicationIdentity.h"
#include "Platform/Linux/Session/ApplicationService.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <utility>

namespace platform {

namespace {

constexpr int answerTimeout = 200; // milliseconds
constexpr int mostAttempts = 5;

// The owner went away between losing the name to it and calling it.
bool isGone(const QDBusMessage &answer)
{
    const auto error = answer.errorName();
    return error == QLatin1String("org.freedesktop.DBus.Error.ServiceUnknown") ||
           error == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner");
}

} // namespace

BusApplicationLink::BusApplicationLink(QDBusConnection bus, QString launchToken, QObject *parent)
    : ApplicationLink(parent)
    , bus_(std::move(bus))
    , launchToken_(std::move(launchToken))
{
    auto *service = new ApplicationService(this);
    connect(service, &ApplicationService::activated, this, &ApplicationLink::reopenRequested);
    connect(service, &ApplicationService::quitRequested, this, &ApplicationLink::quitRequested);
}

BusApplicationLink::~BusApplicationLink()
{
    bus_.unregisterObject(applicationPath());
}

bool BusApplicationLink::claim()
{
    // The object comes before the name: who sees the name must find the object.
    bus_.registerObject(applicationPath(), this, QDBusConnection::ExportAdaptors);
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        if (ownName()) {
            return true;
        }
        if (activateOwner()) {
            return false;
        }
    }
    return true; // a name that nobody holds and nobody can have: better two than none
}

bool BusApplicationLink::ownName()
{
    const auto reply =
        bus_.interface()->registerService(applicationId(), QDBusConnectionInterface::DontQueueService,
                                          QDBusConnectionInterface::DontAllowReplacement);
    return reply.value() == QDBusConnectionInterface::ServiceRegistered;
}

bool BusApplicationLink::activateOwner() const
{
    auto call = QDBusMessage::createMethodCall(applicationId(), applicationPath(),
                                               QStringLiteral("org.freedesktop.Application"),
                                               QStringLiteral("Activate"));
    call << platformDataWith(launchToken_);
    call.setAutoStartService(false);
    return !isGone(bus_.call(call, QDBus::Block, answerTimeout));
}

} // namespace platform
