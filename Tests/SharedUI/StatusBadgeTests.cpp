#include "Tests/SharedUI/SharedUITest.h"

#include "Tests/Support/Eventually.h"

#include <QAccessible>
#include <QFont>

#include <algorithm>
#include <array>

namespace sharedui {

namespace {

using testsupport::eventually;

struct StatusLook
{
    const char *name;
    const char *color; // a property of SystemStyle
    QRgb light;
    QRgb dark;
    const char *icon;
    bool pulses;
};

// In the order of the enumeration.
constexpr std::array looks{
    StatusLook{"Active", "green", 0xFF34C759, 0xFF30D158, "checkmark.circle.fill", true},
    StatusLook{"Inactive", "gray", 0xFF8E8E93, 0xFF8E8E93, "circle", false},
    StatusLook{"Warning", "yellow", 0xFFFFCC00, 0xFFFFD60A, "exclamationmark.triangle.fill", false},
    StatusLook{"Error", "red", 0xFFFF3B30, 0xFFFF453A, "xmark.circle.fill", false},
    StatusLook{"Processing", "blue", 0xFF007AFF, 0xFF0A84FF, "arrow.triangle.2.circlepath", true},
};

class StatusBadgeTest : public SharedUITest
{
protected:
    static QByteArray badge(const char *status)
    {
        return QByteArray("StatusBadge { status: StatusBadge.") + status + "; text: 'Running' }";
    }

    [[nodiscard]] bool isPulsing() const { return shown().property("isPulsing").toBool(); }
    [[nodiscard]] double scale() const { return item("symbol").scale(); }
    // Whether the symbol reaches both ends of the pulse, one after the other, and goes on.
    [[nodiscard]] bool pulsesOnAndOn() const
    {
        return std::ranges::all_of(std::array{1.099, 1.001, 1.099}, [&](double end) {
            return eventually([&] { return end > 1.05 ? scale() > end : scale() < end; });
        });
    }

