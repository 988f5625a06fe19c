// The program as launchers and the desktop speak to it, and how the user's click is passed on.

#include "Tests/EndToEnd/Desktop.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XRootMessages.h"
#include "Tests/Support/XWindows.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <gmock/gmock.h>

using namespace testsupport;
using testing::Contains;

namespace endtoend {

namespace {

const QString service = QStringLiteral("org.stirra.Stirra");
const QString path = QStringLiteral("/org/stirra/Stirra");
const QString startupId = QStringLiteral("launcher/file manager-1_TIME4711");

QDBusMessage activation(const QVariantMap &platformData)
{
    auto call = QDBusMessage::createMethodCall(service, path, QStringLiteral("org.freedesktop.Application"),
                                               QStringLiteral("Activate"));
    call << platformData;
    return call;
}

QProcessEnvironment launchedFromMenu()
{
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("DESKTOP_STARTUP_ID"), startupId);
    return environment;
}

// Stands where a running program would, and keeps what it is told.
class RunningProgram : public QDBusVirtualObject
{
public:
    explicit RunningProgram(QDBusConnection bus)
        : isOpen(bus.registerVirtualObject(path, this) && bus.registerService(service))
    {}

    [[nodiscard]] QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        calls.append(message.member());
        platformData = qdbus_cast<QVariantMap>(message.arguments().value(0));
        return connection.send(message.createReply());
    }

    bool isOpen;
    QStringList calls;
    QVariantMap platformData;
};

} // namespace

class ApplicationServiceTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(desktop.isOpen()); }

    Desktop desktop;
};

TEST_F(ApplicationServiceTest, ActivateBringsTheClosedWindowBack)
{
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    close(desktop.x(), stirra.window());
    ASSERT_TRUE(eventually([&] { return desktop.stirraWindows().empty(); }));

    EXPECT_EQ(desktop.bus().connect().call(activation({})).type(), QDBusMessage::ReplyMessage);

    EXPECT_TRUE(eventually([&] { return desktop.stirraWindows().size() == 1; }));
}

TEST_F(ApplicationServiceTest, ASecondLaunchHandsTheStartupIdToTheRunningProgram)
{
    const auto bus = desktop.bus().connect();
    const RunningProgram running(bus);
    ASSERT_TRUE(running.isOpen);
    Stirra second(desktop, launchedFromMenu());

    ASSERT_TRUE(eventually([&] { return !second.process().isRunning(); }));

    EXPECT_EQ(second.process().exitStatus(), 0);
    EXPECT_EQ(running.calls, QStringList(QStringLiteral("Activate")));
    EXPECT_EQ(running.platformData.value(QStringLiteral("desktop-startup-id")), startupId);
    EXPECT_EQ(running.platformData.value(QStringLiteral("activation-token")), startupId);
}

TEST_F(ApplicationServiceTest, TheFirstLaunchIsOverOnceTheWindowIsThere)
{
    XRootMessages messages(desktop.server().display());
    Stirra stirra(desktop, launchedFromMenu());
    ASSERT_TRUE(stirra.isUp());
    EXPECT_TRUE(eventually([&] {
        return messages.startupTexts().contains("remove: ID=launcher/file\\ manager-1_TIME4711") ||
               messages.startupTexts().contains("remove: ID=" + startupId.toUtf8());
    })) << messages.startupTexts().join('\n').constData();
}

TEST_F(ApplicationServiceTest, TheTimeOfTheUsersClickGoesToTheWindowManager)
{
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    const auto window = stirra.window();
    minimise(desktop.x(), window);
    ASSERT_TRUE(eventually([&] { return !isViewable(desktop.x(), window); }));
    XRootMessages messages(desktop.server().display());

    Stirra second(desktop, launchedFromMenu());

    EXPECT_EQ(second.process().waitForExit(), 0);
    EXPECT_TRUE(eventually([&] {
        const auto requests = messages.ofType("_NET_ACTIVE_WINDOW");
        return std::ranges::any_of(requests, [&](const XRootMessages::Message &request) {
            return request.window == window && request.data[1] == 4711;
        });
    }));
    EXPECT_TRUE(eventually([&] {
        return messages.startupTexts().contains("remove: ID=launcher/file\\ manager-1_TIME4711");
    })) << messages.startupTexts().join('\n').constData();
}

} // namespace endtoend
