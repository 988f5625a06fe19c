// What the rest of a sway session sees of each action, and that an idle period ends with it.

#include "Tests/EndToEnd/WaylandDesktop.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/Wayland/PrivateSway.h"
#include "Tests/Support/Wayland/SwayIdle.h"
#include "Tests/Support/Wayland/WaylandUser.h"
#include "Tests/Support/Wayland/WaylandWindow.h"

#include <QFile>

#include <gmock/gmock.h>

using namespace testsupport;
using namespace std::chrono_literals;
using testing::SizeIs;
using Kind = WaylandEvent::Kind;

namespace endtoend {

namespace {

constexpr std::uint32_t keyF19 = 189;
constexpr std::uint32_t keyF24 = 194;
constexpr std::uint32_t keyA = 30;
constexpr std::uint32_t keyB = 48;
constexpr std::uint32_t keyReturn = 28;
constexpr auto quiet = 500ms;

// A session with a keyboard, and a program that finds it idle after 3 seconds.
class SwayActionsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(desktop.isOpen());
        ASSERT_TRUE(sway.isOpen()) << sway.process().standardError().constData();
        user.emplace(sway.display(), WaylandUser::keymapOfLayout("us"));
        idle.emplace(desktop.runtime(), 3s);
        stirra.emplace(desktop);
    }

    // Starts the engine, and opens another window, which gets the focus and has the pointer in it.
    [[nodiscard]] bool startUnderAnotherWindow(const QString &mode)
    {
        if (!stirra->startIn(mode)) {
            return false;
        }
        window.emplace(sway.display());
        const bool hasInput = window->isOpen() && eventually([this] {
                                  return sway.putPointer(960, 400) &&
                                         !window->input().events(Kind::pointerEnter).empty() &&
                                         !window->input().events(Kind::focus).empty();
                              });
        if (hasInput) {
            pointer = window->input().events(Kind::pointerEnter).back();
        }
        // Whoever has waited for the program may have found the session idle, which the pointer has ended.
        return hasInput && eventually([this] { return !idle->isIdle(); });
    }

    // Waits for the next action: the session is idle before, and not after it. What the window got of it,
    // after nothing more has come for a while.
    [[nodiscard]] bool seesAction()
    {
        const bool isIdle = eventually([this] { return idle->isIdle(); }, moreThanAnInterval);
        window->input().clear();
        const bool hasEnded = isIdle && eventually([this] { return !idle->isIdle(); }, moreThanAnInterval);
        auto count = window->input().events().size();
        return hasEnded && eventually([&] {
                   letPass(quiet);
                   return window->input().events().size() ==
                          std::exchange(count, window->input().events().size());
               });
    }

    [[nodiscard]] std::vector<WaylandEvent> seen(Kind kind) { return window->input().events(kind); }

    void expectJiggle(double offset)
    {
        const auto motions = seen(Kind::motion);
        ASSERT_THAT(motions, SizeIs(2));
        EXPECT_EQ(motions[0].x - pointer.x, offset);
        EXPECT_EQ(motions[0].y - pointer.y, offset);
        EXPECT_EQ(motions[1].x, pointer.x);
        EXPECT_EQ(motions[1].y, pointer.y);
        EXPECT_THAT(seen(Kind::key), SizeIs(0));
        EXPECT_THAT(seen(Kind::axis), SizeIs(0));
    }

    void expectKey(std::uint32_t code)
    {
        const auto keys = seen(Kind::key);
        ASSERT_THAT(keys, SizeIs(2));
        EXPECT_TRUE(keys[0].isDown);
        EXPECT_FALSE(keys[1].isDown);
        for (const auto &key : keys) {
            EXPECT_EQ(key.code, code);
            EXPECT_EQ(key.symbol, xkb_keysym_t{XKB_KEY_NoSymbol});
            EXPECT_EQ(key.text, QString());
        }
        EXPECT_THAT(seen(Kind::motion), SizeIs(0));
        EXPECT_THAT(seen(Kind::axis), SizeIs(0));
    }

