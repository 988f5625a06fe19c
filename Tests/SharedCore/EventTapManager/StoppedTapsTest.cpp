// What is left of taps that were stopped, where a program starts and stops again and again.

#include "SharedCore/EventTapManager/EventTapManager.h"

#include "Tests/Fakes/FakeInputListener.h"

#include <gtest/gtest.h>

namespace sharedcore {

TEST(StoppedTapsTest, NothingIsLeftOfThemHoweverOftenItIsStarted)
{
    constexpr int manyCycles = 300; // more than an X server has clients
    fakes::FakeInputListener listener;
    const platform::InputListenerInstallation installation(listener);
    EventTapManager manager;
    for (int cycle = 0; cycle < manyCycles; ++cycle) {
        ASSERT_TRUE(manager.startMouseTracking([](platform::PointerLocation) {}));
        ASSERT_TRUE(manager.startKeyTracking([](const auto &...) {}));
        ASSERT_EQ(listener.tapCount(), 2U) << "cycle " << cycle;
        manager.stopAll();
        ASSERT_EQ(listener.tapCount(), 0U) << "cycle " << cycle;
    }
}

} // namespace sharedcore
