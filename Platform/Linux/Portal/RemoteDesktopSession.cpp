#include "Platform/Linux/Portal/RemoteDesktopSession.h"

#include "Platform/Linux/Portal/RemoteDesktopCalls.h"

#include <QDBusObjectPath>

#include <utility>

namespace platform {

using namespace remotedesktop;

namespace {

constexpr unsigned allDevices = keyboard | pointer;
constexpr unsigned firstVersionWithTokens = 2;
constexpr unsigned untilRevoked = 2; // the persist mode
constexpr unsigned keyDown = 1;
constexpr unsigned keyUp = 0;
constexpr std::chrono::milliseconds betweenAnsweredCalls(1000);
constexpr std::chrono::milliseconds timeForASymbol(1000);

// The portal's documentation says string, and some say object path.
QString pathIn(const QVariant &value)
{
    return value.canConvert<QDBusObjectPath>() ? value.value<QDBusObjectPath>().path() : value.toString();
}

} // namespace

RemoteDesktopSession::RemoteDesktopSession(const QDBusConnection &bus,
                                           RemoteDesktopPortal::Description portal, QString restoreToken,
                                           std::chrono::milliseconds patience)
    : bus_(bus)
    , portal_(std::move(portal))
    , restoreToken_(std::move(restoreToken))
{
    patience_.setSingleShot(true);
    patience_.setInterval(patience);
    connect(&patience_, &QTimer::timeout, this, [this] { end(End::failed); });
}

RemoteDesktopSession::~RemoteDesktopSession()
{
    delete std::exchange(request_, nullptr); // before the session that it belongs to
    if (!path_.isEmpty()) {
        bus_.send(closeCall(portal_.owner, path_, sessionInterface));
    }
}

void RemoteDesktopSession::open()
{
    const auto token = RemoteDesktopRequest::makeToken();
    path_ = handlePath(bus_, "session", token); // to be closed even if the answer never comes
    request("CreateSession", {}, {{QStringLiteral("session_handle_token"), token}},
            &RemoteDesktopSession::selectDevices);
    patience_.start();
}

void RemoteDesktopSession::selectDevices(const QVariantMap &results)
{
    const QDBusObjectPath path(pathIn(results.value(QStringLiteral("session_handle"))));
    path_ = path.path();
    if (path_.isEmpty()) {
        end(End::failed);
        return;
    }
    bus_.connect(portal_.owner, path_, QString::fromLatin1(sessionInterface), QStringLiteral("Closed"), this,
                 SLOT(sessionClosed()));
    request("SelectDevices", {QVariant::fromValue(path)}, deviceOptions(), &RemoteDesktopSession::start);
    patience_.start();
}

QVariantMap RemoteDesktopSession::deviceOptions() const
{
    QVariantMap options{{QStringLiteral("types"), allDevices}};
    if (portal_.version >= firstVersionWithTokens) {
        options.insert(QStringLiteral("persist_mode"), untilRevoked);
        if (!restoreToken_.isEmpty()) {
            options.insert(QStringLiteral("restore_token"), restoreToken_);
        }
    }
    return options;
}

// Without a time limit: the user is asked now.
void RemoteDesktopSession::start(const QVariantMap & /*results*/)
{
    const QString noParentWindow;
    request("Start", {QVariant::fromValue(QDBusObjectPath(path_)), noParentWindow}, {},
            &RemoteDesktopSession::run);
}

void RemoteDesktopSession::run(const QVariantMap &results)
{
    devices_ = results.value(QStringLiteral("devices"), allDevices).toUInt() & allDevices;
    if (devices_ == 0) {
        end(End::refused);
        return;
    }
    Q_EMIT started(results.value(QStringLiteral("restore_token")).toString());
}

void RemoteDesktopSession::request(const char *method, QVariantList arguments, QVariantMap options, Step next)
{
    request_ = new RemoteDesktopRequest(bus_, portal_.owner, this);
    connect(request_, &RemoteDesktopRequest::answered, this,
            [this, next](auto answer, const auto &results) { takeAnswer(answer, results, next); });
    options.insert(QStringLiteral("handle_token"), request_->token());
    arguments.append(options);
    auto call = desktopCall(portal_.owner, method);
    call.setArguments(arguments);
    request_->send(call);
}

void RemoteDesktopSession::takeAnswer(RemoteDesktopRequest::Answer answer, const QVariantMap &results,
                                      Step next)
{
    using Answer = RemoteDesktopRequest::Answer;
    std::exchange(request_, nullptr)->deleteLater();
    patience_.stop();
    if (hasEnded_) {
        return;
    }
    if (answer == Answer::granted) {
        (this->*next)(results);
    } else {
        end(answer == Answer::refused ? End::refused : End::failed);
    }
}

bool RemoteDesktopSession::hasKeyboard() const
{
    return (devices_ & keyboard) != 0;
}

bool RemoteDesktopSession::hasPointer() const
{
    return (devices_ & pointer) != 0;
}

void RemoteDesktopSession::movePointer(double dx, double dy)
{
    notify("NotifyPointerMotion", {dx, dy});
}

void RemoteDesktopSession::scroll(double dy, bool isLast)
{
    notify("NotifyPointerAxis", {0.0, dy}, {{QStringLiteral("finish"), isLast}});
}

// The portal handles calls on several threads and may swap two that come together, which would leave the key
// down: the release waits for the answer to the press.
void RemoteDesktopSession::typeKey(std::int32_t code)
{
    const auto press = notification("NotifyKeyboardKeycode", {code, keyDown});
    const auto release = notification("NotifyKeyboardKeycode", {code, keyUp});
    connect(callAnswered(press), &QDBusPendingCallWatcher::finished, this, [this, release] {
        if (isRunning()) {
            bus_.send(release);
        }
    });
}

// The release is sent even where nothing was heard of the press, which may yet take effect.
bool RemoteDesktopSession::typeSymbolAndWait(std::int32_t symbol)
{
    bool isTaken = true;
    for (const auto state : {keyDown, keyUp}) {
        const auto call = notification("NotifyKeyboardKeysym", {symbol, state});
        const auto reply = bus_.call(call, QDBus::Block, static_cast<int>(timeForASymbol.count()));
        isTaken = reply.type() == QDBusMessage::ReplyMessage && isTaken;
    }
    return isTaken;
}

QDBusMessage RemoteDesktopSession::notification(const char *method, const QVariantList &arguments,
                                                const QVariantMap &options) const
{
    auto call = desktopCall(portal_.owner, method);
    call.setArguments(QVariantList{QVariant::fromValue(QDBusObjectPath(path_)), options} + arguments);
    return call;
}

void RemoteDesktopSession::notify(const char *method, const QVariantList &arguments,
                                  const QVariantMap &options)
{
    const auto call = notification(method, arguments, options);
    if (sinceAnsweredCall_.isValid() && !sinceAnsweredCall_.hasExpired(betweenAnsweredCalls.count())) {
        bus_.send(call);
    } else {
        callAnswered(call);
    }
}

QDBusPendingCallWatcher *RemoteDesktopSession::callAnswered(const QDBusMessage &call)
{
    sinceAnsweredCall_.start();
    auto *reply = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, &RemoteDesktopSession::takeNotifyReply);
    return reply;
}

// A portal that is slow is left alone; of one that ended the bus tells.
void RemoteDesktopSession::takeNotifyReply(QDBusPendingCallWatcher *reply)
{
    reply->deleteLater();
    if (!reply->isError()) {
        Q_EMIT confirmed();
    } else if (reply->error().type() != QDBusError::NoReply) {
        end(End::closed);
    }
}

void RemoteDesktopSession::sessionClosed()
{
    path_.clear();
    end(isRunning() ? End::closed : End::failed);
}

void RemoteDesktopSession::end(End end)
{
    devices_ = 0;
    patience_.stop();
    if (!std::exchange(hasEnded_, true)) {
        Q_EMIT ended(end);
    }
}

} // namespace platform
