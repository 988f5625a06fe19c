// Whether a panel shows the items of programs.
#pragma once

#include <QDBusConnection>
#include <QObject>

class QDBusPendingCallWatcher;

namespace platform {

// Registers the item of a bus connection, which is the object "/StatusNotifierItem" there, with
// org.kde.StatusNotifierWatcher, and again with each new one. Main thread; never waits for anybody.
class PanelWatch final : public QObject
{
    Q_OBJECT

public:
    explicit PanelWatch(QDBusConnection bus, QObject *parent = nullptr);

    // Registers from the next turn of the event loop on. REQUIRES: the item's object is exported then.
    void start();

    [[nodiscard]] const QDBusConnection &bus() const { return bus_; }
    // Whether it has tried to register the item.
    [[nodiscard]] bool isKnown() const { return isKnown_; }
    // Whether a watcher has the item, and some panel shows it. One that does not say counts as one that does.
    [[nodiscard]] bool isWatched() const { return hasWatcher_ && hasHost_; }

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void askForHost();

private:
    void followWatcher();
    void registerItem();
    void takeRegistration(QDBusPendingCallWatcher *call);
    void takeHost(QDBusPendingCallWatcher *call);
    void set(bool hasWatcher, bool hasHost);

    QDBusConnection bus_;
    bool isKnown_ = false;
    bool isRegistering_ = false;
    bool isLate_ = false; // a watcher came while an answer, perhaps of nobody, was on its way
    bool hasWatcher_ = false;
    bool hasHost_ = false;
};

} // namespace platform
