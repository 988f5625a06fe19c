// An item in a panel that is in the test's hands.
#pragma once

#include "Platform/MenuBarServices.h"
#include "Tests/Fakes/FakePlatform.h"
#include "Tests/Platform/Portal/PortalTest.h"
#include "Tests/Platform/StatusNotifier/WatcherStandIn.h"
#include "Tests/Support/Eventually.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace platform {

class StatusItemTest : public testing::Test
{
protected:
    using Seen = testsupport::SeenItem;
    using Watcher = testsupport::WatcherStandIn;

    static std::unique_ptr<Watcher> startWatcher(bool hasHost = true)
    {
        return std::make_unique<Watcher>(testsupport::sessionBus().connect(), hasHost);
    }

    void makeItem() { item = services->makeStatusItem({"org.stirra.Test", "Heart"}); }

    // Makes an item, and waits until the watcher has it.
    [[nodiscard]] std::unique_ptr<Seen> showItem(Watcher &watcher)
    {
        makeItem();
        EXPECT_TRUE(testsupport::eventually([&watcher] { return watcher.registered.size() == 1; }));
        return see(watcher);
    }

    static std::unique_ptr<Seen> see(const Watcher &watcher)
    {
        return std::make_unique<Seen>(testsupport::sessionBus().connect(),
                                      watcher.registered.value(watcher.registered.size() - 1));
    }

    // One pixel, covered so far.
    static TemplateImage image(int coverage)
    {
        return {1, 1, {{1, 1, 1, {static_cast<std::uint8_t>(coverage)}}}};
    }

    fakes::FakePlatform platform;
    std::unique_ptr<MenuBarServices> services = makeNativeMenuBar();
    std::shared_ptr<StatusItem> item;
};

} // namespace platform
