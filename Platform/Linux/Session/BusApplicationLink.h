// One application per session bus.
#pragma once

#include "Platform/ApplicationLink.h"

#include <QDBusConnection>

namespace platform {

// The bus hands its well-known name to one process only, which decides who is the application.
class BusApplicationLink final : public ApplicationLink
{
    Q_OBJECT

public:
    // `launchToken` is passed on to the running application.
    BusApplicationLink(QDBusConnection bus, QString launchToken, QObject *parent = nullptr);
    ~BusApplicationLink() override;

    bool claim() override;

private:
    [[nodiscard]] bool ownName();
    [[nodiscard]] bool activateOwner() const;

    QDBusConnection bus_;
    QString launchToken_;
};

} // namespace platform
