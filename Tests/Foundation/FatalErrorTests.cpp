#include "Foundation/FatalError.h"

#include <gtest/gtest.h>

namespace foundation {

TEST(FatalErrorTest, AnErrorEndsTheProcessWithItsMessage)
{
    EXPECT_DEATH(fatalError("arithmetic overflow"), "^Fatal error: arithmetic overflow\n$");
}

TEST(FatalErrorTest, AFailedAssertionEndsItWithItsPlace)
{
    EXPECT_DEATH(assertionFailure("SharedUI/Example", 7), "^SharedUI/Example:7: Assertion failed\n$");
}

} // namespace foundation
