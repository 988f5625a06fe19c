#include "Platform/Linux/Permissions/MicrophoneQuestions.h"

#include "Platform/Linux/Portal/RemoteDesktopCalls.h"

#include <QDBusArgument>
#include <QDBusVariant>

namespace platform {

namespace {

using StoredPermissions = QMap<QString, QStringList>; // by application

// The portal's Read answers with a variant in a variant.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

} // namespace

QDBusMessage switchQuestion()
{
    auto question = remotedesktop::desktopCall(QString::fromLatin1(remotedesktop::serviceName), "Read",
                                               "org.freedesktop.portal.Settings");
    question << QStringLiteral("org.gnome.desktop.privacy") << QStringLiteral("disable-microphone");
    return question;
}

bool isSwitchedOff(const QDBusMessage &answer)
{
    const auto value = unwrapped(answer.arguments().value(0));
    return answer.type() == QDBusMessage::ReplyMessage && value.typeId() == QMetaType::Bool && value.toBool();
}

QDBusMessage storeQuestion()
{
    auto question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.impl.portal.PermissionStore"),
        QStringLiteral("/org/freedesktop/impl/portal/PermissionStore"),
        QStringLiteral("org.freedesktop.impl.portal.PermissionStore"), QStringLiteral("Lookup"));
    question << QStringLiteral("devices") << QStringLiteral("microphone");
    return question;
}

MicrophoneStatus storedStatus(const QDBusMessage &answer, const QString &application)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != QLatin1String("a{sas}v")) {
        return MicrophoneStatus::notDetermined;
    }
    const auto stored = qdbus_cast<StoredPermissions>(answer.arguments().value(0)).value(application);
    if (stored == QStringList(QStringLiteral("yes"))) {
        return MicrophoneStatus::authorized;
    }
    return stored == QStringList(QStringLiteral("no")) ? MicrophoneStatus::denied
                                                       : MicrophoneStatus::notDetermined;
}

} // namespace platform
