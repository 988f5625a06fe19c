#include "Platform/Linux/Session/TerminationSignals.h"

#include "Tests/Support/Eventually.h"

#include <gmock/gmock.h>

#include <csignal>
#include <memory>
#include <thread>

namespace platform {

namespace {

using testsupport::eventually;
using testsupport::letPass;

class TerminationSignalsTest : public testing::TestWithParam<int>
{};

} // namespace

TEST_P(TerminationSignalsTest, ComeFromTheRunLoopAndDoNotEndTheProcess)
{
    TerminationSignals signals;
    int count = 0;
    QObject::connect(&signals, &TerminationSignals::received, [&count] { ++count; });
    std::raise(GetParam());
    EXPECT_EQ(count, 0);
    EXPECT_TRUE(eventually([&] { return count == 1; }));
    std::raise(GetParam());
    EXPECT_TRUE(eventually([&] { return count == 2; }));
}

TEST_P(TerminationSignalsTest, EndTheProcessAgainWhenTheObjectIsGone)
{
    EXPECT_EXIT(
        {
            std::make_unique<TerminationSignals>().reset();
            std::raise(GetParam());
        },
        testing::KilledBySignal(GetParam()), "");
}

INSTANTIATE_TEST_SUITE_P(Signals, TerminationSignalsTest, testing::Values(SIGTERM, SIGINT, SIGHUP),
                         [](const auto &signal) { return std::string(sigabbrev_np(signal.param)); });

TEST(TerminationSignalsOrderTest, SeveralAtOnceAreAtLeastOneRequest)
{
    TerminationSignals signals;
    int count = 0;
    QObject::connect(&signals, &TerminationSignals::received, [&count] { ++count; });
    for (int i = 0; i < 100; ++i) {
        std::raise(i % 2 == 0 ? SIGTERM : SIGINT);
    }
    EXPECT_TRUE(eventually([&] { return count >= 1; }));
    letPass(std::chrono::milliseconds(20));
    EXPECT_LE(count, 100);
}

TEST(TerminationSignalsOrderTest, ASignalInAnotherThreadIsReceivedInTheMainThread)
{
    TerminationSignals signals;
    std::thread::id receivedIn;
    QObject::connect(&signals, &TerminationSignals::received,
                     [&receivedIn] { receivedIn = std::this_thread::get_id(); });
    std::thread([] { pthread_kill(pthread_self(), SIGTERM); }).join();
    EXPECT_TRUE(eventually([&] { return receivedIn != std::thread::id(); }));
    EXPECT_EQ(receivedIn, std::this_thread::get_id());
}

} // namespace platform
