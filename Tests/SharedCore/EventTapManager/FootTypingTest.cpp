// Text that is typed on a Wayland compositor arrives whole in a terminal.

#include "Tests/SharedCore/EventTapManager/FootTypingTest.h"
#include "Tests/SharedCore/EventTapManager/TypedTextTest.h"
#include "Tests/Support/Eventually.h"

#include <QFile>

#include <gmock/gmock.h>

namespace sharedcore {

namespace {

using testing::Eq;
using testsupport::ChildProcess;
using testsupport::eventually;
using testsupport::PrivateSway;
using testsupport::WaylandUser;

constexpr std::uint32_t controlKey = 29;
constexpr std::uint32_t zKey = 44; // "y" on a German keyboard
constexpr std::uint32_t xKey = 45;

} // namespace

void FootTypingTest::SetUp()
{
    sway_ = std::make_unique<PrivateSway>(runtime_);
    ASSERT_TRUE(sway_->isOpen());
    const auto script = QStringLiteral("stty raw -echo && cat > '%1'").arg(file());
    foot_ = std::make_unique<ChildProcess>(QStringLiteral("foot"),
                                           QStringList{QStringLiteral("sh"), QStringLiteral("-c"), script},
                                           runtime_.environment());
    ASSERT_TRUE(eventually([this] { return QFile::exists(file()); }, std::chrono::seconds(30)))
        << foot_->standardError().toStdString();
}

QByteArray FootTypingTest::typed() const
{
    QFile written(file());
    return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray();
}

bool FootTypingTest::comesToHave(const QByteArray &text) const
{
    return eventually([&] { return typed().size() >= text.size(); });
}

bool FootTypingTest::takesKeysOf(WaylandUser &user) const
{
    const auto tries = [&] {
        user.type(zKey);
        return !typed().isEmpty();
    };
    if (!eventually(tries, std::chrono::seconds(30))) {
        return false;
    }
    // Another one, which arrives after all of these.
    user.type(xKey);
    return eventually([this] { return typed().endsWith('x'); }, std::chrono::seconds(30));
}

int FootTypingTest::type(const QByteArray &text) const
{
    ChildProcess typing(QStringLiteral(TYPING_PROGRAM), {QString::fromUtf8(text)}, runtime_.environment());
    return typing.waitForExit(std::chrono::seconds(60)).value_or(-1);
}

TEST_F(FootTypingTest, ATextArrivesWholeWithItsLinesAndTabs)
{
    WaylandUser user(sway_->display(), WaylandUser::keymapOfLayout("de"));
    ASSERT_TRUE(takesKeysOf(user));
    auto expected = typed();
    EXPECT_EQ(type(QByteArray(manyAlphabets) + "\n\tsecond line"), 0);
    expected += QByteArray(manyAlphabets) + "\r\tsecond line";
    EXPECT_TRUE(comesToHave(expected));
    EXPECT_THAT(typed(), Eq(expected));
}

TEST_F(FootTypingTest, WhatTheUserHoldsDoesNotMatterAndTheLayoutIsTheUsersAfterwards)
{
    WaylandUser user(sway_->display(), WaylandUser::keymapOfLayout("de"));
    ASSERT_TRUE(takesKeysOf(user));
    auto expected = typed();
    user.press(controlKey);
    EXPECT_EQ(type("abc ÄÖ€"), 0);
    user.release(controlKey);
    user.type(zKey);
    expected += "abc ÄÖ€y";
    EXPECT_TRUE(comesToHave(expected));
    EXPECT_THAT(typed(), Eq(expected));
}

// More characters than a keyboard has keys.
TEST_F(FootTypingTest, ALongAlphabetArrivesWhole)
{
    WaylandUser user(sway_->display(), WaylandUser::keymapOfLayout("us"));
    ASSERT_TRUE(takesKeysOf(user));
    auto expected = typed();
    QString text;
    for (char16_t letter = 0x4e00; letter < 0x4e00 + 150; ++letter) {
        text += QChar(letter);
    }
    EXPECT_EQ(type(text.toUtf8()), 0);
    expected += text.toUtf8();
    EXPECT_TRUE(comesToHave(expected));
    EXPECT_THAT(typed(), Eq(expected));
}

} // namespace sharedcore
