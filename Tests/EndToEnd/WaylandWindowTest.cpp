// The program's window on Wayland compositors, and what may happen to them while it runs.

#include "Tests/Support/Wayland/WaylandWindow.h"
#include "Tests/EndToEnd/WaylandDesktop.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/Wayland/PrivateSway.h"
#include "Tests/Support/Wayland/PrivateWeston.h"
#include "Tests/Support/Wayland/PrivateXwayland.h"
#include "Tests/Support/Wayland/WaylandActivation.h"
#include "Tests/Support/Wayland/WaylandUser.h"
#include "Tests/Support/XObserver.h"

#include <QFile>

#include <gmock/gmock.h>

#include <csignal>

using namespace testsupport;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Kind = WaylandEvent::Kind;

namespace endtoend {

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// What the process has loaded whose name has one of these words.
QStringList loadedLibraries(pid_t pid, const QStringList &words)
{
    QStringList found;
    const auto lines =
        QString::fromUtf8(contentOf(QStringLiteral("/proc/%1/maps").arg(pid))).split(QLatin1Char('\n'));
    for (const auto &line : lines) {
        const auto file = line.section(QLatin1Char('/'), -1);
        const auto isNamed = [&file](const QString &word) { return file.contains(word); };
        if (std::any_of(words.begin(), words.end(), isNamed) && !found.contains(file)) {
            found.append(file);
        }
    }
    return found;
}

} // namespace

TEST(WaylandWindowTest, NoOpenGlDriverIsLoaded)
{
    WaylandDesktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    const PrivateSway sway(desktop.runtime());
    ASSERT_TRUE(sway.isOpen());
    WaylandStirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());

    EXPECT_THAT(
        loadedLibraries(stirra.process().pid(),
                        {QStringLiteral("_mesa"), QStringLiteral("_dri.so"), QStringLiteral("LLVM"),
                         QStringLiteral("gallium"), QStringLiteral("vulkan"), QStringLiteral("wayland-egl")}),
        IsEmpty());
    EXPECT_THAT(loadedLibraries(stirra.process().pid(), {QStringLiteral("libqwayland")}), testing::SizeIs(1));
}

TEST(WaylandWindowTest, ASecondLaunchWithATokenBringsTheWindowToTheFront)
{
    WaylandDesktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    const PrivateSway sway(desktop.runtime(), "focus_on_window_activation focus\n");
    ASSERT_TRUE(sway.isOpen());
    const WaylandUser user(sway.display(), WaylandUser::keymapOfLayout("us"));
    WaylandStirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    WaylandWindow other(sway.display());
    ASSERT_TRUE(other.isOpen());
    ASSERT_TRUE(eventually([&] { return !other.input().events(Kind::focus).empty(); }));
    ASSERT_THAT(other.input().events(Kind::blur), IsEmpty());

    auto environment = desktop.environment();
    environment.insert(QStringLiteral("XDG_ACTIVATION_TOKEN"), activationToken(other.client()));
    ChildProcess second(QStringLiteral(STIRRA_PROGRAM), {}, environment);

    EXPECT_EQ(second.waitForExit(), 0) << second.standardError().constData();
    EXPECT_TRUE(eventually([&] { return !other.input().events(Kind::blur).empty(); }));
    EXPECT_TRUE(stirra.process().isRunning());
}

TEST(WaylandWindowTest, TheDesktopEntryNamesTheWindow)
{
    WaylandDesktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    const PrivateSway sway(desktop.runtime());
    ASSERT_TRUE(sway.isOpen());
    WaylandStirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());

    EXPECT_TRUE(
        sway.command(QStringLiteral("[app_id=\"^org\\.stirra\\.Stirra$\" title=\"^Stirra$\"] focus")));
    EXPECT_FALSE(sway.command(QStringLiteral("[app_id=\"^another$\"] focus")));
}

TEST(WaylandWindowTest, WhenTheCompositorIsKilledTheProgramEndsByItself)
{
    WaylandDesktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    PrivateSway sway(desktop.runtime());
    ASSERT_TRUE(sway.isOpen());
    WaylandStirra stirra(desktop);
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Mouse Jiggle")));

    sway.process().sendSignal(SIGKILL);

    EXPECT_EQ(stirra.process().waitForExit(), 1);
    const auto said = stirra.process().standardError().toStdString();
    EXPECT_THAT(said, HasSubstr("Did the Wayland compositor die?"));
    EXPECT_THAT(said, Not(HasSubstr("Sanitizer")));
}

TEST(WaylandWindowTest, WhereNothingCanBePostedTheTextsGoOn)
{
    WaylandDesktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    PrivateWeston weston(desktop.runtime());
    ASSERT_TRUE(weston.isOpen()) << weston.process().standardError().constData();
    WaylandStirra stirra(desktop);
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Mouse Jiggle")));

    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Mouse jiggle (+1,+1)"), moreThanAnInterval));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("1")));
    EXPECT_TRUE(stirra.process().isRunning());
}

TEST(WaylandWindowTest, NothingIsPostedThroughXwaylandEvenWhereItIsForced)
{
    WaylandDesktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    const PrivateSway sway(desktop.runtime());
    ASSERT_TRUE(sway.isOpen());
    PrivateXwayland xwayland(desktop.runtime());
    ASSERT_TRUE(xwayland.isOpen()) << xwayland.process().standardError().constData();
    XObserver observer(xwayland.display());
    ASSERT_TRUE(observer.isOpen());
    QProcessEnvironment forced;
    forced.insert(QStringLiteral("STIRRA_INPUT_BACKEND"), QStringLiteral("xtest"));
    WaylandStirra stirra(desktop, forced);
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Mouse Jiggle")));

    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Mouse jiggle (+1,+1)"), moreThanAnInterval));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("1")));

    static_cast<void>(observer.client().sync());
    EXPECT_THAT(observer.events(), IsEmpty());
}

} // namespace endtoend
