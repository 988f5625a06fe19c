#include "Tests/Fakes/FakePlatform.h"

#include "Platform/MenuBarServices.h"

namespace platform {

namespace {

TEST(StatusItemWithoutBus, HasNoButton)
{
    fakes::FakePlatform platform;
    const auto services = makeNativeMenuBar();
    const auto item = services->makeStatusItem({"org.stirra.Test", "Heart"});
    ASSERT_TRUE(item);
    EXPECT_EQ(item->button(), nullptr);
    item->setMenu({{"Quit", [] {}}});
    EXPECT_EQ(&services->scheduler(), &platform.scheduler());
}

} // namespace

} // namespace platform
