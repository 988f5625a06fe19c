#include "Tests/Platform/Permissions/PermissionsTest.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <QDBusVariant>

#include <future>

namespace platform {

using testsupport::eventually;

namespace {

using StoredPermissions = QMap<QString, QStringList>;

} // namespace

PermissionsTest::PermissionsTest()
    : sources{.bus = QDBusConnection::sessionBus(),
              .sandbox = std::nullopt,
              .isTrusted = [] { return false; },
              .askForInput = [] {},
              .queryPatience = std::chrono::seconds(10),
              .answerPatience = std::chrono::minutes(10)}
{
    qDBusRegisterMetaType<StoredPermissions>();
    tellSwitch(false);
}

MicrophoneStatus PermissionsTest::microphoneStatus() const
{
    auto status =
        std::async(std::launch::async, [this] { return LinuxPermissions(sources).microphoneStatus(); });
    EXPECT_TRUE(eventually(
        [&status] { return status.wait_for(std::chrono::seconds(0)) == std::future_status::ready; },
        std::chrono::seconds(30)));
    return status.get();
}

bool PermissionsTest::settles(const char *name) const
{
    const auto ping =
        QDBusMessage::createMethodCall(QString::fromLatin1(name), QStringLiteral("/"),
                                       QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
    const auto call = sources.bus.asyncCall(ping);
    return eventually([&call] { return call.isFinished(); }, std::chrono::seconds(20));
}

void PermissionsTest::make(Request request)
{
    given.clear();
    LinuxPermissions permissions(sources);
    (permissions.*request)([this](bool isGranted) { given.push_back(isGranted); });
}

bool PermissionsTest::isAnswered(bool isGranted)
{
    if (!eventually([this] { return !given.empty(); }, std::chrono::seconds(20))) {
        return false;
    }
    testsupport::letPass(std::chrono::milliseconds(20));
    return given == std::vector{isGranted};
}

bool PermissionsTest::answers(Request request, bool isGranted)
{
    make(request);
    return given.empty() && isAnswered(isGranted);
}

void PermissionsTest::tellSwitch(const QVariant &disablesMicrophone)
{
    const QDBusVariant value(disablesMicrophone);
    portal.answer("Read", {QVariant::fromValue(QDBusVariant(QVariant::fromValue(value)))});
}

void PermissionsTest::keepInStore(const QStringList &permissions)
{
    sources.sandbox = QStringLiteral("org.stirra.Sandboxed");
    const StoredPermissions stored{{QStringLiteral("org.example.Other"), {QStringLiteral("yes")}},
                                   {*sources.sandbox, permissions}};
    store.answer("Lookup", {QVariant::fromValue(stored), QVariant::fromValue(QDBusVariant(0))});
}

} // namespace platform
