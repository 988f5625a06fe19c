// The keys without a meaning, on servers whose keymap is changed in every way.

#include "Platform/Linux/X11/SilentKeys.h"

#include "Tests/Platform/X11/XtestPosterTest.h"
#include "Tests/Support/PrivateXvfb.h"

#include <QFile>

#include <gmock/gmock.h>

namespace platform {

namespace {

using testing::Eq;
using testing::Gt;
using testing::Optional;
using testing::SizeIs;
using testsupport::ChildProcess;
using testsupport::PrivateRuntime;
using testsupport::PrivateXvfb;
using testsupport::ScopedDisplay;
using testsupport::xAnswer;
using testsupport::XClient;

constexpr std::uint16_t leftCommand = 55;
constexpr std::uint16_t rightCommand = 54;
constexpr xcb_keycode_t keyF19 = 197;
constexpr xcb_keycode_t keyF24 = 202;
constexpr xcb_keycode_t keyUnknown = 248;
constexpr xcb_keysym_t symbolLaunchA = 0x1008ff4a; // as a newer keymap may give a function key

class SilentKeysTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(server.isOpen());
        ASSERT_TRUE(connection.isOpen());
    }

    // Gives a key one symbol at a place among its groups and levels.
    void giveSymbol(xcb_keycode_t keyCode, xcb_keysym_t symbol, std::size_t place = 0)
    {
        std::vector<xcb_keysym_t> symbols(place + 1, XCB_NO_SYMBOL);
        symbols.back() = symbol;
        xcb_change_keyboard_mapping(user.get(), 1, keyCode, static_cast<std::uint8_t>(symbols.size()),
                                    symbols.data());
        user.sync();
    }

    // Makes a key the only one of the third modifier.
    void makeModifier(xcb_keycode_t keyCode)
    {
        std::array<xcb_keycode_t, 8> modifiers{};
        modifiers[5] = keyCode;
        const auto reply = xAnswer(xcb_set_modifier_mapping_reply, user.get(),
                                   xcb_set_modifier_mapping(user.get(), 1, modifiers.data()));
        ASSERT_TRUE(reply && reply->status == XCB_MAPPING_STATUS_SUCCESS);
    }

    void useLayout(const QString &layout)
    {
        ChildProcess setter(QStringLiteral("setxkbmap"),
                            {QStringLiteral("-rules"), QStringLiteral("evdev"), QStringLiteral("-model"),
                             QStringLiteral("pc105"), QStringLiteral("-layout"), layout},
                            runtime.environment());
        ASSERT_THAT(setter.waitForExit(), Optional(0)) << setter.standardError().constData();
    }

    PrivateRuntime runtime;
    PrivateXvfb server{runtime};
    ScopedDisplay scope{server.display()};
    XConnection connection;
    XClient user{server.display()};
};

QStringList installedLayouts()
{
    QFile rules(QStringLiteral("/usr/share/X11/xkb/rules/evdev.lst"));
    static_cast<void>(rules.open(QIODevice::ReadOnly));
    QStringList layouts;
    bool isInLayouts = false;
    while (!rules.atEnd()) {
        const auto line = QString::fromUtf8(rules.readLine()).simplified();
        if (line.startsWith(QLatin1Char('!'))) {
            isInLayouts = line == QStringLiteral("! layout");
        } else if (isInLayouts && !line.isEmpty()) {
            layouts.append(line.section(QLatin1Char(' '), 0, 0));
        }
    }
    layouts.removeAll(QStringLiteral("custom")); // a name for the user's own file, which nobody has at first
    return layouts;
}

} // namespace

TEST_F(SilentKeysTest, TheStockKeymapHasOneForEachCommandKey)
{
    EXPECT_THAT(silentKeyCode(connection, leftCommand), Optional(keyF24));
    EXPECT_THAT(silentKeyCode(connection, rightCommand), Optional(keyF19));
    EXPECT_EQ(silentKeyCode(connection, 0), std::nullopt);
    EXPECT_EQ(silentKeyCode(connection, 56), std::nullopt);
}

TEST_F(SilentKeysTest, AKeyThatGetsASymbolIsPassedOver)
{
    giveSymbol(keyF24, symbolLaunchA);
    EXPECT_THAT(silentKeyCode(connection, leftCommand), Optional(keyUnknown));
    EXPECT_THAT(silentKeyCode(connection, rightCommand), Optional(keyF19));
    giveSymbol(keyF24, XCB_NO_SYMBOL);
    EXPECT_THAT(silentKeyCode(connection, leftCommand), Optional(keyF24));
}

TEST_F(SilentKeysTest, ASymbolOnAHigherLevelCounts)
{
    giveSymbol(keyF19, symbolLaunchA, 3);
    EXPECT_THAT(silentKeyCode(connection, rightCommand), Optional(keyUnknown));
}

TEST_F(SilentKeysTest, AKeyThatIsAModifierIsPassedOver)
{
    makeModifier(keyF24);
    EXPECT_THAT(silentKeyCode(connection, leftCommand), Optional(keyUnknown));
    EXPECT_THAT(silentKeyCode(connection, rightCommand), Optional(keyF19));
}

TEST_F(SilentKeysTest, WhereAllCandidatesAreUsedThereIsNone)
{
    giveSymbol(keyF24, symbolLaunchA);
    giveSymbol(keyUnknown, symbolLaunchA);
    EXPECT_THAT(silentKeyCode(connection, leftCommand), Optional(keyF19));
    makeModifier(keyF19);
    EXPECT_EQ(silentKeyCode(connection, leftCommand), std::nullopt);
    EXPECT_EQ(silentKeyCode(connection, rightCommand), std::nullopt);
}

TEST_F(SilentKeysTest, WhereNoneIsLeftTheKeyIsRefused)
{
    const auto poster = testsupport::posterOn(server.display());
    ASSERT_NE(poster, nullptr);
    for (const auto keyCode : {keyF19, keyF24, keyUnknown}) {
        giveSymbol(keyCode, symbolLaunchA);
    }
    EXPECT_FALSE(poster->post(KeyEvent{leftCommand, true, 0}));
    EXPECT_FALSE(poster->post(KeyEvent{leftCommand, false, 0}));
    EXPECT_TRUE(poster->isOpen());
}

TEST_F(SilentKeysTest, EveryInstalledLayoutHasOneForEachCommandKey)
{
    const auto layouts = installedLayouts();
    ASSERT_THAT(layouts, SizeIs(Gt(50)));
    for (const auto &layout : layouts) {
        useLayout(layout);
        const auto left = silentKeyCode(connection, leftCommand);
        const auto right = silentKeyCode(connection, rightCommand);
        EXPECT_THAT(left, Optional(keyF24)) << qPrintable(layout);
        EXPECT_THAT(right, Optional(keyF19)) << qPrintable(layout);
    }
}

} // namespace platform
