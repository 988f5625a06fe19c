#include "Tests/Support/FakeRemoteDesktopPortal.h"

#include "Tests/Support/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QUuid>

#include <utility>

namespace testsupport {

namespace {

const QString handleToken = QStringLiteral("handle_token");
const QString restoreToken = QStringLiteral("restore_token");

QString serviceName()
{
    return QStringLiteral("org.freedesktop.portal.Desktop");
}

QString objectPath()
{
    return QStringLiteral("/org/freedesktop/portal/desktop");
}

QString interfaceName(const char *name)
{
    return QStringLiteral("org.freedesktop.portal.") + QString::fromLatin1(name);
}

// "/org/freedesktop/portal/desktop/request/1_7/token"
QString handlePath(const char *kind, const QString &program, const QString &token)
{
    auto sender = program.mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("%1/%2/%3/%4").arg(objectPath(), QString::fromLatin1(kind), sender, token);
}

QVariantMap optionsIn(const QDBusMessage &message, qsizetype place)
{
    return qdbus_cast<QVariantMap>(message.arguments().value(place));
}

QString pathIn(const QDBusMessage &message)
{
    return message.arguments().value(0).value<QDBusObjectPath>().path();
}

} // namespace

FakeRemoteDesktopPortal::FakeRemoteDesktopPortal(const PrivateBus &bus)
    : FakeRemoteDesktopPortal(bus, Script())
{}

FakeRemoteDesktopPortal::FakeRemoteDesktopPortal(const PrivateBus &bus, Script script)
    : bus_(bus.connect())
    , script_(script)
{
    isOpen_ = bus_.registerVirtualObject(objectPath(), this, QDBusConnection::SubPath) &&
              bus_.registerService(serviceName());
}

FakeRemoteDesktopPortal::~FakeRemoteDesktopPortal()
{
    bus_.unregisterObject(objectPath(), QDBusConnection::UnregisterTree);
    QDBusConnection::disconnectFromBus(bus_.name());
}

QString FakeRemoteDesktopPortal::introspect(const QString & /*path*/) const
{
    return {};
}

bool FakeRemoteDesktopPortal::handleMessage(const QDBusMessage &message,
                                            const QDBusConnection & /*connection*/)
{
    const auto interface = message.interface();
    const bool isProperties = interface == QLatin1String("org.freedesktop.DBus.Properties");
    if (isProperties || interface.startsWith(QLatin1String("org.freedesktop.portal.RemoteDesktop"))) {
        ++callCount_;
    }
    if (script_.isSilent) {
        message.setDelayedReply(true);
        return true;
    }
    if (isProperties) {
        return handleProperties(message);
    }
    return message.member() == QLatin1String("Close") ? handleClose(message) : handleRemoteDesktop(message);
}

bool FakeRemoteDesktopPortal::handleProperties(const QDBusMessage &message)
{
    const bool isKnown =
        script_.hasRemoteDesktop && message.arguments().value(0).toString() == interfaceName("RemoteDesktop");
    if (!isKnown) {
        return fail(message, QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs"));
    }
    return bus_.send(
        message.createReply(QVariantMap{{QStringLiteral("version"), script_.version},
                                        {QStringLiteral("AvailableDeviceTypes"), script_.deviceTypes}}));
}

bool FakeRemoteDesktopPortal::handleClose(const QDBusMessage &message)
{
    closed_.append(message.interface().section(QLatin1Char('.'), -1));
    if (message.path() == sessionPath_) {
        sessionPath_.clear();
        isRunning_ = false;
    }
    return bus_.send(message.createReply());
}

bool FakeRemoteDesktopPortal::handleRemoteDesktop(const QDBusMessage &message)
{
    if (!script_.hasRemoteDesktop || message.interface() != interfaceName("RemoteDesktop")) {
        return false;
    }
    const auto method = message.member();
    if (method == QLatin1String("CreateSession")) {
        return createSession(message);
    }
    if (pathIn(message) != sessionPath_ || sessionPath_.isEmpty()) {
        return fail(message, QStringLiteral("org.freedesktop.DBus.Error.AccessDenied"));
    }
    if (method == QLatin1String("SelectDevices")) {
        return selectDevices(message);
    }
    return method == QLatin1String("Start") ? start(message) : takeInput(message);
}

bool FakeRemoteDesktopPortal::createSession(const QDBusMessage &message)
{
    ++sessionCount_;
    if (script_.toCreate == Answer::grant) {
        const auto token = optionsIn(message, 0).value(QStringLiteral("session_handle_token")).toString();
        program_ = message.service();
        sessionPath_ = handlePath("session", program_, token);
        isRunning_ = false;
    }
    return answer(message, script_.toCreate, {{QStringLiteral("session_handle"), sessionPath_}});
}

bool FakeRemoteDesktopPortal::selectDevices(const QDBusMessage &message)
{
    auto options = optionsIn(message, 1);
    options.remove(handleToken);
    selections_.push_back(options);
    isRestored_ = validTokens_.removeAll(options.value(restoreToken).toString()) > 0;
    return answer(message, script_.toSelect);
}

bool FakeRemoteDesktopPortal::start(const QDBusMessage &message)
{
    if (isRestored_) {
        return answer(message, Answer::grant, startSession());
    }
    ++questionCount_;
    questionPath_ = handlePath("request", program_, optionsIn(message, 2).value(handleToken).toString());
    const bool isGranted = script_.toQuestion == Answer::grant;
    return answer(message, script_.toQuestion, isGranted ? startSession() : QVariantMap());
}

void FakeRemoteDesktopPortal::answerQuestion(Answer answer)
{
    respond(program_, questionPath_, answer, answer == Answer::grant ? startSession() : QVariantMap());
}

QVariantMap FakeRemoteDesktopPortal::startSession()
{
    isRunning_ = true;
    QVariantMap results{{QStringLiteral("devices"), script_.grantedDevices}};
    if (script_.version >= 2 && script_.givesTokens) {
        validTokens_.append(QUuid::createUuid().toString(QUuid::WithoutBraces));
        results.insert(restoreToken, validTokens_.last());
    }
    return results;
}

bool FakeRemoteDesktopPortal::takeInput(const QDBusMessage &message)
{
    if (!isRunning_ || !script_.takesInput) {
        return fail(message, QStringLiteral("org.freedesktop.DBus.Error.AccessDenied"));
    }
    inputs_.push_back(
        {message.member(), message.arguments().mid(2), optionsIn(message, 1), message.isReplyRequired()});
    if (inputFunction_) {
        inputFunction_(inputs_.back());
    }
    return !message.isReplyRequired() || bus_.send(message.createReply());
}

void FakeRemoteDesktopPortal::closeSession()
{
    auto signal = QDBusMessage::createTargetedSignal(program_, std::exchange(sessionPath_, {}),
                                                     interfaceName("Session"), QStringLiteral("Closed"));
    signal << QVariantMap();
    bus_.send(signal);
    isRunning_ = false;
}

// The options are the last argument, and name the request.
bool FakeRemoteDesktopPortal::answer(const QDBusMessage &message, Answer answer, const QVariantMap &results)
{
    if (answer == Answer::error) {
        return fail(message, QStringLiteral("org.freedesktop.DBus.Error.Failed"));
    }
    if (answer == Answer::silence) {
        message.setDelayedReply(true);
        return true;
    }
    const auto token = optionsIn(message, message.arguments().size() - 1).value(handleToken).toString();
    const auto request = handlePath("request", message.service(), token);
    const bool isSent = bus_.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
    if (answer != Answer::later) {
        respond(message.service(), request, answer, results);
    }
    return isSent;
}

void FakeRemoteDesktopPortal::respond(const QString &program, const QString &request, Answer answer,
                                      const QVariantMap &results)
{
    const unsigned code = answer == Answer::grant ? 0 : answer == Answer::refuse ? 1 : 2;
    auto signal = QDBusMessage::createTargetedSignal(program, request, interfaceName("Request"),
                                                     QStringLiteral("Response"));
    signal << code << results;
    bus_.send(signal);
}

bool FakeRemoteDesktopPortal::fail(const QDBusMessage &message, const QString &error)
{
    return !message.isReplyRequired() ||
           bus_.send(message.createErrorReply(error, QStringLiteral("Not now")));
}

} // namespace testsupport
