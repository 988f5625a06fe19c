// What the tests of the sensors share: a machine of made-up hardware, and what is printed.
#pragma once

#include "Tests/Fakes/FakeHardwareRegistry.h"

#include <gmock/gmock.h>

#include <cstdio>

namespace sharedcore {

// The lines that the action prints on the standard output.
template <class Action> [[nodiscard]] std::string printedBy(const Action &action)
{
    std::fflush(stdout);
    testing::internal::CaptureStdout();
    action();
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout();
}

[[nodiscard]] inline std::vector<std::byte> bytes(std::initializer_list<int> values)
{
    std::vector<std::byte> result;
    for (const int value : values) {
        result.push_back(static_cast<std::byte>(value));
    }
    return result;
}

// After each test nothing is held that was found or opened.
class SensorTest : public testing::Test
{
protected:
    void TearDown() override
    {
        EXPECT_EQ(registry_.heldServices(), 0U);
        EXPECT_EQ(registry_.openConnections(), 0U);
    }

    fakes::FakeHardwareRegistry registry_;
};

} // namespace sharedcore
