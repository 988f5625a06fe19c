// Control is never left down by a text that is typed while a hand, or another program, holds it.

#include "Platform/Linux/X11/XKeyboards.h"
#include "Platform/Linux/X11/Xkb.h"
#include "Tests/Platform/X11/XtestPosterTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/Xorg/PrivateXorg.h"

#include <xcb/xtest.h>

#include <gmock/gmock.h>

#include <linux/input-event-codes.h>

#include <algorithm>

namespace sharedcore {

namespace {

using platform::XConnection;
using platform::XKeyboard;
using testsupport::ChildProcess;
using testsupport::eventually;

const auto longText = QString(80, QLatin1Char('a'));

class ControlWhileTypingTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(server_.isOpen());
        ASSERT_TRUE(x_.isOpen() && platform::startKeyboardExtensions(x_));
        ASSERT_GE(platform::attachedKeyboards(x_).size(), 2U);
    }

    [[nodiscard]] std::unique_ptr<ChildProcess> startTyping(const QString &text) const
    {
        return std::make_unique<ChildProcess>(QStringLiteral(TYPING_PROGRAM), QStringList(text),
                                              runtime_.environment());
    }

    // Types to its end, and waits for it.
    [[nodiscard]] bool types(const QString &text) const
    {
        return startTyping(text)->waitForExit(std::chrono::seconds(60)) == 0;
    }

    // Types, and lets go of the key in the midst of it.
    template <class Function> [[nodiscard]] bool typesWhile(const Function &letGo)
    {
        const auto typing = startTyping(longText);
        EXPECT_TRUE(eventually([this] { return !isDownAt(platform::coreKeyboard); }));
        letGo();
        EXPECT_TRUE(typing->isRunning());
        return typing->waitForExit(std::chrono::seconds(60)) == 0;
    }

    [[nodiscard]] bool isDownAt(XKeyboard keyboard)
    {
        const auto state = platform::xReply(xcb_xkb_get_state_reply, x_.get(),
                                            xcb_xkb_get_state_unchecked(x_.get(), keyboard));
        return !state || state->mods != 0;
    }

    [[nodiscard]] bool isDownAnywhere()
    {
        const auto isDown = [this](XKeyboard keyboard) { return isDownAt(keyboard); };
        return isDown(platform::coreKeyboard) || std::ranges::any_of(platform::attachedKeyboards(x_), isDown);
    }

    void post(std::uint8_t type)
    {
        xcb_test_fake_input(x_.get(), type, KEY_LEFTCTRL + 8, XCB_CURRENT_TIME, x_.rootWindow(), 0, 0, 0);
        x_.sync();
    }

    testsupport::PrivateRuntime runtime_;
    testsupport::PrivateXorg server_{runtime_};
    testsupport::ScopedDisplay scope_{server_.display()};
    XConnection x_;
};

} // namespace

TEST_F(ControlWhileTypingTest, AHandMayHoldItToTheEnd)
{
    server_.keyboard().press(KEY_LEFTCTRL);
    ASSERT_TRUE(isDownAt(platform::coreKeyboard));
    EXPECT_TRUE(types(QStringLiteral("ab")));
    EXPECT_FALSE(isDownAt(platform::coreKeyboard));
    server_.keyboard().release(KEY_LEFTCTRL);
    EXPECT_FALSE(isDownAnywhere());
    server_.keyboard().press(KEY_LEFTCTRL);
    EXPECT_TRUE(isDownAt(platform::coreKeyboard));
    server_.keyboard().release(KEY_LEFTCTRL);
    EXPECT_FALSE(isDownAnywhere());
}

TEST_F(ControlWhileTypingTest, AHandMayLetGoOfItHalfWay)
{
    server_.keyboard().press(KEY_LEFTCTRL);
    EXPECT_TRUE(typesWhile([this] { server_.keyboard().release(KEY_LEFTCTRL); }));
    EXPECT_FALSE(isDownAnywhere());
}

TEST_F(ControlWhileTypingTest, AHandMayHoldItToTheEndAndLetGoHalfWayTheNextTime)
{
    server_.keyboard().press(KEY_LEFTCTRL);
    EXPECT_TRUE(types(QStringLiteral("ab")));
    server_.keyboard().release(KEY_LEFTCTRL);
    for (int i = 0; i < 2; ++i) {
        server_.keyboard().press(KEY_LEFTCTRL);
        EXPECT_TRUE(typesWhile([this] { server_.keyboard().release(KEY_LEFTCTRL); }));
        EXPECT_FALSE(isDownAnywhere());
    }
}

TEST_F(ControlWhileTypingTest, AnotherProgramMayHoldItAndLetGoHalfWayOrAtTheEnd)
{
    post(XCB_KEY_PRESS);
    EXPECT_TRUE(typesWhile([this] { post(XCB_KEY_RELEASE); }));
    EXPECT_FALSE(isDownAnywhere());
    post(XCB_KEY_PRESS);
    EXPECT_TRUE(types(QStringLiteral("ab")));
    EXPECT_FALSE(isDownAnywhere());
    post(XCB_KEY_RELEASE);
    EXPECT_FALSE(isDownAnywhere());
}

} // namespace sharedcore
