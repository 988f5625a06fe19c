#include "Tests/Support/PrivateBus.h"

#include "Tests/Support/Eventually.h"

#include <QFile>
#include <QUuid>

namespace testsupport {

namespace {

QString configuration(const QString &socket, const QStringList &serviceFolders)
{
    QString folders;
    for (const auto &folder : serviceFolders) {
        folders += QStringLiteral("  <servicedir>%1</servicedir>\n").arg(folder.toHtmlEscaped());
    }
    return QStringLiteral(
               "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
               " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
               "<busconfig>\n"
               "  <type>session</type>\n"
               "  <listen>unix:path=%1</listen>\n"
               "  <auth>EXTERNAL</auth>\n"
               "%2"
               "  <policy context=\"default\">\n"
               "    <allow send_destination=\"*\" eavesdrop=\"true\"/>\n"
               "    <allow eavesdrop=\"true\"/>\n"
               "    <allow own=\"*\"/>\n"
               "  </policy>\n"
               "</busconfig>\n")
        .arg(socket.toHtmlEscaped(), folders);
}

void writeFile(const QString &path, const QString &text)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(text.toUtf8());
    }
}

} // namespace

PrivateBus::PrivateBus(PrivateRuntime &runtime, const QStringList &serviceFolders)
{
    // Not in XDG_RUNTIME_DIR under its usual name: a program must find it by the environment alone.
    const auto file = runtime.path(QStringLiteral("bus.conf"));
    writeFile(file, configuration(runtime.path(QStringLiteral("bus")), serviceFolders));
    process_ = std::make_unique<ChildProcess>(
        QStringLiteral("dbus-daemon"),
        QStringList{QStringLiteral("--config-file"), file, QStringLiteral("--nofork"),
                    QStringLiteral("--nopidfile"), QStringLiteral("--print-address")},
        runtime.environment());
    static_cast<void>(
        eventually([this] { return process_->standardOutput().endsWith('\n') || !process_->isRunning(); }));
    address_ = QString::fromUtf8(process_->standardOutput().trimmed());
    runtime.environment().insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address_);
}

QDBusConnection PrivateBus::connect() const
{
    return QDBusConnection::connectToBus(address_, QUuid::createUuid().toString());
}

} // namespace testsupport
