#include "Tests/Platform/Session/ApplicationLinkTest.h"

#include "Tests/Support/Eventually.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace testsupport {

namespace {

using Clock = std::chrono::steady_clock;

QString number(Clock::time_point time)
{
    return QString::number(
        std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count());
}

} // namespace

OtherApplication::OtherApplication(const PrivateRuntime &runtime, const QString &way, const QString &token,
                                   Clock::time_point when)
    : process_(QStringLiteral(STIRRA_APPLICATION_LINK_PROGRAM), {way, token, number(when)},
               runtime.environment())
{}

bool OtherApplication::isSole()
{
    static_cast<void>(
        eventually([this] { return process_.standardOutput().contains('\n') || !process_.isRunning(); }));
    return process_.standardOutput().startsWith("sole\n");
}

QList<QByteArray> OtherApplication::requests() const
{
    return process_.standardOutput().split('\n').mid(1);
}

bool OtherApplication::wasTold(const QByteArray &request) const
{
    return eventually([&] { return requests().contains(request); });
}

void expectExactlyOneOf(int count, const PrivateRuntime &runtime, const QString &way)
{
    const auto when = Clock::now() + std::chrono::milliseconds(300);
    std::vector<std::unique_ptr<OtherApplication>> all;
    for (int i = 0; i < count; ++i) {
        all.push_back(std::make_unique<OtherApplication>(runtime, way, QStringLiteral("t%1").arg(i), when));
    }
    std::vector<int> soles;
    for (int i = 0; i < count; ++i) {
        if (all[static_cast<std::size_t>(i)]->isSole()) {
            soles.push_back(i);
        }
    }
    ASSERT_EQ(soles.size(), 1U);
    for (int i = 0; i < count; ++i) {
        if (i != soles.front()) {
            EXPECT_EQ(all[static_cast<std::size_t>(i)]->process().waitForExit(), 0);
            EXPECT_TRUE(
                all[static_cast<std::size_t>(soles.front())]->wasTold("reopen t" + QByteArray::number(i)));
        }
    }
}

bool claimInTime(platform::ApplicationLink &link)
{
    const auto start = Clock::now();
    const bool isSole = link.claim();
    EXPECT_LT(Clock::now() - start, longestClaim);
    return isSole;
}

} // namespace testsupport
