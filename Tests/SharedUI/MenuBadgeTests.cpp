// The small signs of a menu: its icon with a number, and the keys of a shortcut.

#include "Tests/SharedUI/SharedUITest.h"

#include "Toolkit/SystemStyle.h"

#include <QAccessible>
#include <QFont>

#include <algorithm>

namespace sharedui {

namespace {

class MenuBarIconViewTest : public SharedUITest
{
protected:
    QQuickItem &showIcon(const QByteArray &fields)
    {
        return show("MenuBarIconView { x: 50; y: 50; icon: 'bell.fill'; isActive: true; color: '#c82800'; " +
                    fields + "}");
    }
};

TEST_F(MenuBarIconViewTest, IsASymbolInItsColourWhileActive)
{
    auto &icon = showIcon({});
    EXPECT_EQ(icon.size(), QSizeF(22, 22));
    const auto &symbol = item("icon");
    EXPECT_EQ(symbol.property("name").toString(), QStringLiteral("bell.fill"));
    EXPECT_EQ(symbol.property("size").toDouble(), 16);
    EXPECT_EQ(symbol.property("weight").toInt(), QFont::Medium);
    EXPECT_EQ(symbol.property("color").value<QColor>(), QColor(0xc8, 0x28, 0));
    icon.setProperty("isActive", false);
    EXPECT_EQ(symbol.property("color").value<QColor>().rgba(), 0x99000000);
}

TEST_F(MenuBarIconViewTest, HasNoBadgeWithoutANumberAboveZero)
{
    for (const auto *fields : {"", "badge: 0", "badge: -4", "badge: undefined", "badge: null"}) {
        showIcon(fields);
        EXPECT_FALSE(item("badge").isVisible()) << fields;
        EXPECT_EQ(shown().size(), QSizeF(22, 22));
    }
}

TEST_F(MenuBarIconViewTest, ItsBadgeIsARedCapsuleOverTheCorner)
{
    const auto &icon = showIcon("badge: 3");
    const auto &badge = item("badge");
    const auto &number = item("number");
    EXPECT_TRUE(badge.isVisible());
    EXPECT_EQ(number.property("text").toString(), QStringLiteral("3"));
    EXPECT_EQ(number.property("font").value<QFont>().pixelSize(), 9);
    EXPECT_EQ(number.property("font").value<QFont>().weight(), QFont::Bold);
    EXPECT_EQ(number.property("color").value<QColor>(), QColor(Qt::white));
    EXPECT_EQ(badge.property("color").value<QColor>(), QColor(0xFF, 0x3B, 0x30));
    EXPECT_EQ(badge.width(), number.width() + 8);
    EXPECT_EQ(badge.height(), number.height() + 2);
    EXPECT_EQ(badge.property("radius").toDouble(), badge.height() / 2);
    EXPECT_EQ(badge.x() + badge.width(), icon.width() + 6);
    EXPECT_EQ(badge.y(), -6);
    EXPECT_EQ(colorAt(picture(), 50 + badge.x() + 2, 50 + badge.y() + badge.height() / 2),
              QColor(0xFF, 0x3B, 0x30));
}

TEST_F(MenuBarIconViewTest, GrowsWithALongBadgeAndKeepsItsCorner)
{
    const auto &icon = showIcon("badge: 9876543210");
    const auto &badge = item("badge");
    EXPECT_EQ(item("number").property("text").toString(), QStringLiteral("9876543210"));
    EXPECT_GT(icon.width(), 22);
    EXPECT_EQ(icon.width(), badge.width());
    EXPECT_EQ(item("icon").parentItem()->x() + 22, icon.width());
}

class ShortcutBadgeTest : public SharedUITest
{
protected:
    // Those that are seen, from the left.
    [[nodiscard]] QList<QQuickItem *> labels()
    {
        static_cast<void>(picture()); // which arranges them
        auto labels = shownTexts();
        std::ranges::sort(labels, {}, [](const QQuickItem *label) { return label->mapToScene({0, 0}).x(); });
        return labels;
    }

