// The manager of event taps in a session, with its user's real input.

#include "SharedCore/EventTapManager/EventTapManager.h"
#include "SharedCore/EventTapManager/TextTyping.h"

#include "Tests/Platform/Listening/ListeningTest.h"
#include "Tests/Platform/Secrets/ProcessMemory.h"

#include <QThread>

#include <future>
#include <thread>

namespace sharedcore {

namespace {

using platform::PointerLocation;
using testing::ElementsAre;
using testing::Pair;
using testing::SizeIs;
using testsupport::eventually;

class ListeningSessionTest : public platform::XListeningTest
{
protected:
    [[nodiscard]] EventTapManager::MouseCallback toLocations()
    {
        return [this](PointerLocation location) { locations.push_back(location); };
    }

    [[nodiscard]] EventTapManager::KeyCallback toPresses()
    {
        return [this](const std::string &characters, std::uint16_t code, bool isDelete) {
            EXPECT_EQ(isDelete, code == 51);
            presses.emplace_back(characters, code);
        };
    }

    std::vector<PointerLocation> locations;
    std::vector<std::pair<std::string, int>> presses;
};

} // namespace

TEST_F(ListeningSessionTest, TheUsersInputIsToldAsTheMasksSay)
{
    EventTapManager manager;
    EXPECT_TRUE(manager.checkAccessibility());
    ASSERT_TRUE(manager.startMouseTracking(toLocations()));
    ASSERT_TRUE(manager.startKeyTracking(toPresses()));
    hold(2);
    moveTo(50, 60);
    letGo(2);
    moveTo(70, 80);
    press(KEY_LEFTSHIFT);
    type({KEY_A});
    release(KEY_LEFTSHIFT);
    type({KEY_BACKSPACE, KEY_1});
    ASSERT_TRUE(eventually([this] { return presses.size() == 3 && !locations.empty(); }));
    EXPECT_THAT(locations, ElementsAre(PointerLocation{70, 80}));
    EXPECT_THAT(presses, ElementsAre(Pair("A", 0), Pair("", 51), Pair("1", 18)));
}

TEST_F(ListeningSessionTest, StartedTwiceItDeliversTwiceAndStoppedOnceMore)
{
    EventTapManager manager;
    ASSERT_TRUE(manager.startKeyTracking(toPresses()));
    ASSERT_TRUE(manager.startKeyTracking(toPresses()));
    type({KEY_A});
    ASSERT_TRUE(eventually([this] { return presses.size() == 2; }));
    manager.stopAll();
    type({KEY_B});
    ASSERT_TRUE(eventually([this] { return presses.size() == 3; }));
    EXPECT_THAT(presses, ElementsAre(Pair("a", 0), Pair("a", 0), Pair("b", 11)));
}

TEST_F(ListeningSessionTest, CallbacksComeOnTheThreadThatStarted)
{
    QThread thread;
    QObject place;
    place.moveToThread(&thread);
    thread.start();
    const auto onThread = [&place](const auto &work) {
        QMetaObject::invokeMethod(&place, work, Qt::BlockingQueuedConnection);
    };
    std::promise<std::pair<QThread *, std::string>> told;
    std::optional<EventTapManager> manager;
    bool isStarted = false;
    onThread([&] {
        isStarted = manager.emplace().startKeyTracking(
            [&told](const std::string &characters, std::uint16_t /*code*/, bool /*isDelete*/) {
                told.set_value({QThread::currentThread(), characters});
            });
    });
    ASSERT_TRUE(isStarted);
    type({KEY_X});
    auto answer = told.get_future();
    const bool hasCome = answer.wait_for(std::chrono::seconds(20)) == std::future_status::ready;
    onThread([&] { manager.reset(); });
    thread.quit();
    thread.wait();
    ASSERT_TRUE(hasCome);
    EXPECT_THAT(answer.get(), Pair(&thread, "x"));
}

// A program that types when it sees keys would see its own for ever.
TEST_F(ListeningSessionTest, WhatTheProgramTypesItselfIsNotToldAndWhatTheUserDoesIs)
{
    EventTapManager early;
    ASSERT_TRUE(early.startKeyTracking(toPresses()));
    EXPECT_TRUE(typeText("abc"));
    EventTapManager manager;
    ASSERT_TRUE(manager.startKeyTracking(toPresses()));
    EXPECT_TRUE(typeText("ab\u6f22"));
    type({KEY_A});
    ASSERT_TRUE(eventually([this] { return presses.size() == 2; }));
    EXPECT_THAT(presses, ElementsAre(Pair("a", 0), Pair("a", 0)));
    std::thread thread([] { EXPECT_TRUE(typeText("abba")); });
    type({KEY_B});
    ASSERT_TRUE(eventually([this] { return presses.size() == 4; }));
    thread.join();
    type({KEY_C});
    ASSERT_TRUE(eventually([this] { return presses.size() == 6; }));
    EXPECT_THAT(presses, ElementsAre(Pair("a", 0), Pair("a", 0), Pair("b", 11), Pair("b", 11), Pair("c", 8),
                                     Pair("c", 8)));
}

TEST_F(ListeningSessionTest, WhatIsTypedIsNowhereInTheMemory)
{
    // Of the letters of the keys below, and as UTF-16.
    const platform::MaskedText narrow("qazw", "sxedc");
    const platform::MaskedText wide(std::string_view("q\0a\0z\0", 6), std::string_view("w\0s\0x\0", 6));
    EventTapManager manager;
    int count = 0;
    ASSERT_TRUE(manager.startKeyTracking([&count](const auto &...) { ++count; }));
    for (int i = 0; i < 20; ++i) {
        type({KEY_Q, KEY_A, KEY_Z, KEY_W, KEY_S, KEY_X, KEY_E, KEY_D, KEY_C});
    }
    ASSERT_TRUE(eventually([&count] { return count == 180; }));
    EXPECT_EQ(countInMemory(narrow), 0);
    EXPECT_EQ(countInMemory(wide), 0);
}

} // namespace sharedcore
