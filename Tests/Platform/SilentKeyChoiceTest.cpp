#include "Platform/Linux/SilentKeyChoice.h"

#include <gmock/gmock.h>

#include <set>

namespace platform {

namespace {

using testing::Optional;

std::optional<std::uint16_t> choose(std::uint16_t virtualKeyCode, const std::set<std::uint16_t> &used)
{
    return chooseSilentKey(virtualKeyCode, [&used](std::uint16_t code) { return used.contains(code); });
}

} // namespace

TEST(SilentKeyChoiceTest, IsTheFirstCandidateThatIsNotUsed)
{
    EXPECT_THAT(choose(55, {}), Optional(194));
    EXPECT_THAT(choose(55, {189, 194}), Optional(240));
    EXPECT_THAT(choose(55, {240, 194, 0}), Optional(189));
    EXPECT_EQ(choose(55, {194, 240, 189}), std::nullopt);
    EXPECT_THAT(choose(54, {}), Optional(189));
    EXPECT_THAT(choose(54, {189}), Optional(240));
    EXPECT_THAT(choose(54, {189, 240}), Optional(194));
    EXPECT_EQ(choose(54, {194, 240, 189}), std::nullopt);
}

TEST(SilentKeyChoiceTest, OtherKeysHaveNoneAndNobodyIsAskedForThem)
{
    const auto neverAsked = [](std::uint16_t code) {
        ADD_FAILURE() << code;
        return false;
    };
    for (const std::uint16_t code : std::initializer_list<std::uint16_t>{0, 53, 56, 65535}) {
        EXPECT_EQ(chooseSilentKey(code, neverAsked), std::nullopt);
    }
}

} // namespace platform