    WaylandDesktop desktop;
    PrivateSway sway{desktop.runtime()};
    std::optional<WaylandUser> user;
    std::optional<SwayIdle> idle;
    std::optional<WaylandStirra> stirra;
    std::optional<WaylandWindow> window;
    WaylandEvent pointer; // where it came into the window
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST_F(SwayActionsTest, MouseJiggleMovesByOneAndReturnsAndGoesTheOtherWayTheNextTime)
{
    ASSERT_TRUE(startUnderAnotherWindow(QStringLiteral("Mouse Jiggle")));

    ASSERT_TRUE(seesAction());
    expectJiggle(1);
    EXPECT_TRUE(stirra->comesToShow(QStringLiteral("Mouse jiggle (+1,+1)")));

    ASSERT_TRUE(seesAction());
    expectJiggle(-1);
    EXPECT_TRUE(stirra->comesToShow(QStringLiteral("Mouse jiggle (+-1,+-1)")));
}

TEST_F(SwayActionsTest, KeyPressIsAKeyWithoutASymbolAndAnotherOneTheNextTime)
{
    ASSERT_TRUE(startUnderAnotherWindow(QStringLiteral("Key Press")));

    ASSERT_TRUE(seesAction());
    expectKey(keyF24);
    EXPECT_TRUE(stirra->comesToShow(QStringLiteral("Key press: Command")));

    ASSERT_TRUE(seesAction());
    expectKey(keyF19);
    EXPECT_TRUE(stirra->comesToShow(QStringLiteral("Key press: Option")));
}

TEST_F(SwayActionsTest, MouseAndKeyTakeTurnsBeginningWithTheMouse)
{
    ASSERT_TRUE(startUnderAnotherWindow(QStringLiteral("Mouse + Key")));

    ASSERT_TRUE(seesAction());
    expectJiggle(1);

    ASSERT_TRUE(seesAction());
    expectKey(keyF19);
}

TEST_F(SwayActionsTest, ScrollPulseIsOnePixelDownAndOneUp)
{
    ASSERT_TRUE(startUnderAnotherWindow(QStringLiteral("Scroll Pulse")));

    ASSERT_TRUE(seesAction());

    const auto steps = seen(Kind::axis);
    ASSERT_THAT(steps, SizeIs(2));
    EXPECT_EQ(steps[0].y, 1);
    EXPECT_EQ(steps[1].y, -1);
    EXPECT_THAT(seen(Kind::motion), SizeIs(0));
    EXPECT_THAT(seen(Kind::key), SizeIs(0));
    EXPECT_TRUE(stirra->comesToShow(QStringLiteral("Scroll pulse")));
}

TEST_F(SwayActionsTest, KeyPressTypesNothingIntoATerminal)
{
    ASSERT_TRUE(stirra->startIn(QStringLiteral("Key Press")));
    const auto file = desktop.runtime().path(QStringLiteral("typed"));
    ChildProcess terminal(QStringLiteral("foot"),
                          {QStringLiteral("--config=/dev/null"), QStringLiteral("sh"), QStringLiteral("-c"),
                           QStringLiteral("touch '%1'; read -r line; printf %s \"$line\" > '%1'").arg(file)},
                          desktop.environment());
    ASSERT_TRUE(eventually(
        [&] { return QFile::exists(file) && sway.command(QStringLiteral("[app_id=\"^foot$\"] focus")); }));
    user->type(keyA);

    EXPECT_TRUE(stirra->comesToShow(QStringLiteral("Key press: Command"), moreThanAnInterval));
    EXPECT_TRUE(stirra->comesToShow(QStringLiteral("Key press: Option"), moreThanAnInterval));
    user->type(keyB);
    user->type(keyReturn);

    EXPECT_EQ(terminal.waitForExit(), 0) << terminal.standardError().constData();
    EXPECT_EQ(contentOf(file), "ab");
}

} // namespace endtoend
