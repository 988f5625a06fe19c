// The desktop's settings, as the Settings portal would tell them.
#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <memory>

namespace testsupport {

class PrivateBus;

// Owns org.freedesktop.portal.Desktop on a private bus and answers ReadAll and Read of
// org.freedesktop.portal.Settings from inside the test's process, while that handles Qt events.
class FakeSettingsPortal : private QDBusVirtualObject
{
public:
    // REQUIRES: an application object; the bus outlives the portal.
    explicit FakeSettingsPortal(const PrivateBus &bus);
    ~FakeSettingsPortal() override;

    // Whether the name could be had.
    [[nodiscard]] bool isOpen() const { return isOpen_; }
    // How often programs have read the settings.
    [[nodiscard]] int readCount() const { return readCount_; }

    // Changes a setting and announces it to every program:
    // set("org.freedesktop.appearance", "color-scheme", 1U).
    void set(const QString &group, const QString &key, const QVariant &value);
    // The accent colour, each part from 0 to 1.
    void setAccent(double red, double green, double blue);

private:
    [[nodiscard]] QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;
    [[nodiscard]] QVariant readAll(const QStringList &groups) const;

    QDBusConnection bus_;
    QMap<QString, QVariantMap> settings_;
    int readCount_ = 0;
    bool isOpen_ = false;
};

} // namespace testsupport
