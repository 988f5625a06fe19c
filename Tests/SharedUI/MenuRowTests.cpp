#include "Tests/SharedUI/SharedUITest.h"

#include <QAccessible>
#include <QFont>
#include <QTest>

namespace sharedui {

namespace {

class MenuRowTest : public SharedUITest
{
protected:
    QQuickItem &arranged(const QByteArray &description)
    {
        auto &row = show(description);
        static_cast<void>(picture()); // which arranges it
        return row;
    }

    [[nodiscard]] QString textOf(const char *name) const { return item(name).property("text").toString(); }
    [[nodiscard]] QString nameOf(const char *symbol) const
    {
        return item(symbol).property("name").toString();
    }
    // Assistive technology is told by another item.
    void expectIgnored(const char *name)
    {
        auto *window = QAccessible::queryAccessibleInterface(&view);
        EXPECT_GT(window->childCount(), 0);
        for (int i = 0; i < window->childCount(); ++i) {
            EXPECT_NE(window->child(i)->object(), &item(name)) << name;
        }
    }
    [[nodiscard]] QColor color(const char *name) const
    {
        return item(name).property("color").value<QColor>();
    }
    [[nodiscard]] int pixelSize(const char *name) const
    {
        return item(name).property("font").value<QFont>().pixelSize();
    }
    [[nodiscard]] int weight(const char *name) const
    {
        return item(name).property("font").value<QFont>().weight();
    }
    [[nodiscard]] double number(const char *name, const char *property) const
    {
        return item(name).property(property).toDouble();
    }
    // Where an item is in the shown one.
    [[nodiscard]] QRectF place(const char *name) const
    {
        return item(name).mapRectToItem(&shown(), {{0, 0}, item(name).size()});
    }

    // A tile of 24 points with a symbol in the colour, on the same colour at the opacity.
    void expectTile(const QColor &tint, double opacity) const
    {
        EXPECT_EQ(place("tile").size(), QSizeF(24, 24));
        EXPECT_EQ(number("tile", "radius"), 6);
        EXPECT_EQ(color("icon"), tint);
        EXPECT_EQ(number("icon", "size"), 14);
        auto ground = tint;
        ground.setAlphaF(static_cast<float>(opacity));
        EXPECT_EQ(color("tile").rgba(), ground.rgba());
    }

    void setAppearance(bool isDark) { platform.appearance().set({isDark, QColor(200, 40, 0), {}, {}}); }
    static QRgb secondary(bool isDark) { return isDark ? 0x99FFFFFF : 0x99000000; }

    QQuickItem &showSetting(const QByteArray &fields = {})
    {
        return arranged("SettingsRow { width: 180; icon: 'bell.fill'; title: 'Sound'; isOn: false;"
                        "onToggled: wanted => isOn = wanted; " +
                        fields + "}");
    }

    QQuickItem &showSlider(const QByteArray &fields = {})
    {
        return show(
            "SliderRow { width: 180; icon: 'timer'; title: 'Rate'; value: 42.6; range: [20, 120]; step: 10;"
            "onMoved: wanted => value = wanted; " +
            fields + "}");
    }

