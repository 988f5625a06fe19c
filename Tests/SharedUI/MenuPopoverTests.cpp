#include "Tests/SharedUI/SharedUITest.h"

#include <QAccessible>
#include <QFont>
#include <QGuiApplication>
#include <QTest>

#include <algorithm>

namespace sharedui {

namespace {

class MenuPopoverTest : public SharedUITest
{
protected:
    MenuPopoverTest() { view.resize(400, 300); }

    QQuickItem &showPopover(const QByteArray &content = "Rectangle { implicitWidth: 10; implicitHeight: 20 }")
    {
        return show(
            "MenuPopoverContainer { id: popover; property int closes: 0; x: 40; y: 40; title: 'Heart';"
            "onClose: closes += 1; " +
            content + "}");
    }

    [[nodiscard]] QRectF place(const char *name) const
    {
        return item(name).mapRectToItem(&shown(), {{0, 0}, item(name).size()});
    }
    [[nodiscard]] QPoint closeButton() const
    {
        return place("closeButton").center().toPoint() + QPoint(40, 40);
    }
    [[nodiscard]] int closes() const { return shown().property("closes").toInt(); }
};

TEST_F(MenuPopoverTest, Is320WideWhateverItsContent)
{
    for (const auto *content : {"", "Rectangle { implicitWidth: 10; implicitHeight: 20 }",
                                "Rectangle { implicitWidth: 900; implicitHeight: 20 }"}) {
        const auto &popover = showPopover(content);
        EXPECT_EQ(popover.width(), 320) << content;
        EXPECT_EQ(popover.implicitWidth(), 320) << content;
    }
}

TEST_F(MenuPopoverTest, IsAHeaderALineAndTheContent)
{
    const auto &popover = showPopover();
    const auto header = place("header");
    EXPECT_EQ(header.topLeft(), QPointF(0, 0));
    EXPECT_EQ(header.width(), 320);
    EXPECT_EQ(header.height(), std::max(item("title").height(), item("closeButton").height()) + 2 * 16);
    EXPECT_EQ(item("title").property("font").value<QFont>().pixelSize(), 13);
    EXPECT_EQ(item("title").property("font").value<QFont>().weight(), QFont::DemiBold);
    EXPECT_EQ(place("title").left(), 16);
    EXPECT_EQ(place("closeButton").right(), 320 - 16);
    EXPECT_EQ(place("holder").topLeft(), QPointF(16, header.bottom() + 1 + 16));
    EXPECT_EQ(place("holder").width(), 320 - 2 * 16);
    EXPECT_EQ(popover.height(), header.height() + 1 + 20 + 2 * 16);
}

TEST_F(MenuPopoverTest, IsMirroredForWritingFromTheRight)
{
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    showPopover("ActionRow { icon: 'power'; title: 'Quit'; color: 'red'; action: () => {} }");
    static_cast<void>(picture()); // which arranges it
    EXPECT_EQ(place("closeButton").left(), 16);
    EXPECT_EQ(item("title").property("effectiveHorizontalAlignment").toInt(), Qt::AlignRight);
    EXPECT_EQ(place("tile").right(), 320 - 16);
    EXPECT_EQ(place("chevron").left(), 16);
    QGuiApplication::setLayoutDirection(Qt::LayoutDirectionAuto);
}

TEST_F(MenuPopoverTest, ItsTitleIsShownAsItStands)
{
    showPopover();
    shown().setProperty("title", QStringLiteral("<b>Heart</b> & more"));
    EXPECT_EQ(item("title").property("text").toString(), QStringLiteral("<b>Heart</b> & more"));
    EXPECT_EQ(item("title").property("textFormat").toInt(), Qt::PlainText);
}

TEST_F(MenuPopoverTest, ClosesOnceForEachClick)
{
    showPopover();
    for (int i = 1; i <= 3; ++i) {
        QTest::mouseClick(&view, Qt::LeftButton, {}, closeButton());
        EXPECT_EQ(closes(), i);
    }
    QTest::mouseClick(&view, Qt::LeftButton, {}, {100, 60});
    EXPECT_EQ(closes(), 3);
    QTest::keyClick(&view, Qt::Key_Tab);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(closes(), 4);
}

TEST_F(MenuPopoverTest, ItsCloseButtonIsASymbolWithAName)
{
    showPopover();
    auto symbols = item("closeButton").childItems();
    symbols.removeIf([](const QQuickItem *child) { return !child->property("weight").isValid(); });
    ASSERT_EQ(symbols.size(), 1);
    EXPECT_EQ(symbols[0]->property("name").toString(), QStringLiteral("xmark.circle.fill"));
    EXPECT_EQ(symbols[0]->property("size").toDouble(), 16);
    EXPECT_EQ(symbols[0]->property("color").value<QColor>().rgba(), 0x99000000);
    QAccessible::setActive(true);
    auto *accessible = QAccessible::queryAccessibleInterface(&item("closeButton"));
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Close"));
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(closes(), 1);
    QAccessible::setActive(false);
}

TEST_F(MenuPopoverTest, HasRoundCornersAndAShadowBelow)
{
    for (const bool isDark : {false, true}) {
        setDark(isDark);
        const auto &popover = showPopover();
        const auto image = picture();
        const double bottom = 40 + popover.height();
        EXPECT_EQ(item("ground").property("radius").toDouble(), 12);
        EXPECT_NE(colorAt(image, 200, bottom - 3), QColor(Qt::white));
        EXPECT_NEAR(colorAt(image, 42, 42).red(), colorAt(image, 38, 44).red(),
                    12); // nothing of it in its corner
        // 20 % of black where the shadow, 10 points lower, is whole; half of that at its own edge.
        EXPECT_NEAR(colorAt(image, 200, bottom + 10).red(), 255 * 0.9, 8);
        EXPECT_GT(colorAt(image, 200, 36).red(), colorAt(image, 200, bottom + 4).red() + 10);
    }
}

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
    EXPECT_EQ(symbol.property("size").toDouble(), 16);
    EXPECT_EQ(symbol.property("weight").toInt(), QFont::Medium);
    EXPECT_EQ(symbol.property("color").value<QColor>(), QColor(0xc8, 0x28, 0));
    icon.setProperty("isActive", false);
    EXPECT_EQ(symbol.property("color").value<QColor>().rgba(), 0x99000000);
}

TEST_F(MenuBarIconViewTest, HasNoBadgeWithoutANumberAboveZero)
{
    for (const auto *fields : {"", "badge: 0", "badge: -4"}) {
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
    const auto &icon = showIcon("badge: 1234567");
    const auto &badge = item("badge");
    EXPECT_GT(icon.width(), 22);
    EXPECT_EQ(icon.width(), badge.width());
    EXPECT_EQ(item("icon").parentItem()->x() + 22, icon.width());
}

void gatherTexts(const QQuickItem &item, QList<QQuickItem *> &texts)
{
    for (auto *child : item.childItems()) {
        if (child->inherits("QQuickText") && child->isVisible()) {
            texts.append(child);
        }
        gatherTexts(*child, texts);
    }
}

class ShortcutBadgeTest : public SharedUITest
{
protected:
    // Those that are seen, from the left.
    [[nodiscard]] QList<QQuickItem *> labels()
    {
        static_cast<void>(picture()); // which arranges them
        QList<QQuickItem *> labels;
        gatherTexts(shown(), labels);
        std::ranges::sort(labels, {}, [](const QQuickItem *label) { return label->mapToScene({0, 0}).x(); });
        return labels;
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
            EXPECT_EQ(label->parentItem()->property("radius").toDouble(), 4);
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
