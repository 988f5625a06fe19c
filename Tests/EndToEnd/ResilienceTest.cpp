// What may happen to the X server's side while the program runs.

#include "Tests/EndToEnd/SeenAction.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XPrograms.h"
#include "Tests/Support/XTextWindow.h"

#include <X11/keysym.h>

#include <gmock/gmock.h>

using namespace testsupport;
using testing::ElementsAre;

namespace endtoend {

namespace {

constexpr xcb_keycode_t keyF24 = 202;
constexpr xcb_keycode_t keyF19 = 197;
constexpr xcb_keycode_t keyUnknown = 248;

void giveSymbol(const XClient &x, xcb_keycode_t keyCode, xcb_keysym_t symbol)
{
    xcb_change_keyboard_mapping(x.get(), 1, keyCode, 1, &symbol);
    x.sync();
}

} // namespace

TEST(ResilienceTest, AfterTheConnectionForPostingWasKilledTheNextActionIsPostedAgain)
{
    Desktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Mouse Jiggle")));
    ASSERT_TRUE(awaitAction(desktop));

    ASSERT_EQ(endOtherConnections(desktop.x(), stirra.process().pid(), stirra.window()), 1);

    EXPECT_TRUE(awaitAction(desktop));
    EXPECT_TRUE(stirra.process().isRunning());
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Mouse jiggle (+-1,+-1)")));
}

TEST(ResilienceTest, AKeyThatGetsASymbolWhileTheProgramRunsIsNotPressedAnyMore)
{
    Desktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Key Press")));
    XTextWindow other(desktop.server().display());
    ASSERT_TRUE(other.takeFocus());

    giveSymbol(desktop.x(), keyF24, XK_a);
    const auto first = awaitAction(desktop);
    ASSERT_TRUE(first);
    EXPECT_THAT(first->details(), ElementsAre(keyUnknown, keyUnknown));

    giveSymbol(desktop.x(), keyF19, XK_b);
    const auto second = awaitAction(desktop);
    ASSERT_TRUE(second);
    EXPECT_THAT(second->details(), ElementsAre(keyUnknown, keyUnknown));
    EXPECT_FALSE(desktop.observer().isAnythingHeldDown());
}

TEST(ResilienceTest, WithNoSilentKeyLeftNothingIsPressedAndTheTextsGoOn)
{
    Desktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    for (const auto keyCode : {keyF19, keyF24, keyUnknown}) {
        giveSymbol(desktop.x(), keyCode, XK_a);
    }
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Key Press")));
    desktop.observer().clear();

    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Key press: Command"), moreThanOneInterval));

    EXPECT_TRUE(desktop.observer().events().empty());
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("1")));
}

TEST(ResilienceTest, WithoutXtestNothingIsPostedAndTheTextsGoOn)
{
    Desktop desktop(Desktop::Bus::session, {QStringLiteral("-extension"), QStringLiteral("XTEST")});
    ASSERT_TRUE(desktop.isOpen());
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Mouse Jiggle")));
    desktop.observer().clear();

    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Mouse jiggle (+1,+1)"), moreThanOneInterval));

    EXPECT_TRUE(desktop.observer().events().empty());
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("1")));
    EXPECT_TRUE(stirra.process().isRunning());
}

} // namespace endtoend
