// What the window shows and does.

#include "App/FirstTexts.h"
#include "Tests/App/MainWindowTest.h"

namespace stirra {

namespace {

using testing::ElementsAre;

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

TEST_F(MainWindowTest, AFreshWindowIsInactive)
{
    EXPECT_THAT(texts("statusHero"), ElementsAre(text("Inactive"), text("Click Start to begin")));
    EXPECT_TRUE(item("Mouse Jiggle").property("isChecked").toBool());
    EXPECT_TRUE(item("30s").property("isChecked").toBool());
    EXPECT_THAT(texts("actionsCard"), ElementsAre(text("0"), text("Actions")));
    EXPECT_THAT(texts("uptimeCard"), ElementsAre(text("0s"), text("Uptime")));
    EXPECT_THAT(texts("intervalStatCard"), ElementsAre(text("30s"), text("Interval")));
    EXPECT_TRUE(items("logCard").isEmpty());
    EXPECT_THAT(texts("headerBar"), ElementsAre(text("Stirra"), text("Start"), text("Anti-sleep utility")));
}

TEST_F(MainWindowTest, TheFirstStartShowsTheLogWithOneEvent)
{
    click("toggleButton");
    EXPECT_TRUE(engine().isActive());
    EXPECT_TRUE(item("logCard").isVisible());
    EXPECT_THAT(texts("logCard"), testing::Contains(text("1 events")));
    EXPECT_EQ(items("logRow").size(), 1);
    EXPECT_THAT(texts("headerBar"),
                ElementsAre(text("Stirra"), text("Stop"), text("Keeping your Mac awake")));
    advanceSeconds(125);
    EXPECT_THAT(texts("statusHero"), ElementsAre(text("Active"), text("Uptime: 2m 05s")));
    EXPECT_THAT(texts("actionsCard"), ElementsAre(text("4"), text("Actions")));
}

TEST_F(MainWindowTest, TheLineUnderTheChipsTellsTheLastAction)
{
    const auto secondary = item("lastAction").property("color");
    EXPECT_EQ(item("lastAction").property("text").toString(), text("None yet"));
    click("toggleButton");
    EXPECT_EQ(item("lastAction").property("text").toString(), text("Starting..."));
    EXPECT_EQ(item("lastAction").property("color").value<QColor>(), QColor(0x34C759));
    advanceSeconds(30);
    EXPECT_EQ(item("lastAction").property("text").toString(), text("Mouse jiggle (+1,+1)"));
    click("toggleButton");
    EXPECT_EQ(item("lastAction").property("text").toString(), text("Stopped"));
    EXPECT_EQ(item("lastAction").property("color"), secondary);
}

TEST_F(MainWindowTest, ShowsFifteenRowsAndTheFullCount)
{
    click("toggleButton");
    advanceSeconds(30 * 20);
    EXPECT_EQ(items("logRow").size(), 15);
    EXPECT_THAT(texts("logCard"), testing::Contains(text("21 events")));
    advanceSeconds(30 * 60);
    EXPECT_EQ(items("logRow").size(), 15);
    EXPECT_THAT(texts("logCard"), testing::Contains(text("50 events")));
}

TEST_F(MainWindowTest, ANewEntryKeepsTheOtherRows)
{
    click("toggleButton");
    advanceSeconds(30 * 20);
    const auto before = items("logRow");
    advanceSeconds(30);
    const auto after = items("logRow");
    const auto kept = std::ranges::count_if(after, [&](QQuickItem *row) { return before.contains(row); });
    EXPECT_EQ(after.size(), 15);
    EXPECT_EQ(kept, 14);
}

TEST_F(MainWindowTest, ChoicesAreIgnoredWhileActiveAndTakenAfterStop)
{
    click("toggleButton");
    click("Scroll Pulse");
    click("5m");
    EXPECT_TRUE(item("Mouse Jiggle").property("isChecked").toBool());
    EXPECT_FALSE(item("Scroll Pulse").property("isChecked").toBool());
    EXPECT_TRUE(item("30s").property("isChecked").toBool());
    EXPECT_TRUE(item("5m").isEnabled());
    EXPECT_EQ(item("5m").opacity(), 1.0);
    click("toggleButton");
    click("Scroll Pulse");
    click("5m");
    EXPECT_TRUE(item("Scroll Pulse").property("isChecked").toBool());
    EXPECT_FALSE(item("Mouse Jiggle").property("isChecked").toBool());
    EXPECT_EQ(engine().intervalSeconds(), 300.0);
    EXPECT_THAT(texts("intervalStatCard"), ElementsAre(text("5m"), text("Interval")));
    EXPECT_THAT(texts("intervalCard"), testing::Contains(text("Every 5m, Stirra simulates:")));
}

TEST_F(MainWindowTest, TheChipsReadTheirIntervals)
{
    for (const char *name : {"15s", "30s", "1m", "2m", "5m"}) {
        EXPECT_THAT(texts(name), ElementsAre(text(name)));
    }
}

TEST_F(MainWindowTest, ALongUptimeShrinksOnOneLine)
{
    auto &value = textItem("uptimeCard", text("0s"));
    const auto height = value.height();
    engine().setProperty("uptimeSeconds", qint64(123456789) * 3600);
    (void)picture();
    EXPECT_EQ(value.property("lineCount").toInt(), 1);
    EXPECT_LE(value.property("contentWidth").toReal(), value.width());
    EXPECT_LE(value.height(), height + 1);
    engine().setProperty("uptimeSeconds", qint64(1234) * 3600 + 59 * 60 + 59);
    (void)picture();
    EXPECT_FALSE(value.property("truncated").toBool());
    EXPECT_LE(value.property("contentWidth").toReal(), value.width());
}

TEST_F(MainWindowTest, IsWorkedFromTheKeyboard)
{
    QStringList order;
    for (int i = 0; i < 10; ++i) {
        press(Qt::Key_Tab);
        order.append(window().activeFocusItem()->objectName());
    }
    EXPECT_EQ(order.join(QLatin1Char('|')),
              text("toggleButton|Mouse Jiggle|Key Press|Mouse + Key|Scroll Pulse|15s|30s|1m|2m|5m"));
    press(Qt::Key_Space);
    EXPECT_EQ(engine().intervalSeconds(), 300.0);
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_TRUE(engine().isActive());
    press(Qt::Key_Enter);
    EXPECT_FALSE(engine().isActive());
}

TEST_F(MainWindowTest, TheFocusIsVisible)
{
    const auto without = picture();
    press(Qt::Key_Tab);
    EXPECT_NE(picture(), without);
}

TEST_F(MainWindowTest, DrawsEveryLetterOfItsFirstTextsAside)
{
    QHash<QFont, QString> letters;
    for (const auto &[font, text] : firstTexts()) {
        letters[font] += text;
    }
    for (const auto *label : window().rootObject()->findChildren<QQuickItem *>()) {
        if (label->inherits("QQuickText") && label->isVisible()) {
            const auto drawn = letters.value(label->property("font").value<QFont>());
            for (const auto letter : label->property("text").toString()) {
                EXPECT_TRUE(letter == QLatin1Char(' ') || drawn.contains(letter))
                    << label->property("text").toString().toStdString();
            }
        }
    }
}

TEST_F(MainWindowTest, FollowsTheDesktopLive)
{
    const auto background = [this] { return window().rootObject()->property("color").value<QColor>(); };
    EXPECT_GT(background().lightness(), 200);
    platform.appearance().set({true, QColor(Qt::magenta), QStringLiteral("Inter"), {}});
    EXPECT_LT(background().lightness(), 60);
    EXPECT_EQ(item("30s").property("contentColor").value<QColor>(), QColor(Qt::magenta));
    platform.appearance().set({false, {}, QStringLiteral("Liberation Sans"), {}});
    EXPECT_EQ(textItem("headerBar", text("Stirra")).property("font").value<QFont>().family(),
              QStringLiteral("Liberation Sans"));
}

} // namespace

} // namespace stirra
