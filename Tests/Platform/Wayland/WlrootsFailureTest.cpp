// Posting where the compositor is missing, goes away, comes back, takes back what it offered or says nothing.

#include "Platform/FallbackInputPoster.h"
#include "Tests/Platform/Wayland/WlrootsPosterTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/Wayland/PrivateSway.h"
#include "Tests/Support/Wayland/PrivateWeston.h"
#include "Tests/Support/Wayland/WaylandStandIn.h"
#include "Tests/Support/Wayland/WaylandUser.h"

#include <QDir>

#include <gmock/gmock.h>

#include <csignal>

namespace platform {

namespace {

using testing::HasSubstr;
using testsupport::eventually;
using testsupport::PrivateRuntime;
using testsupport::PrivateSway;
using testsupport::PrivateWeston;
using testsupport::ScopedWaylandDisplay;
using testsupport::WaylandStandIn;
using testsupport::WaylandUser;
using testsupport::wlrootsPosterOn;

constexpr std::uint16_t leftCommand = 55;

class WlrootsFailureTest : public testing::Test
{
protected:
    void expectLost(InputPoster &poster)
    {
        EXPECT_FALSE(poster.isOpen());
        EXPECT_FALSE(poster.isReady());
        EXPECT_NE(poster.obstacle(), Obstacle());
        EXPECT_FALSE(poster.post(MouseMoved{{10, 10}}));
        EXPECT_FALSE(poster.post(KeyEvent{leftCommand, false, 0}));
        EXPECT_FALSE(poster.post(KeyEvent{leftCommand, true, 0}));
        EXPECT_FALSE(poster.post(ScrollPixels{1}));
        EXPECT_EQ(poster.pointerLocation(), std::nullopt);
    }

