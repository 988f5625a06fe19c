// The manager of event taps, on taps that the test plays.

#include "SharedCore/EventTapManager/EventTapManager.h"

#include "Platform/Trust.h"
#include "Tests/Fakes/FakeInputListener.h"

#include <gmock/gmock.h>

#include <optional>

namespace sharedcore {

namespace {

using platform::ObservedEvent;
using platform::ObservedKind;
using platform::PointerLocation;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStdout;

constexpr auto mouseStarted = "✅ Mouse tracking started\n";
constexpr auto keysStarted = "✅ Key tracking started\n";
constexpr auto mouseFailed = "❌ EventTap: Failed to create mouse tap. Check Accessibility permissions.\n";
constexpr auto keysFailed = "❌ EventTap: Failed to create key tap. Check Input Monitoring permissions.\n";

struct Press
{
    std::string characters;
    std::uint16_t keyCode = 0;
    bool isDelete = false;

    bool operator==(const Press &) const = default;
};

ObservedEvent move(double x, double y, ObservedKind kind = ObservedKind::mouseMoved)
{
    return {kind, {x, y}, 0, {}};
}

ObservedEvent key(std::int64_t code, const std::u16string &characters = {},
                  ObservedKind kind = ObservedKind::keyDown)
{
    return {kind, {}, code, characters};
}

class EventTapManagerTest : public testing::Test
{
protected:
    [[nodiscard]] EventTapManager::MouseCallback toLocations()
    {
        return [this](PointerLocation location) { locations.push_back(location); };
    }

    [[nodiscard]] EventTapManager::KeyCallback toPresses()
    {
        return [this](const std::string &characters, std::uint16_t code, bool isDelete) {
            presses.push_back({characters, code, isDelete});
        };
    }

    // What is printed meanwhile.
    template <class Work> [[nodiscard]] static std::string printed(const Work &work)
    {
        CaptureStdout();
        work();
        return GetCapturedStdout();
    }

