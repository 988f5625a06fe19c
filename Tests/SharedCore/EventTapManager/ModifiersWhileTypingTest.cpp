// What the user holds on the keyboard while a text is typed makes no shortcuts of it.

#include "Tests/SharedCore/EventTapManager/TypedTextTest.h"
#include "Tests/Support/Eventually.h"

#include <xcb/xtest.h>

namespace sharedcore {

namespace {

using testing::Eq;
using testsupport::xAnswer;

constexpr auto text = "abcQXZ äß€ 123!";

struct Modifier
{
    const char *name;
    xcb_keycode_t key; // of every keyboard of a PC
    bool isLocked = false;
    bool staysDown = true;
};

void PrintTo(const Modifier &modifier, std::ostream *out)
{
    *out << modifier.name;
}

} // namespace

class ModifiersWhileTypingTest : public XTypingTest, public testing::WithParamInterface<Modifier>
{
protected:
    void post(std::uint8_t type) const
    {
        xcb_test_fake_input(x_->get(), type, GetParam().key, XCB_CURRENT_TIME, x_->root(), 0, 0, 0);
        x_->sync();
    }

    // The modifiers that programs see then.
    [[nodiscard]] std::uint16_t hold() const
    {
        post(XCB_KEY_PRESS);
        if (GetParam().isLocked) {
            post(XCB_KEY_RELEASE);
        }
        EXPECT_TRUE(testsupport::eventually([this] { return modifiers() != 0; }));
        return modifiers();
    }

    // Where it was let go of.
    void holdAgain() const
    {
        if (!GetParam().staysDown) {
            post(XCB_KEY_RELEASE);
            static_cast<void>(hold());
        }
    }

    // The server handles what was posted to it when it has handled the requests that came with it.
    [[nodiscard]] bool comeToBe(std::uint16_t held) const
    {
        return testsupport::eventually([this, held] { return modifiers() == held; });
    }

    [[nodiscard]] std::uint16_t modifiers() const
    {
        const auto pointer =
            xAnswer(xcb_query_pointer_reply, x_->get(), xcb_query_pointer(x_->get(), x_->root()));
        return pointer ? pointer->mask : std::uint16_t{0};
    }
};

TEST_P(ModifiersWhileTypingTest, TheTextArrivesAndTheKeyIsHeldAsBeforeOrLetGoOf)
{
    const auto entry = openGtkEntry();
    ASSERT_TRUE(entry->hasFocus());
    const auto held = hold();
    const auto after = GetParam().staysDown ? held : std::uint16_t{0};
    EXPECT_EQ(type(text), 0);
    EXPECT_TRUE(comeToBe(after));
    EXPECT_EQ(type("\n"), 0);
    EXPECT_THAT(entry->result(), Eq(QByteArray(text) + '\n'));

    holdAgain();
    const auto field = openQtField();
    ASSERT_TRUE(field->hasFocus());
    EXPECT_EQ(type(QByteArray(text) + '\n'), 0);
    EXPECT_THAT(field->result().split('\n').value(0), Eq(QByteArray(text)));
    EXPECT_TRUE(comeToBe(after));

    holdAgain();
    const auto terminal = openTerminal();
    ASSERT_TRUE(terminal->hasFocus());
    EXPECT_EQ(type(text), 0);
    EXPECT_TRUE(terminalComesToHave(text));
    EXPECT_THAT(typedIntoTerminal(), Eq(text));
    EXPECT_TRUE(comeToBe(after));
}

INSTANTIATE_TEST_SUITE_P(Each, ModifiersWhileTypingTest,
                         testing::Values(Modifier{"Control", 37, false, false}, Modifier{"Shift", 50},
                                         Modifier{"Alt", 64}, Modifier{"Super", 133},
                                         Modifier{"CapsLock", 66, true}),
                         [](const auto &modifier) { return std::string(modifier.param.name); });

} // namespace sharedcore