    PrivateRuntime runtime;
    QString display = runtime.path(QStringLiteral("wayland"));
};

} // namespace

TEST_F(WlrootsFailureTest, WithoutACompositorThereIsNoPoster)
{
    for (const auto &name :
         {QString(), display, QStringLiteral("no-such-display"), QString(200, QLatin1Char('x'))}) {
        Obstacle why;
        const ScopedWaylandDisplay scope(name);
        EXPECT_EQ(WlrootsInputPoster::create(why), nullptr) << qPrintable(name);
        EXPECT_EQ(why.reason, QStringLiteral("No Wayland compositor answers."));
        EXPECT_FALSE(why.remedy.isEmpty());
    }
}

TEST_F(WlrootsFailureTest, ACompositorThatLetsNobodyPostGivesNoPosterAndSaysWhy)
{
    const PrivateWeston weston(runtime);
    ASSERT_TRUE(weston.isOpen());
    Obstacle why;
    EXPECT_EQ(wlrootsPosterOn(weston.display(), why), nullptr);
    EXPECT_THAT(why.reason.toStdString(), HasSubstr("zwlr_virtual_pointer_manager_v1"));
}

TEST_F(WlrootsFailureTest, ACompositorThatNeverAnswersGivesNoPosterAndSaysWhy)
{
    WaylandStandIn compositor(display);
    compositor.pause();
    const ScopedWaylandDisplay scope(display);
    Obstacle why;
    EXPECT_EQ(WlrootsInputPoster::create(why), nullptr);
    EXPECT_THAT(why.reason.toStdString(), HasSubstr("does not answer"));
    compositor.goOn();
    EXPECT_NE(wlrootsPosterOn(display), nullptr);
}

TEST_F(WlrootsFailureTest, ACompositorThatStopsReadingIsLostInTheEndAndHoldsNobodyUp)
{
    WaylandStandIn compositor(display);
    const auto poster = wlrootsPosterOn(display);
    ASSERT_NE(poster, nullptr);
    compositor.pause();
    constexpr int moreThanFits = 100000;
    for (int i = 0; i < moreThanFits && poster->isOpen(); ++i) {
        const bool isPosted = poster->post(MouseMoved{{static_cast<double>(i % 2), 0}});
        ASSERT_EQ(isPosted, poster->isOpen());
    }
    expectLost(*poster);
    compositor.goOn();
    EXPECT_NE(wlrootsPosterOn(display), nullptr);
}

TEST_F(WlrootsFailureTest, WhenTheOffersAreTakenBackThePosterIsLostAndAskedForAgain)
{
    std::optional<WaylandStandIn> compositor(std::in_place, display);
    const auto direct = wlrootsPosterOn(display);
    ASSERT_NE(direct, nullptr);
    const ScopedWaylandDisplay scope(display);
    FallbackInputPoster poster({WlrootsInputPoster::create});
    ASSERT_TRUE(eventually([&] { return poster.post(MouseMoved{{1, 1}}); }));

    compositor->takeBack();

    EXPECT_TRUE(eventually([&] { return !direct->isOpen(); }));
    expectLost(*direct);
    EXPECT_TRUE(eventually([&] {
        return !poster.post(MouseMoved{{2, 2}}) &&
               poster.obstacle().reason.contains(QStringLiteral("does not offer"));
    }));
    compositor.reset();
    compositor.emplace(display);
    EXPECT_TRUE(eventually([&] { return poster.post(MouseMoved{{1, 1}}); }));
}

TEST_F(WlrootsFailureTest, AnErrorOfTheCompositorsEndsTheConnectionAndNotTheProcess)
{
    WaylandStandIn compositor(display);
    const auto poster = wlrootsPosterOn(display);
    ASSERT_NE(poster, nullptr);
    compositor.refuse();
    EXPECT_TRUE(eventually([&] { return !poster->isOpen(); }));
    expectLost(*poster);
    EXPECT_NE(wlrootsPosterOn(display), nullptr);
}

TEST_F(WlrootsFailureTest, WhenTheCompositorIsKilledNothingIsPostedAndNothingCrashes)
{
    std::optional<PrivateSway> sway(std::in_place, runtime);
    ASSERT_TRUE(sway->isOpen());
    const auto poster = wlrootsPosterOn(sway->display());
    ASSERT_NE(poster, nullptr);
    EXPECT_TRUE(poster->post(KeyEvent{leftCommand, true, 0}));

    sway->process().sendSignal(SIGKILL);

    EXPECT_TRUE(eventually([&] { return !poster->isOpen(); }));
    expectLost(*poster);
}

TEST_F(WlrootsFailureTest, AStoppedCompositorHoldsNobodyUpAndIsNotGivenUpForIt)
{
    PrivateSway sway(runtime);
    ASSERT_TRUE(sway.isOpen());
    const auto poster = wlrootsPosterOn(sway.display());
    ASSERT_NE(poster, nullptr);
    sway.process().sendSignal(SIGSTOP);
    EXPECT_TRUE(poster->post(MouseMoved{{1, 1}}));
    EXPECT_TRUE(poster->post(MouseMoved{{0, 0}}));
    const ScopedWaylandDisplay scope(sway.display());
    Obstacle why;
    EXPECT_EQ(WlrootsInputPoster::create(why), nullptr);
    EXPECT_THAT(why.reason.toStdString(), HasSubstr("does not answer"));
    sway.process().sendSignal(SIGCONT);
    EXPECT_NE(wlrootsPosterOn(sway.display()), nullptr);
    EXPECT_TRUE(poster->isOpen());
}

TEST_F(WlrootsFailureTest, WhatIsMadeAndDroppedLeavesNoFileOpen)
{
    const WaylandStandIn compositor(display, WaylandUser::keymapOfLayout("us"));
    const auto openFiles = [] { return QDir(QStringLiteral("/proc/self/fd")).entryList().size(); };
    ASSERT_NE(wlrootsPosterOn(display), nullptr);
    ASSERT_TRUE(eventually([&] { return compositor.clientCount() == 0; }));
    const auto before = openFiles();
    for (int i = 0; i < 20; ++i) {
        const auto poster = wlrootsPosterOn(display);
        ASSERT_NE(poster, nullptr);
        EXPECT_EQ(poster->obstacle(), Obstacle());
        EXPECT_TRUE(poster->post(KeyEvent{leftCommand, true, 0}));
        EXPECT_TRUE(poster->post(KeyEvent{leftCommand, false, 0}));
    }
    EXPECT_TRUE(eventually([&] { return compositor.clientCount() == 0; }));
    EXPECT_EQ(openFiles(), before);
}

} // namespace platform