    fakes::FakeInputListener listener;
    platform::InputListenerInstallation installation{listener};
    std::optional<EventTapManager> manager{std::in_place};
    std::vector<PointerLocation> locations;
    std::vector<Press> presses;
};

using EventTapManagerDeathTest = EventTapManagerTest;

} // namespace

TEST_F(EventTapManagerTest, WithoutTrustAStartSaysFalseAndNothingElse)
{
    listener.isTrustGiven = false;
    EXPECT_FALSE(manager->checkAccessibility());
    EXPECT_FALSE(platform::isTrusted());
    const auto text = printed([this] {
        EXPECT_FALSE(manager->startMouseTracking(toLocations()));
        EXPECT_FALSE(manager->startKeyTracking(toPresses()));
    });
    EXPECT_EQ(text, "");
    EXPECT_THAT(listener.masks, IsEmpty());
    EXPECT_EQ(listener.trustQuestionCount, 4);
}

TEST_F(EventTapManagerTest, WithoutTrustTheCallbackBeforeStays)
{
    ASSERT_TRUE(manager->startMouseTracking(toLocations()));
    listener.isTrustGiven = false;
    EXPECT_FALSE(manager->startMouseTracking([](PointerLocation) { FAIL() << "it was not to be stored"; }));
    listener.send(move(1, 2));
    EXPECT_THAT(locations, ElementsAre(PointerLocation{1, 2}));
}

TEST_F(EventTapManagerTest, AStartSaysSoAndTakesWhatItsMaskSays)
{
    EXPECT_TRUE(manager->checkAccessibility());
    const auto text = printed([this] {
        EXPECT_TRUE(manager->startMouseTracking(toLocations()));
        EXPECT_TRUE(manager->startKeyTracking(toPresses()));
    });
    EXPECT_EQ(text, std::string(mouseStarted) + keysStarted);
    EXPECT_THAT(listener.masks, ElementsAre(0xE0U, 0x400U));
}

TEST_F(EventTapManagerTest, ATapThatCannotBeMadeIsToldOf)
{
    listener.refusesTaps = true;
    const auto text = printed([this] {
        EXPECT_FALSE(manager->startMouseTracking(toLocations()));
        EXPECT_FALSE(manager->startKeyTracking(toPresses()));
    });
    EXPECT_EQ(text, std::string(mouseFailed) + keysFailed);
    manager->stopAll();
}

TEST_F(EventTapManagerTest, MovesAndTheTwoDragsAreToldByTheirPlace)
{
    ASSERT_TRUE(manager->startMouseTracking(toLocations()));
    listener.send(move(1, 2));
    listener.send(move(3, 4, ObservedKind::leftMouseDragged));
    listener.send(move(5.5, -6, ObservedKind::rightMouseDragged));
    listener.send(move(7, 8, ObservedKind::otherMouseDragged));
    listener.send(key(0, u"a"));
    EXPECT_THAT(locations,
                ElementsAre(PointerLocation{1, 2}, PointerLocation{3, 4}, PointerLocation{5.5, -6}));
}

TEST_F(EventTapManagerTest, KeysAreToldByWhatTheyTypeAndTheirCode)
{
    ASSERT_TRUE(manager->startKeyTracking(toPresses()));
    listener.send(key(0, u"a"));
    listener.send(key(56, {}, ObservedKind::flagsChanged));
    listener.send(key(41, u"ö"));
    listener.send(key(123));
    listener.send(key(65535, u"\x03"));
    listener.send(move(1, 2));
    EXPECT_THAT(presses, ElementsAre(Press{"a", 0, false}, Press{"ö", 41, false}, Press{"", 123, false},
                                     Press{"\x03", 65535, false}));
}

TEST_F(EventTapManagerTest, DeleteTypesNothing)
{
    ASSERT_TRUE(manager->startKeyTracking(toPresses()));
    listener.send(key(51, u"\b"));
    listener.send(key(117, u"\x7f"));
    EXPECT_THAT(presses, ElementsAre(Press{"", 51, true}, Press{"\x7f", 117, false}));
}

TEST_F(EventTapManagerTest, FourUnitsAreToldAtMostAndNoHalfOfAPair)
{
    ASSERT_TRUE(manager->startKeyTracking(toPresses()));
    for (const auto *characters : {u"abcd", u"abcdefgh", u"ab\U0001F600", u"abc\U0001F600",
                                   u"\U0001F600\U0001F601\U0001F602", u"e\u0301"}) {
        listener.send(key(1, characters));
    }
    std::vector<std::string> told;
    for (const auto &press : presses) {
        told.push_back(press.characters);
    }
    EXPECT_THAT(told, ElementsAre("abcd", "abcd", "ab\U0001F600", "abc", "\U0001F600\U0001F601", "e\u0301"));
}

TEST_F(EventTapManagerTest, HalfAPairThatComesAloneIsReplaced)
{
    ASSERT_TRUE(manager->startKeyTracking(toPresses()));
    listener.send(key(1, std::u16string{u'a', char16_t{0xD83D}}));
    listener.send(key(1, std::u16string{char16_t{0xDE00}, u'b'}));
    EXPECT_THAT(presses, ElementsAre(Press{"a\uFFFD", 1, false}, Press{"\uFFFD"
                                                                       "b",
                                                                       1, false}));
}

TEST_F(EventTapManagerDeathTest, AKeyCodeThatIsNoneEndsTheProcess)
{
    ASSERT_TRUE(manager->startKeyTracking(toPresses()));
    EXPECT_DEATH(listener.send(key(-1)), "Fatal error: Negative value is not representable");
    EXPECT_DEATH(listener.send(key(65536)), "Fatal error: Not enough bits to represent the passed value");
}

TEST_F(EventTapManagerTest, WithoutACallbackEventsPassBy)
{
    ASSERT_TRUE(manager->startMouseTracking({}));
    ASSERT_TRUE(manager->startKeyTracking({}));
    listener.send(move(1, 2));
    listener.send(key(0, u"a"));
}

TEST_F(EventTapManagerTest, StopAllOnOneThatNeverStartedDoesNothing)
{
    EXPECT_EQ(printed([this] {
                  manager->stopAll();
                  manager->stopAll();
                  manager.reset();
              }),
              "");
}

TEST_F(EventTapManagerTest, WhatWasStoppedStaysSoUntilItIsStartedAgain)
{
    ASSERT_TRUE(manager->startMouseTracking(toLocations()));
    ASSERT_TRUE(manager->startKeyTracking(toPresses()));
    EXPECT_EQ(printed([this] { manager->stopAll(); }), "");
    listener.send(move(1, 2));
    listener.send(key(0, u"a"));
    EXPECT_THAT(locations, IsEmpty());
    EXPECT_THAT(presses, IsEmpty());

    ASSERT_TRUE(manager->startKeyTracking(toPresses()));
    listener.send(move(1, 2));
    listener.send(key(0, u"a"));
    EXPECT_THAT(locations, IsEmpty());
    EXPECT_THAT(presses, SizeIs(1));
}

TEST_F(EventTapManagerTest, StartedTwiceItDeliversTwiceToTheSecondCallback)
{
    ASSERT_TRUE(manager->startMouseTracking([](PointerLocation) { FAIL() << "it was replaced"; }));
    ASSERT_TRUE(manager->startMouseTracking(toLocations()));
    ASSERT_TRUE(manager->startKeyTracking(toPresses()));
    ASSERT_TRUE(manager->startKeyTracking(toPresses()));
    listener.send(move(1, 2));
    listener.send(key(0, u"a"));
    EXPECT_THAT(locations, ElementsAre(PointerLocation{1, 2}, PointerLocation{1, 2}));
    EXPECT_THAT(presses, SizeIs(2));
}

TEST_F(EventTapManagerTest, WhatWasStartedBeforeTheLastStartIsNotStopped)
{
    ASSERT_TRUE(manager->startMouseTracking(toLocations()));
    ASSERT_TRUE(manager->startMouseTracking(toLocations()));
    manager->stopAll();
    listener.send(move(1, 2));
    EXPECT_THAT(locations, SizeIs(1));
}

TEST_F(EventTapManagerTest, ATapThatCouldNotBeMadeLeavesTheOneBeforeItWithTheNewCallback)
{
    ASSERT_TRUE(manager->startMouseTracking([](PointerLocation) { FAIL() << "it was replaced"; }));
    listener.refusesTaps = true;
    EXPECT_FALSE(manager->startMouseTracking(toLocations()));
    manager->stopAll();
    listener.send(move(1, 2));
    EXPECT_THAT(locations, SizeIs(1));
}

TEST_F(EventTapManagerTest, ATapThatTheSystemEndedStaysSoUntilAnotherStart)
{
    ASSERT_TRUE(manager->startKeyTracking(toPresses()));
    listener.endTaps();
    listener.send(key(0, u"a"));
    EXPECT_THAT(presses, IsEmpty());
    EXPECT_THAT(listener.masks, SizeIs(1)) << "it did not start again by itself";
    ASSERT_TRUE(manager->startKeyTracking(toPresses()));
    listener.send(key(0, u"a"));
    EXPECT_THAT(presses, SizeIs(1));
}

TEST_F(EventTapManagerTest, NothingIsLeftOfOneThatIsGone)
{
    const auto owned = std::make_shared<int>();
    ASSERT_TRUE(manager->startMouseTracking([owned](PointerLocation) {}));
    ASSERT_TRUE(manager->startMouseTracking([owned](PointerLocation) {}));
    ASSERT_TRUE(manager->startKeyTracking([owned](const auto &...) {}));
    EXPECT_EQ(owned.use_count(), 3) << "a callback that was replaced is let go of";
    manager.reset();
    EXPECT_EQ(listener.tapCount(), 0U);
    EXPECT_EQ(owned.use_count(), 1);
}

TEST_F(EventTapManagerTest, ACallbackMayStopStartAndDestroyTheManager)
{
    ASSERT_TRUE(manager->startMouseTracking([this](PointerLocation) {
        manager->stopAll();
        EXPECT_TRUE(manager->startMouseTracking([this](PointerLocation location) {
            manager.reset();
            locations.push_back(location);
        }));
    }));
    listener.send(move(1, 2));
    EXPECT_THAT(locations, IsEmpty());
    listener.send(move(3, 4));
    EXPECT_THAT(locations, ElementsAre(PointerLocation{3, 4}));
    EXPECT_FALSE(manager);
}

} // namespace sharedcore
