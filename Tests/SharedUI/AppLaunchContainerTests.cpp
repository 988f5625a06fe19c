#include "Tests/SharedUI/SettingsFormTest.h"

#include <QAccessible>
#include <QFont>
#include <QTest>

namespace sharedui {

namespace {

class AppLaunchContainerTest : public SettingsFormTest
{
protected:
    QQuickItem &showContainer(const QByteArray &content)
    {
        view.resize(480, 680);
        view.setResizeMode(QQuickView::SizeViewToRootObject);
        return show("AppLaunchContainer { width: 480; height: 680; appTitle: '&Gallery <b>1</b>'; " +
                    content + "}");
    }

    QQuickItem &showContainer()
    {
        return showContainer("settingsExtra: Switch { objectName: 'extra'; title: 'Extra' }"
                             "Rectangle { objectName: 'main'; implicitWidth: 100; implicitHeight: 50;"
                             "property int count: 0; TapHandler { onTapped: parent.count += 1 } }");
    }

    [[nodiscard]] QRectF frameOf(const char *name) const
    {
        const auto &found = item(name);
        return found.mapRectToItem(&shown(), {{}, found.size()});
    }
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

} // namespace

} // namespace sharedui
