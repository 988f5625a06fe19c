#include "Platform/Linux/Permissions/CalendarRequest.h"

#include "Platform/Linux/Permissions/BusQuestion.h"

#include <QCoreApplication>

#include <utility>

namespace platform {

namespace {

QDBusMessage sourcesQuestion()
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.gnome.evolution.dataserver.Sources5"),
                                          QStringLiteral("/org/gnome/evolution/dataserver/SourceManager"),
                                          QStringLiteral("org.freedesktop.DBus.ObjectManager"),
                                          QStringLiteral("GetManagedObjects"));
}

bool isListOfSources(const QDBusMessage &answer)
{
    return answer.type() == QDBusMessage::ReplyMessage &&
           answer.signature() == QLatin1String("a{oa{sa{sv}}}");
}

} // namespace

void askForCalendar(const QDBusConnection &bus, std::chrono::milliseconds patience,
                    Permissions::Answer answer)
{
    askService(
        bus, sourcesQuestion(), patience, QCoreApplication::instance(),
        [answer = std::move(answer)](const QDBusMessage &sources) { answer(isListOfSources(sources)); });
}

} // namespace platform
