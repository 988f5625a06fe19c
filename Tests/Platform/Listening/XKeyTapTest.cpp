// What is told of the keys of an X server, in its user's layouts.

#include "Tests/Platform/Listening/ListeningTest.h"
#include "Tests/Support/XTextWindow.h"

#include <QFile>

namespace platform {

namespace {

using testing::ElementsAre;
using testsupport::eventually;
using testsupport::XTextWindow;

class XKeyTapTest : public XListeningTest
{
protected:
    [[nodiscard]] std::u16string typed(std::initializer_list<int> pressed)
    {
        keys.clear();
        type(pressed);
        finishKeys(keys);
        auto text = keys.text();
        text.pop_back();
        return text;
    }

    ObservedEvents keys;
};

} // namespace

TEST_F(XKeyTapTest, AKeyIsToldWithItsVirtualKeyCodeAndWhatItTypes)
{
    const auto tap = tapInto(keys, allKeyKinds);
    ASSERT_NE(tap, nullptr);
    type({KEY_A});
    press(KEY_LEFTSHIFT);
    type({KEY_A, KEY_7});
    release(KEY_LEFTSHIFT);
    press(KEY_LEFTCTRL);
    type({KEY_C});
    release(KEY_LEFTCTRL);
    type({KEY_BACKSPACE, KEY_ENTER, KEY_LEFT, KEY_LEFTMETA, KEY_F24});
    finishKeys(keys);
    EXPECT_THAT(keys.all(),
                ElementsAre(keyDown(0, u"a"), modifierDown(56), keyDown(0, u"A"), keyDown(26, u"&"),
                            modifierDown(59), keyDown(8, u"\x03"), keyDown(51, u"\b"), keyDown(36, u"\r"),
                            keyDown(123, u""), modifierDown(55), keyDown(0x100 + KEY_F24, u""), escape));
}

TEST_F(XKeyTapTest, AKeyThatIsHeldComesOnce)
{
    const auto tap = tapInto(keys, allKeyKinds);
    ASSERT_NE(tap, nullptr);
    XTextWindow window(server.display());
    ASSERT_TRUE(window.takeFocus());
    press(KEY_A);
    const auto presses = [&window] {
        return std::ranges::count(window.events(), XCB_KEY_PRESS, &XTextWindow::Event::type);
    };
    ASSERT_TRUE(eventually([&] { return presses() >= 3; })) << "the server does not repeat it";
    release(KEY_A);
    finishKeys(keys);
    EXPECT_THAT(keys.all(), ElementsAre(keyDown(0, u"a"), escape));
}

TEST_F(XKeyTapTest, TheLayoutIsFollowedWhenItChanges)
{
    const auto tap = tapInto(keys, maskOf(ObservedKind::keyDown));
    ASSERT_NE(tap, nullptr);
    EXPECT_EQ(typed({KEY_Y, KEY_Z, KEY_SEMICOLON}), u"yz;");
    useLayout({QStringLiteral("de")});
    EXPECT_EQ(typed({KEY_Y, KEY_Z, KEY_SEMICOLON, KEY_MINUS, KEY_102ND}), u"zyöß<");
    press(KEY_RIGHTALT);
    EXPECT_EQ(typed({KEY_E, KEY_Q}), u"€@");
    release(KEY_RIGHTALT);
    useLayout({QStringLiteral("gr")});
    EXPECT_EQ(typed({KEY_A, KEY_S, KEY_D}), u"ασδ");
    useLayout({QStringLiteral("us")});
    EXPECT_EQ(typed({KEY_Y}), u"y");
}

TEST_F(XKeyTapTest, TheGroupIsFollowedWhoeverChangesIt)
{
    useLayout({QStringLiteral("us,ru"), QStringLiteral("-option"), QStringLiteral("grp:alt_shift_toggle")});
    const auto tap = tapInto(keys, maskOf(ObservedKind::keyDown));
    ASSERT_NE(tap, nullptr);
    EXPECT_EQ(typed({KEY_F}), u"f");
    press(KEY_LEFTALT);
    type({KEY_LEFTSHIFT});
    release(KEY_LEFTALT);
    EXPECT_EQ(typed({KEY_F}), u"а");
}

TEST_F(XKeyTapTest, DeadKeysAndComposeSequencesTypeWhatTheyMake)
{
    useLayout({QStringLiteral("de"), QStringLiteral("-option"), QStringLiteral("compose:menu")});
    const auto tap = tapInto(keys, maskOf(ObservedKind::keyDown));
    ASSERT_NE(tap, nullptr);
    EXPECT_EQ(typed({KEY_EQUAL, KEY_E}), u"é");
    EXPECT_EQ(typed({KEY_GRAVE, KEY_A, KEY_A}), u"âa");
    EXPECT_EQ(typed({KEY_EQUAL, KEY_Q, KEY_Q}), u"q") << "no sequence: both are lost, as they are elsewhere";
    EXPECT_EQ(typed({KEY_COMPOSE, KEY_O, KEY_E}), u"œ");
    keys.clear();
    type({KEY_EQUAL});
    press(KEY_LEFTSHIFT);
    type({KEY_E});
    release(KEY_LEFTSHIFT);
    finishKeys(keys);
    EXPECT_THAT(keys.all(), ElementsAre(keyDown(24, u""), keyDown(14, u"É"), escape));
}

TEST_F(XKeyTapTest, ASequenceOfTheUsersMayTypeMoreThanACharacter)
{
    QFile file(runtime.path(QStringLiteral("compose")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<Multi_key> <s> : \"abcdefgh\"\n<Multi_key> <d> : \"abc\xf0\x9f\x98\x80\"\n");
    file.close();
    qputenv("XCOMPOSEFILE", file.fileName().toUtf8());
    useLayout({QStringLiteral("us"), QStringLiteral("-option"), QStringLiteral("compose:menu")});
    const auto tap = tapInto(keys, maskOf(ObservedKind::keyDown));
    qunsetenv("XCOMPOSEFILE");
    ASSERT_NE(tap, nullptr);
    EXPECT_EQ(typed({KEY_COMPOSE, KEY_S, KEY_COMPOSE, KEY_D}), u"abcdefghabc\U0001F600");
}

} // namespace platform
