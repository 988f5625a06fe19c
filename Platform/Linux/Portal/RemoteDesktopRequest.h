// A call that the portal answers later, with a signal.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QVariantMap>

namespace platform {

// One such call and its answer. Listens before it calls, on the path that follows from this program's name on
// the bus and a token. Main thread.
class RemoteDesktopRequest final : public QObject
{
    Q_OBJECT

public:
    enum class Answer {
        granted,
        refused, // by the user
        failed,  // nobody refused, and nothing was granted
    };

    // `portal` is the portal's unique name.
    RemoteDesktopRequest(const QDBusConnection &bus, QString portal, QObject *parent);
    // Closes a request that has no answer yet, with the question that the user may be looking at.
    ~RemoteDesktopRequest() override;

    // A new one that fits into a path and that nobody guesses.
    [[nodiscard]] static QString makeToken();

    // Belongs into the call's options as "handle_token".
    [[nodiscard]] const QString &token() const { return token_; }

    // Once.
    void send(const QDBusMessage &call);

Q_SIGNALS:
    // The portal has taken the call, and may take any time for the answer.
    void taken();
    // Once.
    void answered(platform::RemoteDesktopRequest::Answer answer, const QVariantMap &results);

private Q_SLOTS:
    void takeResponse(unsigned code, const QVariantMap &results);

private:
    void takeReply(QDBusPendingCallWatcher *reply);
    void listenAt(const QString &path);
    void finish(Answer answer, const QVariantMap &results);

    QDBusConnection bus_;
    QString portal_;
    QString token_;
    QString path_;
    bool isOpen_ = false; // sent, and without an answer
};

} // namespace platform
