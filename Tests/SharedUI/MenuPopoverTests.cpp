#include "Tests/SharedUI/SharedUITest.h"

#include "Toolkit/SystemStyle.h"

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
    EXPECT_EQ(item("material").property("color").value<QColor>(), toolkit::SystemStyle().ultraThinMaterial());
    EXPECT_EQ(header.height(), std::max(item("title").height(), item("closeButton").height()) + 2 * 16);
    EXPECT_EQ(item("title").property("font").value<QFont>().pixelSize(), 13);
    EXPECT_EQ(item("title").property("font").value<QFont>().weight(), QFont::DemiBold);
    EXPECT_EQ(place("title").left(), 16);
    EXPECT_EQ(place("closeButton").right(), 320 - 16);
    EXPECT_EQ(place("holder").topLeft(), QPointF(16, header.bottom() + 1 + 16));
    EXPECT_EQ(place("holder").width(), 320 - 2 * 16);
    EXPECT_EQ(popover.height(), header.height() + 1 + 20 + 2 * 16);
}

TEST_F(MenuPopoverTest, CutsOffWhatIsWider)
{
    showPopover("Rectangle { implicitWidth: 900; implicitHeight: 20; color: 'red' }");
    const auto image = picture();
    const double y = 40 + place("holder").center().y();
    EXPECT_EQ(colorAt(image, 40 + 300, y), QColor(Qt::red));
    EXPECT_NE(colorAt(image, 40 + 319, y).green(), 255);
    EXPECT_GT(colorAt(image, 40 + 321, y).green(), 150); // the shadow
}

TEST_F(MenuPopoverTest, LongTextsStayInIt)
{
    const QByteArray figure = "value: '1.234.567,89 Kilometer am Tag'; icon: 'timer';"
                              "label: 'Durchschnittliche Schlagfrequenz je Trainingseinheit'";
    const QByteArray name = "title: 'Benachrichtigungseinstellungen der Bildschirmschonerverwaltung'";
    showPopover("HStack { Repeater { model: 3; StatColumn { " + figure + "} } }" + "StatRow {" + figure +
                "} ActionRow { icon: 'power'; color: 'red'; action: () => {};" + name +
                "} SettingsRow { icon: 'timer'; isOn: true; subtitle: title + title;" + name +
                "} SliderRow { icon: 'timer'; value: 5; range: [0, 9]; step: 1; format: '%.99f';" + name +
                "}");
    static_cast<void>(picture()); // which arranges it
    const auto inside = place("holder");
    EXPECT_EQ(shownTexts().size(), 3 * 2 + 2 + 1 + 2 + 2 + 1);
    for (auto *text : shownTexts()) {
        const auto area = text->mapRectToItem(&shown(), {{0, 0}, text->size()});
        SCOPED_TRACE(text->property("text").toString().toStdString());
        EXPECT_GE(area.left(), inside.left());
        EXPECT_LE(area.right(), inside.right() + 0.5);
        EXPECT_GT(area.width(), 0);
        EXPECT_LE(text->property("contentWidth").toDouble(), area.width() + 0.5);
    }
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

TEST_F(MenuPopoverTest, ThatFillsItsWindowHasNeitherCornersNorShadow)
{
    const auto &popover = showPopover();
    shown().setProperty("fillsWindow", true);
    const auto image = picture();
    EXPECT_EQ(colorAt(image, 41, 40 + popover.height() - 2), colorAt(image, 200, 40 + popover.height() - 2));
    EXPECT_EQ(colorAt(image, 41, 41), colorAt(image, 200, 41));
    EXPECT_NE(colorAt(image, 41, 41), QColor(Qt::white));
    EXPECT_EQ(colorAt(image, 200, 40 + popover.height() + 10), QColor(Qt::white));
}

TEST_F(MenuPopoverTest, ItsTitleIsAHeading)
{
    showPopover();
    QAccessible::setActive(true);
    auto *accessible = QAccessible::queryAccessibleInterface(&item("title"));
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::Heading);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Heart"));
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

} // namespace

} // namespace sharedui
