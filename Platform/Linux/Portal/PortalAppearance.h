// The desktop's appearance from the Settings portal, and from the toolkit's platform theme where that is
// silent.
#pragma once

#include "Platform/Appearance.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QVariantMap>

#include <memory>

namespace platform {

// Reads the portal without blocking and follows its change signal; a portal that appears late is read when it
// does. Keys: org.freedesktop.appearance color-scheme (1 dark, 2 light) and accent-color (red, green, blue, 0
// to 1), org.gnome.desktop.interface font-name and monospace-font-name, org.kde.kdeglobals.General font and
// fixed.
class PortalAppearance final : public Appearance
{
    Q_OBJECT

public:
    explicit PortalAppearance(QObject *parent = nullptr);
    ~PortalAppearance() override;

    void awaitFirstAnswer() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    using Settings = QMap<QString, QVariantMap>;

    void followPortal();
    void readAll(int timeoutMilliseconds);
    void takeAnswer(QDBusPendingCallWatcher *answer);
    void update();

    [[nodiscard]] QVariant setting(const char *group, const char *key) const;
    [[nodiscard]] bool isDark() const;

    Settings settings_;
    std::unique_ptr<QDBusPendingCallWatcher> pendingAnswer_;
};

} // namespace platform
