#include "Tests/SharedUI/SettingsFormTest.h"

#include "Tests/Support/Eventually.h"

#include <QFont>
#include <QGuiApplication>

namespace sharedui {

namespace {

class AppLaunchContainerTest : public SettingsFormTest
{
protected:
    QQuickItem &showContainer(const QByteArray &content, const QSize &size = {480, 680})
    {
        view.resize(size);
        return show("AppLaunchContainer { id: container; property int built: 0; property int saves: 0;"
                    "width: " +
                    QByteArray::number(size.width()) + "; height: " + QByteArray::number(size.height()) +
                    "; appTitle: '&Gallery <b>1</b>'; onPreferencesSaved: saves += 1; " + content + "}");
    }

    QQuickItem &showContainer()
    {
        return showContainer(
            "settingsExtra: Switch { objectName: 'extra'; title: 'Extra'; onToggled: wanted => isOn = wanted;"
            "  Component.onCompleted: container.built += 1 }"
            "PlainButton { objectName: 'main'; text: 'Main'; implicitWidth: 100; implicitHeight: 50;"
            "  property int count: 0; onClicked: count += 1;"
            "  Component.onCompleted: container.built += 1 }");
    }

    [[nodiscard]] QRectF frameOf(const char *name) const
    {
        const auto &found = item(name);
        return found.mapRectToItem(&shown(), {{}, found.size()});
    }
    [[nodiscard]] int number(const char *property) const { return shown().property(property).toInt(); }
};

TEST_F(AppLaunchContainerTest, ShowsTheTitleAsItStands)
{
    showContainer();
    const auto &title = item("title");
    EXPECT_EQ(title.property("text").toString(), QStringLiteral("&Gallery <b>1</b>"));
    EXPECT_EQ(title.property("textFormat").toInt(), 0); // plain text
    EXPECT_EQ(title.property("font").value<QFont>().pixelSize(), 17);
    EXPECT_EQ(title.property("font").value<QFont>().weight(), QFont::DemiBold);
}

TEST_F(AppLaunchContainerTest, HasTheTitleAboveTheTabs)
{
    showContainer();
    const auto title = frameOf("title");
    EXPECT_EQ(title.topLeft(), QPointF(16, 10));
    EXPECT_EQ(title.width(), 480 - 2 * 16);
    const auto tabs = frameOf("tabs");
    EXPECT_EQ(tabs.topLeft(), QPointF(8, title.bottom() + 6));
    EXPECT_EQ(tabs.bottomRight(), QPointF(480 - 8, 680 - 8));
}

TEST_F(AppLaunchContainerTest, HasItsTwoTabsInOrder)
{
    showContainer();
    EXPECT_EQ(item("control").property("title").toString(), QStringLiteral("Control"));
    EXPECT_EQ(item("control").property("symbol").toString(), QStringLiteral("slider.horizontal.3"));
    EXPECT_EQ(item("settings").property("title").toString(), QStringLiteral("Settings"));
    EXPECT_EQ(item("settings").property("symbol").toString(), QStringLiteral("gearshape"));
    EXPECT_TRUE(item("control").isVisible());
    EXPECT_FALSE(item("settings").isVisible());
}

TEST_F(AppLaunchContainerTest, CentresContentThatDoesNotFill)
{
    showContainer();
    const auto tab = frameOf("control");
    EXPECT_EQ(frameOf("main").size(), QSizeF(100, 50));
    EXPECT_NEAR(frameOf("main").center().x(), tab.center().x(), 1);
    EXPECT_NEAR(frameOf("main").center().y(), tab.center().y(), 1);
}

TEST_F(AppLaunchContainerTest, GivesTheTabToContentThatFills)
{
    showContainer("Rectangle { objectName: 'main'; Layout.fillWidth: true; Layout.fillHeight: true }");
    EXPECT_EQ(frameOf("main"), frameOf("control"));
}

TEST_F(AppLaunchContainerTest, HasTheFormAndTheProgramsOwnSettingsBelow)
{
    showContainer();
    click(QStringLiteral("Settings"));
    const auto tab = frameOf("settings");
    const auto form = frameOf("form");
    EXPECT_EQ(form.topLeft(), tab.topLeft() + QPointF(8, 12));
    EXPECT_EQ(form.width(), tab.width() - 2 * 8);
    EXPECT_EQ(frameOf("extra").topLeft(), QPointF(form.left(), form.bottom() + 20));
    EXPECT_THAT(told(),
                testing::ElementsAre(
                    QStringLiteral("heading &Gallery <b>1</b>"), QStringLiteral("tabs"),
                    QStringLiteral("tab Control"), QStringLiteral("tab Settings (on)"),
                    QStringLiteral("heading General"), QStringLiteral("check box Launch at login"),
                    QStringLiteral("check box Show menu bar icon (on)"), QStringLiteral("heading Appearance"),
                    QStringLiteral("group Theme"), QStringLiteral("radio button System (on)"),
                    QStringLiteral("radio button Light"), QStringLiteral("radio button Dark"),
                    QStringLiteral("check box Reduce motion"),
                    QStringLiteral("check box Reduce transparency"), QStringLiteral("check box Extra")));
}

TEST_F(AppLaunchContainerTest, HasNothingBelowTheFormWhereNothingIsGiven)
{
    showContainer("Item {}");
    click(QStringLiteral("Settings"));
    EXPECT_FALSE(item("extraHolder").isVisible());
    EXPECT_EQ(item("settingsStack").height(), item("form").height());
    EXPECT_EQ(told().last(), QStringLiteral("check box Reduce transparency"));
}

TEST_F(AppLaunchContainerTest, ScrollsSettingsThatAreTallerThanTheTab)
{
    showContainer("settingsExtra: Rectangle { implicitWidth: 10; implicitHeight: 900 } Item {}");
    click(QStringLiteral("Settings"));
    EXPECT_TRUE(item("indicator").isVisible());
    EXPECT_EQ(item("scroll").property("contentHeight").toDouble(), item("settingsStack").height() + 2 * 12);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_End);
    EXPECT_GT(item("scroll").property("contentY").toDouble(), 0);
}

TEST_F(AppLaunchContainerTest, KeepsBothViewsAndTheTabForAsLongAsItLives)
{
    showContainer();
    EXPECT_EQ(number("built"), 2);
    click(QStringLiteral("Main"));
    click(QStringLiteral("Settings"));
    click(QStringLiteral("Extra"));
    EXPECT_FALSE(item("main").isVisible());
    view.hide();
    view.show();
    EXPECT_TRUE(item("settings").isVisible());
    EXPECT_TRUE(item("extra").property("isOn").toBool());
    click(QStringLiteral("Control"));
    EXPECT_TRUE(item("main").isVisible());
    EXPECT_EQ(item("main").property("count").toInt(), 1);
    EXPECT_EQ(number("built"), 2);
}

TEST_F(AppLaunchContainerTest, IsNeverSmallerThanItsMinimum)
{
    showContainer("Item {}", {300, 200});
    EXPECT_EQ(number("minimumWidth"), 420);
    EXPECT_EQ(number("minimumHeight"), 560);
    EXPECT_EQ(shown().implicitWidth(), 420);
    EXPECT_EQ(shown().implicitHeight(), 560);
    EXPECT_EQ(item("stack").size(), QSizeF(420, 560));
}

TEST_F(AppLaunchContainerTest, ALayoutGivesItItsMinimum)
{
    show("VStack { width: 300; height: 200; AppLaunchContainer { objectName: 'container'; appTitle: '';"
         "Layout.fillWidth: true; Layout.fillHeight: true; Item {} } }");
    EXPECT_EQ(item("container").size(), QSizeF(420, 560));
}

TEST_F(AppLaunchContainerTest, WrapsATitleThatIsTooLong)
{
    auto &container = showContainer("Item {}", {420, 560});
    const auto before = item("title").height();
    container.setProperty("appTitle", QString(200, QLatin1Char('W')));
    EXPECT_GT(item("title").property("lineCount").toInt(), 3);
    EXPECT_TRUE(testsupport::eventually([&] { return item("title").height() > 3 * before; }));
    EXPECT_EQ(item("title").width(), 420 - 2 * 16);
}

TEST_F(AppLaunchContainerTest, TellsThatPreferencesWereSavedAndAppliesNone)
{
    showContainer();
    click(QStringLiteral("Settings"));
    const auto before = item("title").property("color").value<QColor>();
    click(QStringLiteral("Dark"));
    click(QStringLiteral("Reduce motion"));
    EXPECT_EQ(number("saves"), 2);
    EXPECT_EQ(item("title").property("color").value<QColor>(), before);
    EXPECT_EQ(
        sharedcore::AppPreferences::load(),
        (sharedcore::AppPreferences{.theme = sharedcore::AppPreferences::Theme::dark, .reduceMotion = true}));
}

TEST_F(AppLaunchContainerTest, IsDrivenByKeysAlone)
{
    showContainer();
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("Control"));
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("Main"));
    press(Qt::Key_Space);
    EXPECT_EQ(item("main").property("count").toInt(), 1);
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(focused(), QStringLiteral("Settings"));
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("Launch at login"));
    for (int i = 0; i < 5; ++i) {
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(focused(), QStringLiteral("Extra"));
    press(Qt::Key_Return);
    EXPECT_TRUE(item("extra").property("isOn").toBool());
}

TEST_F(AppLaunchContainerTest, IsMirroredForWritingFromTheRight)
{
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    showContainer();
    EXPECT_GT(button(QStringLiteral("Control")).x(), button(QStringLiteral("Settings")).x());
    EXPECT_EQ(item("title").property("effectiveHorizontalAlignment").toInt(), Qt::AlignRight);
    click(QStringLiteral("Settings"));
    EXPECT_LT(button(QStringLiteral("Launch at login")).mapToScene({}).x(), 100);
    QGuiApplication::setLayoutDirection(Qt::LayoutDirectionAuto);
}

TEST_F(AppLaunchContainerTest, CausesNoFrameAtRest)
{
    showContainer();
    click(QStringLiteral("Settings"));
    click(QStringLiteral("Reduce motion"));
    auto &knob = *button(QStringLiteral("Reduce motion")).findChild<QQuickItem *>(QStringLiteral("knob"));
    ASSERT_TRUE(testsupport::eventually([&] { return knob.x() == 18; }));
    testsupport::letPass(std::chrono::milliseconds(100));
    frames = 0;
    testsupport::letPass(std::chrono::milliseconds(200));
    EXPECT_EQ(frames, 0);
}

} // namespace

} // namespace sharedui
