#include "Platform/Linux/HeldKey.h"

#include <gmock/gmock.h>

namespace platform {

using testing::Optional;

TEST(HeldKeyTest, AReleaseGivesTheCarrierOfItsPressOnce)
{
    HeldKey key;
    EXPECT_TRUE(key.press(55, 194));
    EXPECT_THAT(key.release(55), Optional(194));
    EXPECT_EQ(key.release(55), std::nullopt);
}

TEST(HeldKeyTest, AReleaseOfAnotherKeyGivesNothingAndLeavesThePress)
{
    HeldKey key;
    EXPECT_EQ(key.release(0), std::nullopt);
    EXPECT_TRUE(key.press(55, 194));
    EXPECT_EQ(key.release(54), std::nullopt);
    EXPECT_THAT(key.release(55), Optional(194));
}

TEST(HeldKeyTest, APressTakesThePlaceOfTheOneBefore)
{
    HeldKey key;
    EXPECT_TRUE(key.press(55, 194));
    EXPECT_TRUE(key.press(54, 189));
    EXPECT_EQ(key.release(55), std::nullopt);
    EXPECT_THAT(key.release(54), Optional(189));
}

TEST(HeldKeyTest, APressWithoutACarrierIsNone)
{
    HeldKey key;
    EXPECT_TRUE(key.press(55, 194));
    EXPECT_FALSE(key.press(55, std::nullopt));
    EXPECT_EQ(key.release(55), std::nullopt);
}

} // namespace platform