    QQuickItem &showAction()
    {
        return show(
            "ActionRow { width: 180; icon: 'power'; title: 'Quit'; color: '#c82800'; property int count: 0;"
            "action: () => count += 1 }");
    }
};

TEST_F(MenuRowTest, ASettingIsATileATitleAndASmallSwitch)
{
    for (const bool isDark : {false, true}) {
        setAppearance(isDark);
        auto &row = showSetting();
        expectTile(QColor(200, 40, 0), 0.1);
        EXPECT_EQ(nameOf("icon"), QStringLiteral("bell.fill"));
        EXPECT_EQ(row.height(), 24 + 2 * 4);
        EXPECT_EQ(textOf("title"), QStringLiteral("Sound"));
        EXPECT_EQ(pixelSize("title"), 13);
        EXPECT_EQ(weight("title"), QFont::Normal);
        EXPECT_EQ(place("title").left(), 24 + 12);
        EXPECT_EQ(place("switch").right(), 180);
        EXPECT_TRUE(item("switch").property("isSmall").toBool());
        EXPECT_FALSE(item("switch").property("isTitleShown").toBool());
    }
}

TEST_F(MenuRowTest, ASettingWithoutASubtitleHasOneLine)
{
    showSetting();
    EXPECT_FALSE(item("subtitle").isVisible());
    EXPECT_EQ(item("texts").height(), item("title").height());
}

TEST_F(MenuRowTest, ASettingsSubtitleIsBelowItsTitle)
{
    for (const bool isDark : {false, true}) {
        setAppearance(isDark);
        showSetting("subtitle: 'While it beats';");
        EXPECT_TRUE(item("subtitle").isVisible());
        EXPECT_EQ(textOf("subtitle"), QStringLiteral("While it beats"));
        EXPECT_EQ(pixelSize("subtitle"), 11);
        EXPECT_EQ(color("subtitle").rgba(), secondary(isDark));
        EXPECT_EQ(place("subtitle").top(), place("title").bottom() + 2);
        EXPECT_EQ(place("subtitle").left(), place("title").left());
    }
}

TEST_F(MenuRowTest, ASettingIsWhatItsOwnerSays)
{
    auto &row = showSetting();
    QTest::mouseClick(&view, Qt::LeftButton, {}, place("switch").center().toPoint());
    EXPECT_TRUE(row.property("isOn").toBool());
    QTest::keyClick(&view, Qt::Key_Tab);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_FALSE(row.property("isOn").toBool());
    row.setProperty("isOn", true);
    EXPECT_TRUE(item("switch").property("isOn").toBool());
}

TEST_F(MenuRowTest, ASettingsSwitchHasItsName)
{
    showSetting("subtitle: 'While it beats';");
    QAccessible::setActive(true);
    auto *accessible = QAccessible::queryAccessibleInterface(&item("button"));
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Sound"));
    EXPECT_EQ(accessible->text(QAccessible::Description), QStringLiteral("While it beats"));
    EXPECT_FALSE(accessible->state().checked);
    expectIgnored("title");
    expectIgnored("subtitle");
    QAccessible::setActive(false);
}

TEST_F(MenuRowTest, ASliderIsBelowItsTitleAndItsValue)
{
    for (const bool isDark : {false, true}) {
        setAppearance(isDark);
        auto &row = showSlider();
        EXPECT_EQ(textOf("title"), QStringLiteral("Rate"));
        EXPECT_EQ(nameOf("icon"), QStringLiteral("timer"));
        EXPECT_EQ(number("icon", "size"), 12);
        EXPECT_EQ(color("icon"), QColor(200, 40, 0));
        EXPECT_EQ(pixelSize("title"), 12);
        EXPECT_EQ(place("title").left(), item("icon").width() + 8);
        EXPECT_EQ(pixelSize("value"), 11);
        EXPECT_EQ(color("value").rgba(), secondary(isDark));
        EXPECT_EQ(place("value").width(), 40);
        EXPECT_EQ(place("value").right(), 180);
        EXPECT_EQ(number("value", "horizontalAlignment"), Qt::AlignRight);
        const auto slider = place("slider");
        EXPECT_EQ(slider.width(), 180);
        EXPECT_EQ(slider.bottom(), row.height() - 4);
        EXPECT_TRUE(item("slider").property("isSmall").toBool());
        EXPECT_EQ(slider.top(), item("title").parentItem()->y() + item("title").parentItem()->height() + 8);
    }
}

TEST_F(MenuRowTest, ASlidersValueIsShownWithoutFractionUnlessTold)
{
    auto &row = showSlider();
    EXPECT_EQ(textOf("value"), QStringLiteral("43"));
    row.setProperty("format", QStringLiteral("%.1f"));
    EXPECT_EQ(textOf("value"), QStringLiteral("42.6"));
    row.setProperty("format", QStringLiteral("%s"));
    EXPECT_EQ(textOf("value"), QStringLiteral("43"));
}

TEST_F(MenuRowTest, ASlidersValueIsItsOwners)
{
    auto &row = showSlider();
    const auto slider = place("slider");
    QTest::mouseClick(&view, Qt::LeftButton, {},
                      {static_cast<int>(slider.right()) - 2, static_cast<int>(slider.center().y())});
    EXPECT_EQ(row.property("value").toDouble(), 120);
    EXPECT_EQ(textOf("value"), QStringLiteral("120"));
    QTest::keyClick(&view, Qt::Key_Left);
    EXPECT_EQ(row.property("value").toDouble(), 110);
    row.setProperty("value", 50.0);
    EXPECT_EQ(number("slider", "value"), 50);
    QAccessible::setActive(true);
    auto *accessible = QAccessible::queryAccessibleInterface(&item("accessibleSlider"));
    ASSERT_TRUE(accessible && accessible->valueInterface());
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Rate"));
    expectIgnored("title");
    accessible->valueInterface()->setCurrentValue(70);
    EXPECT_EQ(row.property("value").toDouble(), 70);
    QAccessible::setActive(false);
}

TEST_F(MenuRowTest, AnActionIsATileATitleAndAChevron)
{
    for (const bool isDark : {false, true}) {
        setAppearance(isDark);
        const auto &row = showAction();
        expectTile(QColor(200, 40, 0), 0.15);
        EXPECT_EQ(row.height(), 24 + 2 * 6);
        EXPECT_EQ(nameOf("icon"), QStringLiteral("power"));
        EXPECT_EQ(textOf("title"), QStringLiteral("Quit"));
        EXPECT_EQ(pixelSize("title"), 13);
        EXPECT_EQ(color("title").rgba(), (isDark ? 0xD9FFFFFF : 0xD9000000));
        EXPECT_EQ(place("title").left(), 24 + 12);
        EXPECT_EQ(nameOf("chevron"), QStringLiteral("chevron.right"));
        EXPECT_EQ(number("chevron", "size"), 10);
        EXPECT_EQ(color("chevron").rgba(), secondary(isDark));
        EXPECT_EQ(place("chevron").right(), 180);
    }
}

TEST_F(MenuRowTest, AnActionRunsOnceForEachClickAnywhere)
{
    const auto &row = showAction();
    int expected = 0;
    for (const QPoint where : {QPoint(1, 1), QPoint(130, 18), QPoint(178, 34)}) {
        QTest::mouseClick(&view, Qt::LeftButton, {}, where);
        EXPECT_EQ(row.property("count").toInt(), ++expected);
    }
    QTest::keyClick(&view, Qt::Key_Tab);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(row.property("count").toInt(), ++expected);
    QAccessible::setActive(true);
    auto *accessible = QAccessible::queryAccessibleInterface(&shown());
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Quit"));
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(row.property("count").toInt(), ++expected);
    QAccessible::setActive(false);
}

TEST_F(MenuRowTest, AFigureInALine)
{
    for (const bool isDark : {false, true}) {
        setAppearance(isDark);
        arranged("StatRow { width: 180; icon: 'number'; value: '12'; label: 'Beats' }");
        EXPECT_EQ(place("frame").width(), 24);
        EXPECT_EQ(place("icon").center().x(), 12);
        EXPECT_EQ(nameOf("icon"), QStringLiteral("number"));
        EXPECT_EQ(number("icon", "size"), 13);
        EXPECT_EQ(color("icon"), QColor(200, 40, 0));
        EXPECT_EQ(textOf("label"), QStringLiteral("Beats"));
        EXPECT_EQ(color("label").rgba(), secondary(isDark));
        EXPECT_EQ(place("label").left(), 24 + 8);
        EXPECT_EQ(textOf("value"), QStringLiteral("12"));
        EXPECT_EQ(pixelSize("value"), 13);
        EXPECT_EQ(weight("value"), QFont::Medium);
        EXPECT_NEAR(place("value").right(), 180, 1);
    }
}

TEST_F(MenuRowTest, AFigureInAColumn)
{
    for (const bool isDark : {false, true}) {
        setAppearance(isDark);
        const auto &column = arranged("StatColumn { icon: 'number'; value: '12'; label: 'Beats a minute' }");
        EXPECT_EQ(nameOf("icon"), QStringLiteral("number"));
        EXPECT_EQ(textOf("value"), QStringLiteral("12"));
        EXPECT_EQ(textOf("label"), QStringLiteral("Beats a minute"));
        EXPECT_EQ(number("icon", "size"), 16);
        EXPECT_EQ(color("icon"), QColor(200, 40, 0));
        EXPECT_EQ(pixelSize("value"), 18);
        EXPECT_EQ(weight("value"), QFont::Bold);
        EXPECT_EQ(pixelSize("label"), 10);
        EXPECT_EQ(color("label").rgba(), secondary(isDark));
        EXPECT_EQ(place("value").top(), place("icon").bottom() + 6);
        EXPECT_EQ(place("label").top(), place("value").bottom() + 6);
        for (const auto *part : {"icon", "value", "label"}) {
            EXPECT_NEAR(place(part).center().x(), column.width() / 2, 0.5) << part;
        }
    }
}

} // namespace

} // namespace sharedui
