// What a panel does on the bus, in the test's hands: it takes items in, and looks at them.
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariant>

namespace testsupport {

// org.kde.StatusNotifierWatcher for as long as it lives, on a connection of its own.
class WatcherStandIn final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)

public:
    // Whether there is a host from the start.
    WatcherStandIn(QDBusConnection bus, bool hasHost);
    ~WatcherStandIn() override;

    [[nodiscard]] bool hasHost() const { return hasHost_; }
    void setHasHost(bool hasHost);

    QStringList registered; // as the items named themselves

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString &service) { registered.append(service); }

Q_SIGNALS:
    void StatusNotifierHostRegistered();
    void StatusNotifierHostUnregistered();

private:
    QDBusConnection bus_;
    bool hasHost_;
};

// An item as a panel sees it. Waits for each answer.
class SeenItem : public QObject
{
    Q_OBJECT

public:
    // The item of the service; an empty one: whichever there is, to listen to.
    SeenItem(QDBusConnection bus, QString service);

    [[nodiscard]] QVariant property(const char *name);
    // A method of the item, or of its menu. The answer's values.
    QVariantList call(const char *method, const QVariantList &arguments);
    QVariantList callMenu(const char *method, const QVariantList &arguments);

    // The name of the last call's error; empty where there was none.
    [[nodiscard]] QString lastError() const { return lastError_; }
    [[nodiscard]] const QDBusConnection &bus() const { return bus_; }

    int newIcons = 0; // the signals that came

private Q_SLOTS:
    void takeNewIcon() { ++newIcons; }

private:
    QVariantList ask(const QString &path, const QString &interface, const char *method,
                     const QVariantList &arguments);

    QDBusConnection bus_;
    QString service_;
    QString lastError_;
};

} // namespace testsupport
