// Which ways to post a session has, and that Xwayland is none of them.

#include "Platform/Linux/InputPosters.h"
#include "Platform/Linux/SessionSilentKeys.h"
#include "Platform/Linux/Wayland/WaylandWindow.h"
#include "Platform/Linux/X11/XtestInputPoster.h"
#include "Tests/Platform/Wayland/WlrootsPosterTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/Wayland/PrivateSway.h"
#include "Tests/Support/Wayland/PrivateWeston.h"
#include "Tests/Support/Wayland/PrivateXwayland.h"
#include "Tests/Support/Wayland/WaylandStandIn.h"
#include "Tests/Support/XObserver.h"

#include <gmock/gmock.h>

#include <map>

namespace platform {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testsupport::PrivateRuntime;
using testsupport::PrivateSway;
using testsupport::PrivateXwayland;
using testsupport::WaylandStandIn;
using testsupport::XObserver;

// The environment that names the session, put back in the end.
class WaylandSessionTest : public testing::Test
{
protected:
    WaylandSessionTest()
    {
        for (const auto *name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR", "STIRRA_INPUT_BACKEND"}) {
            before[name] = qgetenv(name);
            qunsetenv(name);
        }
        qputenv("XDG_RUNTIME_DIR", runtime.runtimeFolder().toUtf8());
    }

    ~WaylandSessionTest() override
    {
        for (const auto &[name, value] : before) {
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
        }
    }

    [[nodiscard]] static std::vector<std::string> names()
    {
        std::vector<std::string> list;
        for (const auto &poster : namedInputPosters()) {
            list.push_back(poster.name.toStdString());
        }
        return list;
    }

    [[nodiscard]] QString socket(const QString &name) const
    {
        return runtime.runtimeFolder() + QLatin1Char('/') + name;
    }

    PrivateRuntime runtime;
    std::map<const char *, QByteArray> before;
};

} // namespace

TEST_F(WaylandSessionTest, WithoutACompositorItIsAnX11Session)
{
    EXPECT_THAT(names(), ElementsAre("xtest", "uinput"));
    qputenv("WAYLAND_DISPLAY", "nobody-listens");
    EXPECT_THAT(names(), ElementsAre("xtest", "uinput"));
}

TEST_F(WaylandSessionTest, ACompositorThatIsNamedMakesItAWaylandSession)
{
    const WaylandStandIn byName(socket(QStringLiteral("wayland-7")));
    qputenv("WAYLAND_DISPLAY", "wayland-7");
    qputenv("DISPLAY", ":64321");
    EXPECT_THAT(names(), ElementsAre("wlroots", "portal", "uinput"));
    qputenv("WAYLAND_DISPLAY", socket(QStringLiteral("wayland-7")).toUtf8());
    EXPECT_EQ(names().front(), "wlroots");
}

TEST_F(WaylandSessionTest, TheDefaultSocketCountsWhereNothingIsNamed)
{
    const WaylandStandIn nameless(socket(QStringLiteral("wayland-0")));
    EXPECT_EQ(names().front(), "wlroots");
    qputenv("DISPLAY", ":64321");
    EXPECT_EQ(names().front(), "xtest") << "a compositor in a window of an X11 session";
}

TEST_F(WaylandSessionTest, WithoutASeatNoKeyCountsAsUsed)
{
    const testsupport::PrivateWeston weston(runtime);
    ASSERT_TRUE(weston.isOpen());
    qputenv("WAYLAND_DISPLAY", weston.display().toUtf8());
    const auto silentKey = sessionSilentKeys();
    EXPECT_EQ(silentKey(55), std::uint16_t{194});
    EXPECT_EQ(silentKey(54), std::uint16_t{189});
    EXPECT_EQ(silentKey(53), std::nullopt);
}

TEST_F(WaylandSessionTest, TheEnvironmentForcesAnyWayInAnySession)
{
    for (const auto *forced : {"xtest", "wlroots", "portal", "uinput", "none"}) {
        qputenv("STIRRA_INPUT_BACKEND", forced);
        EXPECT_THAT(inputPosterCandidates(), SizeIs(1)) << forced;
    }
    qputenv("STIRRA_INPUT_BACKEND", "another");
    EXPECT_EQ(inputPosterCandidates().size(), names().size());
}

TEST_F(WaylandSessionTest, AForcedWayIsTheOneThatIsNamed)
{
    const WaylandStandIn compositor(socket(QStringLiteral("wayland-0")));
    qputenv("STIRRA_INPUT_BACKEND", "wlroots");
    FallbackInputPoster poster(inputPosterCandidates());
    EXPECT_TRUE(testsupport::eventually([&] { return poster.post(MouseMoved{{1, 1}}); }));
    qputenv("STIRRA_INPUT_BACKEND", "xtest");
    FallbackInputPoster other(inputPosterCandidates());
    EXPECT_FALSE(other.post(MouseMoved{{1, 1}}));
    EXPECT_THAT(other.obstacle().reason.toStdString(), HasSubstr("X server"));
}

TEST_F(WaylandSessionTest, WhoDrawsWindowFramesIsAsked)
{
    EXPECT_FALSE(compositorDrawsWindowFrames()) << "without a compositor";
    {
        WaylandStandIn plain(socket(QStringLiteral("wayland-0")));
        EXPECT_FALSE(compositorDrawsWindowFrames());
        plain.pause();
        EXPECT_FALSE(compositorDrawsWindowFrames()) << "it never answers";
    }
    const PrivateSway sway(runtime);
    ASSERT_TRUE(sway.isOpen());
    qputenv("WAYLAND_DISPLAY", sway.display().toUtf8());
    EXPECT_TRUE(testsupport::eventually([] { return compositorDrawsWindowFrames(); }));
}

TEST_F(WaylandSessionTest, XwaylandIsRefusedAndGetsNothing)
{
    PrivateSway sway(runtime);
    ASSERT_TRUE(sway.isOpen());
    PrivateXwayland xwayland(runtime);
    ASSERT_TRUE(xwayland.isOpen()) << xwayland.process().standardError().constData();
    qputenv("DISPLAY", xwayland.display().toUtf8());
    XObserver observer(xwayland.display());
    ASSERT_TRUE(observer.isOpen());
    Obstacle why;

    EXPECT_EQ(XtestInputPoster::create(why), nullptr);
    EXPECT_THAT(why.reason.toStdString(), HasSubstr("Xwayland"));
    FallbackInputPoster poster({XtestInputPoster::create});
    EXPECT_FALSE(poster.post(MouseMoved{{10, 10}}));
    EXPECT_FALSE(poster.post(KeyEvent{55, true, 0}));
    EXPECT_FALSE(poster.post(KeyEvent{55, false, 0}));

    static_cast<void>(observer.client().sync());
    EXPECT_THAT(observer.events(), IsEmpty());
}

} // namespace platform
