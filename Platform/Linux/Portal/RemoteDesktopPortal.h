// What is known of the desktop's RemoteDesktop portal.
#pragma once

#include "Platform/InputPoster.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>

namespace platform {

// Learns by asking, without waiting, and forgets when the portal's name on the bus changes hands. One
// thread, which has a Qt event loop.
class RemoteDesktopPortal final : public QObject
{
    Q_OBJECT

public:
    struct Description
    {
        QString owner; // the unique name on the bus
        unsigned version = 0;
    };

    explicit RemoteDesktopPortal(const QDBusConnection &bus);

    [[nodiscard]] const QDBusConnection &bus() const { return bus_; }

    // Asks the portal, unless an answer is known or awaited. The bus starts a portal that is not running.
    void ask();
    [[nodiscard]] bool isAsking() const { return question_ != nullptr; }

    // Of a portal that can control keyboard and pointer; nothing where none is known.
    [[nodiscard]] const std::optional<Description> &description() const { return description_; }

    // Why there is no such portal; nothing while that is not known.
    [[nodiscard]] std::optional<Obstacle> absence() const;

Q_SIGNALS:
    // The question is over. Neither description() nor absence() after it: the portal did not answer.
    void answered();
    // The portal that was described is gone, and all that it gave out.
    void lost();

private:
    void takeAnswer();
    void describe(const QDBusMessage &answer);
    void explain(const QDBusError &error);
    void ownerChanged(const QString &newOwner);

    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    QDBusPendingCallWatcher *question_ = nullptr; // child
    std::optional<Description> description_;
    std::optional<Obstacle> absence_;
};

} // namespace platform
