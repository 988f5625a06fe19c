#include "Platform/Linux/Session/SocketApplicationLink.h"

#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QThread>

#include <utility>

namespace platform {

namespace {

constexpr int attemptsDuration = 200; // milliseconds
constexpr unsigned long pauseBetweenAttempts = 5;
constexpr qint64 longestToken = 4096; // bytes

} // namespace

SocketApplicationLink::SocketApplicationLink(const QString &path, QString launchToken, QObject *parent)
    : ApplicationLink(parent)
    , socketPath_(path + QStringLiteral(".socket"))
    , launchToken_(std::move(launchToken))
    , lock_(path + QStringLiteral(".lock"))
{
    lock_.setStaleLockTime(0); // only the end of its process makes the lock stale
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, &SocketApplicationLink::takeConnection);
}

bool SocketApplicationLink::claim()
{
    const QDeadlineTimer deadline(attemptsDuration);
    while (!deadline.hasExpired()) {
        if (lock_.tryLock(0)) {
            listen();
            return true;
        }
        if (lock_.error() != QLockFile::LockFailedError) {
            return true; // no folder to lock in: better two than none
        }
        if (activateOwner()) {
            return false;
        }
        QThread::msleep(pauseBetweenAttempts); // the owner holds the lock and is about to listen, or to end
    }
    return false;
}

void SocketApplicationLink::listen()
{
    QLocalServer::removeServer(socketPath_);
    server_.listen(socketPath_);
}

void SocketApplicationLink::takeConnection()
{
    while (auto *connection = server_.nextPendingConnection()) {
        connect(connection, &QLocalSocket::disconnected, connection, &QObject::deleteLater);
        connect(connection, &QLocalSocket::readyRead, this, [this, connection] { readRequest(*connection); });
        readRequest(*connection);
    }
}

// A request is one line: the activation token, which may be empty.
void SocketApplicationLink::readRequest(QLocalSocket &connection)
{
    if (connection.canReadLine()) {
        Q_EMIT reopenRequested(QString::fromUtf8(connection.readLine(longestToken)).trimmed());
        connection.disconnectFromServer();
    } else if (connection.bytesAvailable() > longestToken) {
        connection.abort();
    }
}

bool SocketApplicationLink::activateOwner() const
{
    QLocalSocket connection;
    connection.connectToServer(socketPath_);
    if (!connection.waitForConnected(attemptsDuration)) {
        return false;
    }
    connection.write(launchToken_.toUtf8() + '\n');
    return connection.waitForBytesWritten(attemptsDuration);
}

} // namespace platform
