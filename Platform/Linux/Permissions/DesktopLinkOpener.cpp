#include "Platform/Linux/Permissions/DesktopLinkOpener.h"

#include "Platform/Linux/Permissions/BusQuestion.h"
#include "Platform/Linux/Permissions/SettingsPages.h"
#include "Platform/Linux/Portal/RemoteDesktopCalls.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>

namespace platform {

using namespace remotedesktop;

namespace {

QDBusMessage openCall(const QString &link)
{
    auto call = desktopCall(QString::fromLatin1(serviceName), "OpenURI", "org.freedesktop.portal.OpenURI");
    const QString noParentWindow;
    call << noParentWindow << link << QVariantMap();
    return call;
}

std::optional<SettingsCommand> settingsCommandFor(std::string_view link)
{
    if (!link.starts_with(privacySettingsPrefix)) {
        return std::nullopt;
    }
    const auto anchor = link.substr(privacySettingsPrefix.size());
    return settingsCommand(QString::fromUtf8(anchor.data(), static_cast<qsizetype>(anchor.size())));
}

void openByProgram(const QString &link)
{
    const auto program = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (!program.isEmpty()) {
        QProcess::startDetached(program, {link});
    }
}

} // namespace

DesktopLinkOpener::DesktopLinkOpener(const QDBusConnection &bus, std::chrono::milliseconds patience)
    : bus_(bus)
    , patience_(patience)
{}

void DesktopLinkOpener::open(std::string_view link)
{
    const auto settings = settingsCommandFor(link);
    if (!settings || !QProcess::startDetached(settings->program, settings->arguments)) {
        openGenerally(QString::fromUtf8(link.data(), static_cast<qsizetype>(link.size())));
    }
}

void DesktopLinkOpener::openGenerally(const QString &link) const
{
    askService(bus_, openCall(link), patience_, QCoreApplication::instance(),
               [link](const QDBusMessage &answer) {
                   if (answer.type() == QDBusMessage::ErrorMessage) {
                       openByProgram(link);
                   }
               });
}

} // namespace platform
