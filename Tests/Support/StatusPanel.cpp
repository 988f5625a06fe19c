#include "Tests/Support/StatusPanel.h"

#include "Tests/Support/Eventually.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QFile>
#include <QUuid>

namespace testsupport {

namespace {

// A position of 6 is the top.
constexpr auto settings = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="dark-mode" type="bool" value="false"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="32"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray">
      <property name="square-icons" type="bool" value="true"/>
    </property>
  </property>
</channel>
)";

QString variable(const PrivateRuntime &runtime, const char *name)
{
    return runtime.environment().value(QString::fromLatin1(name));
}

void writeSettings(const PrivateRuntime &runtime)
{
    QDir folder(variable(runtime, "XDG_CONFIG_HOME"));
    folder.mkpath(QStringLiteral("xfce4/xfconf/xfce-perchannel-xml"));
    QFile file(folder.filePath(QStringLiteral("xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml")));
    if (file.open(QIODevice::WriteOnly)) {
        file.write(settings);
    }
}

// The program lies beside the libraries of the processor's architecture.
QString settingsDaemon()
{
    const auto folders =
        QDir(QStringLiteral("/usr/lib")).entryInfoList({QStringLiteral("*-linux-gnu*")}, QDir::Dirs);
    for (const auto &folder : folders) {
        const auto program = folder.filePath() + QStringLiteral("/xfce4/xfconf/xfconfd");
        if (QFile::exists(program)) {
            return program;
        }
    }
    return QStringLiteral("xfconfd");
}

bool comesUp(const QDBusConnection &bus, const char *name)
{
    return eventually([&] { return bus.interface()->isServiceRegistered(QString::fromLatin1(name)).value(); },
                      std::chrono::seconds(30));
}

} // namespace

StatusPanel::StatusPanel(const PrivateRuntime &runtime)
{
    writeSettings(runtime);
    const auto bus = QDBusConnection::connectToBus(variable(runtime, "DBUS_SESSION_BUS_ADDRESS"),
                                                   QUuid::createUuid().toString());
    settings_ = std::make_unique<ChildProcess>(settingsDaemon(), QStringList(), runtime.environment());
    if (!comesUp(bus, "org.xfce.Xfconf")) {
        return;
    }
    panel_ = std::make_unique<ChildProcess>(QStringLiteral("xfce4-panel"),
                                            QStringList{QStringLiteral("--disable-wm-check")},
                                            runtime.environment());
    isOpen_ = comesUp(bus, "org.kde.StatusNotifierWatcher");
}

} // namespace testsupport
