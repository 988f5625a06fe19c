#include "Platform/Linux/StatusNotifier/NotifierItem.h"

#include "Platform/Linux/StatusNotifier/MenuService.h"

#include <utility>

namespace platform {

NotifierItem::NotifierItem(const StatusItemIdentity &identity, QObject *exported)
    : QDBusAbstractAdaptor(exported)
    , id_(QString::fromStdString(identity.id))
    , title_(QString::fromStdString(identity.title))
{
    registerNotifierTypes();
}

QDBusObjectPath NotifierItem::menu() const
{
    return QDBusObjectPath(QLatin1String(hasMenu_ ? menuPath : noMenuPath));
}

void NotifierItem::Activate(int x, int y)
{
    const StatusClick click{x, y, std::exchange(token_, {}).toStdString()};
    const auto call = [this, click] {
        if (const auto handler = clickHandler_) {
            handler(click);
        }
    };
    QMetaObject::invokeMethod(this, call, Qt::QueuedConnection);
}

} // namespace platform