    // A rounded rectangle, filled, and the same with a stroke over it.
    static void expectCap(const QQuickItem &cap)
    {
        EXPECT_EQ(cap.property("radius").toDouble(), 4);
        EXPECT_EQ(cap.property("color").value<QColor>(), toolkit::SystemStyle().controlFace());
        const auto &stroke = *cap.childItems().at(0);
        EXPECT_EQ(stroke.property("strokeWidth").toDouble(), 1);
        EXPECT_NEAR(stroke.property("strokeColor").value<QColor>().alphaF(), 0.6 * 0.2, 0.005);
        const auto line = stroke.property("margin").toDouble();
        EXPECT_EQ(stroke.mapRectToItem(&cap, {{line, line}, stroke.size() - QSizeF(2 * line, 2 * line)}),
                  QRectF({-0.5, -0.5}, cap.size() + QSizeF(1, 1)));
    }

    [[nodiscard]] QStringList texts()
    {
        QStringList texts;
        for (const auto *label : labels()) {
            texts.append(label->property("text").toString());
        }
        return texts;
    }
};

TEST_F(ShortcutBadgeTest, IsACapForEachKeyWithAPlusBetween)
{
    show("ShortcutBadge { keys: ['⌘', '⇧', 'P'] }");
    EXPECT_EQ(texts().join(QLatin1Char(' ')), QStringLiteral("⌘ + ⇧ + P"));
    double right = 0;
    for (const auto *label : labels()) {
        EXPECT_NEAR(label->mapToScene({0, 0}).x(), right, 1);
        right = label->mapToScene({0, 0}).x() + label->width();
        const auto font = label->property("font").value<QFont>();
        const bool isKey = label->objectName() == QStringLiteral("key");
        EXPECT_EQ(isKey, label->property("text").toString() != QStringLiteral("+"));
        EXPECT_EQ(font.pixelSize(), 10);
        EXPECT_EQ(font.weight(), isKey ? QFont::Medium : QFont::Normal);
        EXPECT_EQ(label->property("leftPadding").toDouble(), isKey ? 5 : 2);
        EXPECT_EQ(label->property("rightPadding").toDouble(), isKey ? 5 : 2);
        EXPECT_EQ(label->property("topPadding").toDouble(), isKey ? 2 : 0);
        if (isKey) {
            expectCap(*label->parentItem());
        }
    }
    EXPECT_NEAR(shown().width(), right, 1);
}

TEST_F(ShortcutBadgeTest, IsReadFromTheLeftInEveryLanguage)
{
    show("Item { LayoutMirroring.enabled: true; LayoutMirroring.childrenInherit: true;"
         "width: 180; height: 40; ShortcutBadge { keys: ['Ctrl', 'Q'] } }");
    EXPECT_EQ(texts().join(QLatin1Char(' ')), QStringLiteral("Ctrl + Q"));
}

TEST_F(ShortcutBadgeTest, IsOneTextToAssistiveTechnology)
{
    show("ShortcutBadge { keys: ['Ctrl', 'Q'] }");
    QAccessible::setActive(true);
    auto *accessible = QAccessible::queryAccessibleInterface(&shown());
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::StaticText);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Ctrl+Q"));
    EXPECT_EQ(accessible->childCount(), 0);
    QAccessible::setActive(false);
}

TEST_F(ShortcutBadgeTest, OfOneKeyHasNoPlusAndOfNoneNothing)
{
    show("ShortcutBadge { keys: ['Esc'] }");
    EXPECT_EQ(texts(), QStringList{QStringLiteral("Esc")});
    show("ShortcutBadge { keys: [] }");
    EXPECT_TRUE(texts().isEmpty());
    EXPECT_EQ(shown().width(), 0);
}

} // namespace

} // namespace sharedui
