// One application per folder of the user's session, where there is no session bus.
#pragma once

#include "Platform/ApplicationLink.h"

#include <QLocalServer>
#include <QLockFile>

namespace platform {

// A lock file decides who is the application; a socket beside it, open to the user alone, takes the requests.
class SocketApplicationLink final : public ApplicationLink
{
    Q_OBJECT

public:
    // The files are made at `path` + ".lock" and + ".socket"; the folder should be private to the user.
    SocketApplicationLink(const QString &path, QString launchToken, QObject *parent = nullptr);

    bool claim() override;

private:
    void listen();
    void takeConnection();
    void readRequest(class QLocalSocket &connection);
    [[nodiscard]] bool activateOwner() const;

    QString socketPath_;
    QString launchToken_;
    QLockFile lock_;
    QLocalServer server_;
};

} // namespace platform
