// Many texts, one after the other: not one character goes wrong. STIRRA_TEST_TYPING_RUNS says how many texts
// of 200 characters each program gets (1).

#include "Tests/SharedCore/EventTapManager/FootTypingTest.h"
#include "Tests/SharedCore/EventTapManager/TypedTextTest.h"

#include <random>

namespace sharedcore {

namespace {

using testing::Eq;
using testsupport::WaylandUser;

constexpr qsizetype charactersOfAText = 200;
constexpr auto alphabet =
    U"abcdefghijklmnopqrstuvwxyz ABCDEFGHIJKLMNOPQRSTUVWXYZ 0123456789 ,.;:-_+*#'<>|@!\"§$%&/()=?\\"
    U"äöüßéèçñ αβγδεζηθ абвгдежзийклмн 漢字仮名交文 مرحبا שלום €™→✓😀🎉🚀";

int runs()
{
    bool isNumber = false;
    const auto count = qEnvironmentVariableIntValue("STIRRA_TEST_TYPING_RUNS", &isNumber);
    return isNumber ? count : 1;
}

// Another text for each seed, the same in each run of the tests.
QByteArray textOf(unsigned seed)
{
    std::mt19937 random(seed);
    const auto letters = QString::fromUcs4(alphabet).toUcs4();
    std::uniform_int_distribution<qsizetype> letter(0, letters.size() - 1);
    QList<uint> text;
    for (qsizetype i = 0; i < charactersOfAText; ++i) {
        text.append(letters[letter(random)]);
    }
    return QString::fromUcs4(reinterpret_cast<const char32_t *>(text.constData()), text.size())
        .toUtf8(); // NOLINT
}

} // namespace

class TypingStressTest : public XTypingTest
{};

TEST_F(TypingStressTest, InAGtkEntry)
{
    const auto before = keymap();
    for (int run = 0; run < runs(); ++run) {
        const auto text = textOf(static_cast<unsigned>(run)) + '\n';
        const auto entry = openGtkEntry();
        ASSERT_TRUE(entry->hasFocus());
        ASSERT_EQ(type(text), 0);
        ASSERT_THAT(entry->result(), Eq(text)) << run;
        ASSERT_EQ(keymap(), before) << run;
    }
}

TEST_F(TypingStressTest, InAQtField)
{
    const auto before = keymap();
    for (int run = 0; run < runs(); ++run) {
        const auto text = textOf(1000 + static_cast<unsigned>(run)) + '\n';
        const auto field = openQtField();
        ASSERT_TRUE(field->hasFocus());
        ASSERT_EQ(type(text), 0);
        ASSERT_THAT(field->result(), Eq(text)) << run;
        ASSERT_EQ(keymap(), before) << run;
    }
}

TEST_F(TypingStressTest, InATerminal)
{
    const auto before = keymap();
    const auto terminal = openTerminal();
    ASSERT_TRUE(terminal->hasFocus());
    QByteArray all;
    for (int run = 0; run < runs(); ++run) {
        const auto text = textOf(2000 + static_cast<unsigned>(run));
        all += text;
        ASSERT_EQ(type(text), 0);
        ASSERT_TRUE(terminalComesToHave(all)) << run;
        ASSERT_THAT(typedIntoTerminal(), Eq(all)) << run;
        ASSERT_EQ(keymap(), before) << run;
    }
}

class WaylandTypingStressTest : public FootTypingTest
{};

TEST_F(WaylandTypingStressTest, InATerminal)
{
    WaylandUser user(sway_->display(), WaylandUser::keymapOfLayout("de"));
    ASSERT_TRUE(takesKeysOf(user));
    auto all = typed();
    for (int run = 0; run < runs(); ++run) {
        const auto text = textOf(3000 + static_cast<unsigned>(run));
        all += text;
        ASSERT_EQ(type(text), 0);
        ASSERT_TRUE(comesToHave(all)) << run;
        ASSERT_THAT(typed(), Eq(all)) << run;
    }
}

} // namespace sharedcore