    void setStatus(int status) const { shown().setProperty("status", status); }
};

constexpr int active = 0;
constexpr int warning = 2;
constexpr int processing = 4;

class StatusBadgeLook : public StatusBadgeTest, public testing::WithParamInterface<std::size_t>
{};

TEST_P(StatusBadgeLook, IsThatOfTheStatusInBothAppearances)
{
    const auto &look = looks.at(GetParam());
    const auto &badge = show(StatusBadgeTest::badge(look.name));
    EXPECT_EQ(badge.property("status").toInt(), static_cast<int>(GetParam()));
    EXPECT_EQ(badge.property("icon").toString(), QString::fromLatin1(look.icon));
    EXPECT_EQ(item("symbol").property("name").toString(), QString::fromLatin1(look.icon));
    for (const bool isDark : {false, true}) {
        setDark(isDark);
        const QColor color = QColor::fromRgb(isDark ? look.dark : look.light);
        EXPECT_EQ(badge.property("color").value<QColor>(), color);
        EXPECT_EQ(item("symbol").property("color").value<QColor>(), color);
        EXPECT_EQ(itemsOf("QQuickText").at(0)->property("color").value<QColor>(), color);
    }
}

TEST_P(StatusBadgeLook, PulsesWhereTheStatusIsLive)
{
    const auto &look = looks.at(GetParam());
    show(badge(look.name));
    EXPECT_EQ(isPulsing(), look.pulses);
    if (look.pulses) {
        EXPECT_TRUE(pulsesOnAndOn());
    } else {
        EXPECT_EQ(scale(), 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Statuses, StatusBadgeLook, testing::Range<std::size_t>(0, looks.size()),
                         [](const auto &status) { return looks.at(status.param).name; });

TEST_F(StatusBadgeTest, IsASymbolAndATextInACapsule)
{
    const auto &badge = show(StatusBadgeTest::badge("Error"));
    const auto texts = itemsOf("QQuickText");
    ASSERT_EQ(texts.size(), 1);
    const auto &text = *texts.at(0);
    EXPECT_EQ(text.property("text").toString(), QStringLiteral("Running"));
    EXPECT_EQ(text.property("font").value<QFont>().pixelSize(), 11);
    EXPECT_EQ(text.property("font").value<QFont>().weight(), QFont::Medium);
    const auto &symbol = item("symbol");
    EXPECT_EQ(symbol.property("size").toDouble(), 10);
    EXPECT_EQ(symbol.mapToItem(&badge, {0, 0}).x(), 10);
    EXPECT_EQ(text.mapToItem(&badge, {0, 0}).x(), 10 + symbol.width() + 6);
    EXPECT_EQ(badge.implicitWidth(), 10 + symbol.width() + 6 + text.width() + 10);
    EXPECT_EQ(badge.implicitHeight(), text.height() + 2 * 5);
}

TEST_F(StatusBadgeTest, ItsGroundIsTheColourAtAnOpacityOf15Percent)
{
    const auto &badge = show(StatusBadgeTest::badge("Error"));
    const auto image = picture();
    const auto ground = colorAt(image, 5, badge.height() / 2);
    // 0xFF3B30 over white.
    EXPECT_NEAR(ground.red(), 255, 1);
    EXPECT_NEAR(ground.green(), 255 - 0.15 * (255 - 0x3B), 1);
    EXPECT_NEAR(ground.blue(), 255 - 0.15 * (255 - 0x30), 1);
    EXPECT_EQ(colorAt(image, 0, 0), QColor(Qt::white));
    EXPECT_EQ(colorAt(image, badge.width() - 1, badge.height() - 1), QColor(Qt::white));
}

TEST_F(StatusBadgeTest, ItsTextIsInTheAccessibilityTree)
{
    show(badge("Active"));
    QAccessible::setActive(true);
    auto *accessible = QAccessible::queryAccessibleInterface(itemsOf("QQuickText").at(0));
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::StaticText);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Running"));
    QAccessible::setActive(false);
}

TEST_F(StatusBadgeTest, DoesNotPulseBeforeItAppears)
{
    make(badge("Active"));
    EXPECT_FALSE(isPulsing());
    place();
    EXPECT_TRUE(isPulsing());
}

TEST_F(StatusBadgeTest, StaysEnlargedAndAtRestWhenItIsLiveNoMore)
{
    show(badge("Active"));
    ASSERT_TRUE(eventually([this] { return scale() > 1.02; }));
    setStatus(warning);
    EXPECT_TRUE(isPulsing());
    EXPECT_EQ(scale(), 1.1);
    setStatus(active);
    EXPECT_EQ(scale(), 1.1);
    EXPECT_TRUE(isPulsing());
}

TEST_F(StatusBadgeTest, GoesOnPulsingFromOneLiveStatusToTheOther)
{
    show(badge("Active"));
    setStatus(processing);
    EXPECT_TRUE(pulsesOnAndOn());
}

TEST_F(StatusBadgeTest, OneThatTurnsLivePulsesWhenItAppearsAnew)
{
    auto &badge = show(StatusBadgeTest::badge("Warning"));
    setStatus(processing);
    EXPECT_FALSE(isPulsing());
    EXPECT_EQ(scale(), 1);
    badge.setVisible(false);
    EXPECT_FALSE(isPulsing());
    badge.setVisible(true);
    EXPECT_TRUE(isPulsing());
    EXPECT_TRUE(pulsesOnAndOn());
}

TEST_F(StatusBadgeTest, OneThatDoesNotPulseCausesNoFrame)
{
    show(badge("Warning"));
    ASSERT_TRUE(eventually([this] { return frames > 0; }));
    testsupport::letPass(std::chrono::milliseconds(100));
    frames = 0;
    testsupport::letPass(std::chrono::milliseconds(300));
    EXPECT_EQ(frames, 0);
}

TEST_F(StatusBadgeTest, ItsPulseStandsStillWhileItIsNotShown)
{
    show(badge("Active"));
    ASSERT_TRUE(eventually([this] { return scale() > 1.02; }));
    view.hide();
    EXPECT_EQ(scale(), 1.1);
    EXPECT_TRUE(isPulsing());
    testsupport::letPass(std::chrono::milliseconds(100));
    EXPECT_EQ(scale(), 1.1);
    view.show();
    EXPECT_TRUE(pulsesOnAndOn());
}

TEST_F(StatusBadgeTest, StandsStillWhereTheUserWantsLessMotion)
{
    platform.appearance().prefer({.reducesMotion = true});
    show(badge("Active"));
    EXPECT_FALSE(isPulsing());
    platform.appearance().prefer({});
    EXPECT_TRUE(pulsesOnAndOn());
    platform.appearance().prefer({.reducesMotion = true});
    EXPECT_FALSE(isPulsing());
    EXPECT_EQ(scale(), 1);
}

TEST_F(StatusBadgeTest, ANumberThatIsNoStatusIsInactive)
{
    const auto &badge = show("StatusBadge { status: 17; text: '' }");
    EXPECT_EQ(badge.property("icon").toString(), QStringLiteral("circle"));
    EXPECT_FALSE(isPulsing());
}

} // namespace

} // namespace sharedui
