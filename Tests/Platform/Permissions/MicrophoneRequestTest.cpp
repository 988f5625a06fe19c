// The request for the microphone, with services that answer, refuse, are silent or die.

#include "Tests/Platform/Permissions/PermissionsTest.h"

#include <QCoreApplication>
#include <QDBusVariant>

#include <optional>

namespace platform {

using testing::IsEmpty;
using testing::SizeIs;
using testsupport::eventually;

constexpr auto microphone = &LinuxPermissions::requestMicrophone;
constexpr std::chrono::milliseconds briefly(200);

class MicrophoneRequestTest : public PermissionsTest
{
protected:
    // In a sandbox, where the user has not been asked yet.
    MicrophoneRequestTest()
    {
        keepInStore({});
        setUp(portal);
    }

    static void setUp(Service &portal)
    {
        portal.answer("Get", {QVariant::fromValue(QDBusVariant(1U))});
        portal.answerLater("AccessDevice");
    }

    // Waits until the portal has the user asked.
    [[nodiscard]] static bool isAsked(const Service &portal)
    {
        return eventually([&portal] { return portal.calls("AccessDevice").size() == 1; });
    }
};

TEST_F(MicrophoneRequestTest, OutsideOfASandboxNobodyIsAsked)
{
    sources.sandbox.reset();
    EXPECT_TRUE(answers(microphone, true));
    tellSwitch(true);
    EXPECT_TRUE(answers(microphone, false));
    EXPECT_THAT(portal.calls("AccessDevice"), IsEmpty());
}

TEST_F(MicrophoneRequestTest, WhatIsSettledIsNotAskedAgain)
{
    keepInStore({QStringLiteral("yes")});
    EXPECT_TRUE(answers(microphone, true));
    keepInStore({QStringLiteral("no")});
    EXPECT_TRUE(answers(microphone, false));
    keepInStore({});
    tellSwitch(true);
    EXPECT_TRUE(answers(microphone, false));
    EXPECT_THAT(portal.calls("AccessDevice"), IsEmpty());
}

TEST_F(MicrophoneRequestTest, TheUserIsAskedForThisProcessAndOneDevice)
{
    make(microphone);
    ASSERT_TRUE(isAsked(portal));
    const auto arguments = portal.calls("AccessDevice").front().arguments();
    EXPECT_EQ(arguments.value(0), QVariant(static_cast<unsigned>(QCoreApplication::applicationPid())));
    EXPECT_EQ(arguments.value(1).toStringList(), QStringList(QStringLiteral("microphone")));
    portal.respond(0);
    EXPECT_TRUE(isAnswered(true));
}

TEST_F(MicrophoneRequestTest, WhatIsNotGrantedIsDenied)
{
    for (const unsigned code : {1U, 2U, 3U}) {
        portal.answerAtOnce("AccessDevice", code);
        EXPECT_TRUE(answers(microphone, false)) << code;
    }
}

TEST_F(MicrophoneRequestTest, TheAnswerMayComeBeforeThePortalHasTakenTheCall)
{
    portal.answerAtOnce("AccessDevice", 0);
    EXPECT_TRUE(answers(microphone, true));
    portal.respond(1); // nobody listens any more
    EXPECT_TRUE(isAnswered(true));
}

TEST_F(MicrophoneRequestTest, APortalThatRefusesTheCallDenies)
{
    portal.refuse("AccessDevice", "org.freedesktop.portal.Error.NotAllowed");
    EXPECT_TRUE(answers(microphone, false));
    portal.answer("AccessDevice", {QStringLiteral("no handle")});
    EXPECT_TRUE(answers(microphone, false));
    portal.refuse("Get", "org.freedesktop.DBus.Error.InvalidArgs"); // has no such interface
    EXPECT_TRUE(answers(microphone, false));
}

TEST_F(MicrophoneRequestTest, APortalThatNeverAnswersDenies)
{
    sources.answerPatience = briefly;
    portal.ignore("AccessDevice");
    EXPECT_TRUE(answers(microphone, false));
    portal.ignore("Get");
    EXPECT_TRUE(answers(microphone, false));
    portal.ignore("Read");
    EXPECT_TRUE(answers(microphone, false));
}

// A patience that is enough for the services of this machine runs out while the user thinks.
TEST_F(MicrophoneRequestTest, TheUserMayTakeAnyTime)
{
    const auto comesToAsk = [this] {
        make(microphone);
        const auto before = portal.calls("AccessDevice").size();
        return eventually([&] { return !given.empty() || portal.calls("AccessDevice").size() > before; }) &&
               settles(portalName) && given.empty();
    };
    sources.answerPatience = briefly;
    while (!comesToAsk()) {
        ASSERT_TRUE(eventually([this] { return !given.empty(); }));
        sources.answerPatience *= 2;
        ASSERT_LT(sources.answerPatience, std::chrono::seconds(30));
    }
    testsupport::letPass(sources.answerPatience + briefly);
    EXPECT_THAT(given, IsEmpty());
    portal.respond(0);
    EXPECT_TRUE(isAnswered(true));
}

TEST_F(MicrophoneRequestTest, RequestsAtTheSameTimeAreAnsweredEach)
{
    LinuxPermissions permissions(sources);
    const auto take = [this](bool isGranted) { given.push_back(isGranted); };
    tellSwitch(true);
    permissions.requestMicrophone(take);
    permissions.requestMicrophone(take);
    ASSERT_TRUE(eventually([this] { return given.size() == 2; }));
    EXPECT_THAT(given, testing::Each(false));
}

class DyingPortalTest : public MicrophoneRequestTest
{
protected:
    DyingPortalTest()
    {
        otherStore.answer("Lookup", [this](const QDBusMessage &call) {
            return call.createErrorReply(QDBusError::UnknownObject, sources.sandbox.value());
        });
        other->refuse("Read", "org.freedesktop.portal.Error.NotFound");
        setUp(*other);
        use(bus.connect());
    }

