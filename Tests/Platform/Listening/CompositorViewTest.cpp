// What a compositor tells those who listen beside it.

#include "Platform/Linux/Listening/SessionView.h"

#include "Platform/Linux/Wayland/Keymap.h"
#include "Platform/Linux/Wayland/TypingKeymap.h"
#include "Tests/Platform/Wayland/WlrootsPosterTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/QtPrinting.h"
#include "Tests/Support/Wayland/PrivateSway.h"
#include "Tests/Support/Wayland/WaylandStandIn.h"
#include "Tests/Support/Wayland/WaylandUser.h"

#include <gmock/gmock.h>

#include <linux/input-event-codes.h>

#include <array>
#include <csignal>

namespace platform {

namespace {

using testing::HasSubstr;
using testsupport::eventually;
using testsupport::PrivateRuntime;
using testsupport::PrivateSway;
using testsupport::ScopedWaylandDisplay;
using testsupport::WaylandStandIn;
using testsupport::WaylandUser;

} // namespace

TEST(CompositorViewTest, TheLayoutAndTheDesktopAreTheCompositors)
{
    PrivateRuntime runtime;
    const PrivateSway sway(runtime, "output HEADLESS-1 scale 2\n");
    ASSERT_TRUE(sway.isOpen());
    const ScopedWaylandDisplay scope(sway.display());
    const auto view = openCompositorView();
    EXPECT_EQ(view->changedKeymap(), defaultKeymapText()) << "no keyboard yet";
    EXPECT_EQ(view->changedKeymap(), "");
    EXPECT_TRUE(eventually([&] { return view->desktop() == QRectF(0, 0, 640, 400); }));

    const auto german = WaylandUser::keymapOfLayout("de");
    WaylandUser user(sway.display(), german);
    user.type(KEY_A);
    QByteArray keymap;
    ASSERT_TRUE(eventually([&] { return !(keymap = view->changedKeymap()).isEmpty(); }));
    EXPECT_THAT(keymap.toStdString(), HasSubstr("German"));
    EXPECT_EQ(view->changedKeymap(), "");
}

TEST(CompositorViewTest, AKeymapThatAProgramTypesWithIsNotTheUsers)
{
    PrivateRuntime runtime;
    const PrivateSway sway(runtime);
    ASSERT_TRUE(sway.isOpen());
    const ScopedWaylandDisplay scope(sway.display());
    const auto view = openCompositorView();
    EXPECT_EQ(view->changedKeymap(), defaultKeymapText());
    WaylandUser user(sway.display(), WaylandUser::keymapOfLayout("de"));
    user.type(KEY_A);
    ASSERT_TRUE(eventually([&] { return view->changedKeymap().contains("German"); }));

    constexpr std::array symbols{KeySymbol{'x'}};
    const TypingKeymap typed(symbols);
    WaylandUser program(sway.display(), typed.text());
    program.type(typed.keyOf(symbols.front()).value());
    const auto later = openCompositorView(); // by now the compositor has told the other one too
    EXPECT_EQ(view->changedKeymap(), "");
    EXPECT_EQ(later->changedKeymap(), defaultKeymapText());

    user.type(KEY_A);
    for (const auto &each : {view.get(), later.get()}) {
        EXPECT_TRUE(eventually([&] { return each->changedKeymap().contains("German"); }));
    }
}

TEST(CompositorViewTest, AnAnswerThatIsLateCountsWhenItComes)
{
    PrivateRuntime runtime;
    PrivateSway sway(runtime, "output HEADLESS-1 scale 2\n");
    ASSERT_TRUE(sway.isOpen());
    const ScopedWaylandDisplay scope(sway.display());
    WaylandUser user(sway.display(), WaylandUser::keymapOfLayout("de"));
    user.type(KEY_A);
    sway.process().sendSignal(SIGSTOP);
    const auto view = openCompositorView();
    EXPECT_EQ(view->changedKeymap(), defaultKeymapText());
    EXPECT_TRUE(view->desktop().isEmpty());
    sway.process().sendSignal(SIGCONT);
    EXPECT_TRUE(eventually([&] { return view->desktop() == QRectF(0, 0, 640, 400); }));
    EXPECT_TRUE(eventually([&] { return view->changedKeymap().contains("German"); }));
}

TEST(CompositorViewTest, AScaleThatIsNoWholeNumberIsTheCompositors)
{
    PrivateRuntime runtime;
    const PrivateSway sway(runtime, "output HEADLESS-1 scale 1.5\n");
    ASSERT_TRUE(sway.isOpen());
    const ScopedWaylandDisplay scope(sway.display());
    const auto view = openCompositorView();
    EXPECT_TRUE(eventually([&] { return view->desktop() == QRectF(0, 0, 853, 533); }))
        << view->desktop().width() << " x " << view->desktop().height();
    ASSERT_TRUE(sway.command(QStringLiteral("output HEADLESS-1 scale 2")));
    EXPECT_TRUE(eventually([&] { return view->desktop() == QRectF(0, 0, 640, 400); }));
}

TEST(CompositorViewTest, AScreenThatComesLaterIsPartOfTheDesktop)
{
    PrivateRuntime runtime;
    const PrivateSway sway(runtime, "output HEADLESS-1 position 0 0\n");
    ASSERT_TRUE(sway.isOpen());
    const ScopedWaylandDisplay scope(sway.display());
    const auto view = openCompositorView();
    EXPECT_TRUE(eventually([&] { return view->desktop() == QRectF(0, 0, 1280, 800); }));
    ASSERT_TRUE(sway.command(QStringLiteral("create_output")));
    ASSERT_TRUE(sway.command(QStringLiteral("output HEADLESS-2 resolution 1000x900 position 1280 0")));
    EXPECT_TRUE(eventually([&] { return view->desktop() == QRectF(0, 0, 2280, 900); }));
}

TEST(CompositorViewTest, AScreenThatGoesIsNoPartOfTheDesktop)
{
    PrivateRuntime runtime;
    WaylandStandIn standIn(runtime.path(QStringLiteral("wayland")), {}, {.hasOutput = true});
    const ScopedWaylandDisplay scope(runtime.path(QStringLiteral("wayland")));
    const auto view = openCompositorView();
    EXPECT_TRUE(eventually([&] { return view->desktop() == QRectF(0, 0, 800, 450); }));
    standIn.takeBack();
    EXPECT_TRUE(eventually([&] { return view->desktop().isEmpty(); }));
}

TEST(CompositorViewTest, WithoutAnAnswerTheLayoutIsTheSystemsAndTheDesktopIsNotKnown)
{
    PrivateRuntime runtime;
    const auto expectDefaults = [] {
        const auto view = openCompositorView();
        EXPECT_EQ(view->changedKeymap(), defaultKeymapText());
        EXPECT_EQ(view->changedKeymap(), "");
        EXPECT_TRUE(view->desktop().isEmpty());
    };
    {
        const ScopedWaylandDisplay nobody(QStringLiteral("/nonexistent"));
        expectDefaults();
    }
    WaylandStandIn standIn(runtime.path(QStringLiteral("wayland")));
    standIn.pause();
    const ScopedWaylandDisplay silent(runtime.path(QStringLiteral("wayland")));
    expectDefaults();
}

} // namespace platform
