#include "Platform/Linux/X11/XWindowPresenter.h"

#include <gmock/gmock.h>

namespace platform {

using testing::Optional;

TEST(StartupIdTest, TheTimeIsTheNumberAfterTheLastMark)
{
    EXPECT_THAT(timeInStartupId(QStringLiteral("dolphin/stirra/1234-5-host_TIME98765")), Optional(98765U));
    EXPECT_THAT(timeInStartupId(QStringLiteral("a_TIME1_TIME2")), Optional(2U));
    EXPECT_THAT(timeInStartupId(QStringLiteral("_TIME0")), Optional(0U));
    EXPECT_THAT(timeInStartupId(QStringLiteral("x_TIME4294967295")), Optional(4294967295U));
}

TEST(StartupIdTest, WhatIsNoTimeIsNone)
{
    for (const auto *id :
         {"", "no time here", "x_TIME", "x_TIMEsoon", "x_TIME-1", "x_TIME4294967296", "x_time5"}) {
        EXPECT_EQ(timeInStartupId(QString::fromLatin1(id)), std::nullopt) << id;
    }
}

} // namespace platform
