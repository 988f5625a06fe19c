// Whether the microphone may be used, as the desktop's services have it.

#include "Tests/Platform/Permissions/PermissionsTest.h"

#include <QDBusVariant>

#include <memory>

namespace platform {

using testing::IsEmpty;
using testing::SizeIs;
using Status = MicrophoneStatus;

class MicrophonePermissionTest : public PermissionsTest
{};

TEST_F(MicrophonePermissionTest, OutsideOfASandboxItIsAuthorized)
{
    EXPECT_EQ(microphoneStatus(), Status::authorized);
    ASSERT_THAT(portal.calls("Read"), SizeIs(1));
    EXPECT_EQ(
        portal.calls("Read").front().arguments(),
        (QVariantList{QStringLiteral("org.gnome.desktop.privacy"), QStringLiteral("disable-microphone")}));
    EXPECT_THAT(store.calls("Lookup"), IsEmpty());
}

TEST_F(MicrophonePermissionTest, TheSwitchRestrictsItAndIsAskedAfresh)
{
    tellSwitch(true);
    EXPECT_EQ(microphoneStatus(), Status::restricted);
    tellSwitch(false);
    EXPECT_EQ(microphoneStatus(), Status::authorized);
    tellSwitch(true);
    EXPECT_EQ(microphoneStatus(), Status::restricted);
}

TEST_F(MicrophonePermissionTest, TheSwitchStandsAboveTheStore)
{
    keepInStore({QStringLiteral("yes")});
    tellSwitch(true);
    EXPECT_EQ(microphoneStatus(), Status::restricted);
}

TEST_F(MicrophonePermissionTest, AnAnswerThatIsNoSwitchRestrictsNothing)
{
    tellSwitch(QStringLiteral("true"));
    EXPECT_EQ(microphoneStatus(), Status::authorized);
    portal.answer("Read", QVariantList());
    EXPECT_EQ(microphoneStatus(), Status::authorized);
    portal.answer("Read", {true}); // unwrapped, as another portal may have it
    EXPECT_EQ(microphoneStatus(), Status::restricted);
    portal.refuse("Read", "org.freedesktop.portal.Error.NotFound");
    EXPECT_EQ(microphoneStatus(), Status::authorized);
}

TEST_F(MicrophonePermissionTest, InASandboxTheStoreSays)
{
    const std::vector<std::pair<QStringList, Status>> stored{
        {{QStringLiteral("yes")}, Status::authorized},
        {{QStringLiteral("no")}, Status::denied},
        {{QStringLiteral("ask")}, Status::notDetermined},
        {{}, Status::notDetermined},
        {{QStringLiteral("yes"), QStringLiteral("no")}, Status::notDetermined},
        {{QStringLiteral("maybe")}, Status::notDetermined},
    };
    for (const auto &[permissions, status] : stored) {
        keepInStore(permissions);
        EXPECT_EQ(microphoneStatus(), status) << permissions.join(QLatin1Char(' ')).toStdString();
    }
    EXPECT_EQ(store.calls("Lookup").front().arguments(),
              (QVariantList{QStringLiteral("devices"), QStringLiteral("microphone")}));
}

TEST_F(MicrophonePermissionTest, WhatTheStoreDoesNotKeepIsNotDetermined)
{
    keepInStore({QStringLiteral("yes")});
    sources.sandbox = QStringLiteral("org.stirra.Unknown");
    EXPECT_EQ(microphoneStatus(), Status::notDetermined);
    store.refuse("Lookup", "org.freedesktop.portal.Error.NotFound");
    EXPECT_EQ(microphoneStatus(), Status::notDetermined);
    store.answer("Lookup", {QStringLiteral("yes")});
    EXPECT_EQ(microphoneStatus(), Status::notDetermined);
}

TEST_F(MicrophonePermissionTest, ServicesThatNeverAnswerAreWaitedForInVainAndNotForLong)
{
    portal.ignore("Read");
    sources.queryPatience = std::chrono::milliseconds(50);
    EXPECT_EQ(microphoneStatus(), Status::authorized);
    sources.sandbox = QStringLiteral("org.stirra.Sandboxed");
    store.ignore("Lookup");
    EXPECT_EQ(microphoneStatus(), Status::notDetermined);
}

TEST_F(MicrophonePermissionTest, WithoutAnyServiceNothingForbidsIt)
{
    testsupport::PrivateRuntime runtime;
    const testsupport::PrivateBus empty(runtime);
    use(empty.connect());
    EXPECT_EQ(microphoneStatus(), Status::authorized);
    sources.sandbox = QStringLiteral("org.stirra.Sandboxed");
    EXPECT_EQ(microphoneStatus(), Status::notDetermined);
}

TEST_F(MicrophonePermissionTest, WithoutABusNothingForbidsIt)
{
    use(QDBusConnection(QStringLiteral("to nowhere")));
    EXPECT_EQ(microphoneStatus(), Status::authorized);
    sources.sandbox = QStringLiteral("org.stirra.Sandboxed");
    EXPECT_EQ(microphoneStatus(), Status::notDetermined);
}

} // namespace platform