    testsupport::PrivateRuntime runtime;
    testsupport::PrivateBus bus{runtime};
    Service otherStore{bus, storeName};
    std::optional<Service> other{std::in_place, bus, portalName};
};

TEST_F(DyingPortalTest, APortalThatDiesBeforeItAnswersDenies)
{
    other->ignore("AccessDevice");
    make(microphone);
    ASSERT_TRUE(isAsked(*other));
    other.reset();
    EXPECT_TRUE(isAnswered(false));
}

TEST_F(DyingPortalTest, APortalThatDiesWhileTheUserThinksDenies)
{
    make(microphone);
    ASSERT_TRUE(isAsked(*other) && settles(portalName));
    EXPECT_THAT(given, IsEmpty());
    other.reset();
    EXPECT_TRUE(isAnswered(false));
}

TEST_F(DyingPortalTest, ABusThatDiesWhileTheUserThinksDenies)
{
    make(microphone);
    ASSERT_TRUE(isAsked(*other) && settles(portalName));
    bus.process().end();
    EXPECT_TRUE(isAnswered(false));
}

TEST_F(DyingPortalTest, AStoreThatDiesLeavesItToTheUser)
{
    std::optional<Service> dying;
    testsupport::PrivateRuntime ownRuntime;
    const testsupport::PrivateBus ownBus(ownRuntime);
    dying.emplace(ownBus, storeName);
    dying->ignore("Lookup");
    Service asking(ownBus, portalName);
    asking.refuse("Read", "org.freedesktop.portal.Error.NotFound");
    setUp(asking);
    use(ownBus.connect());
    make(microphone);
    ASSERT_TRUE(eventually([&] { return dying->calls("Lookup").size() == 1; }));
    dying.reset();
    ASSERT_TRUE(isAsked(asking));
    asking.respond(0);
    EXPECT_TRUE(isAnswered(true));
}

TEST_F(DyingPortalTest, WithoutABusItIsDeniedInASandboxAlone)
{
    use(QDBusConnection(QStringLiteral("to nowhere")));
    EXPECT_TRUE(answers(microphone, false));
    sources.sandbox.reset();
    EXPECT_TRUE(answers(microphone, true));
}

} // namespace platform
