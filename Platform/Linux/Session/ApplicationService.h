// org.freedesktop.Application on the session bus.
#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantMap>

namespace platform {

// Exported for the object it is made for. Main thread.
class ApplicationService final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationService(QObject *exported);

public Q_SLOTS:
    void Activate(const QVariantMap &platformData);
    // The application opens no files: showing itself is all that it can do with them.
    void Open(const QStringList &uris, const QVariantMap &platformData);
    // Knows "quit"; other actions are ignored.
    void ActivateAction(const QString &action, const QVariantList &parameters,
                        const QVariantMap &platformData);

Q_SIGNALS:
    void activated(const QString &activationToken);
    void quitRequested();
};

// The token in the platform data of a call, of either window system; empty where there is none.
[[nodiscard]] QString activationTokenIn(const QVariantMap &platformData);
// The platform data that carries a token under the names of both window systems.
[[nodiscard]] QVariantMap platformDataWith(const QString &activationToken);

} // namespace platform
