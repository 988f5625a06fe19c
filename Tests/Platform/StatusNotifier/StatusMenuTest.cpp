#include "Tests/Platform/StatusNotifier/StatusItemTest.h"

#include "Tests/Platform/StatusNotifier/SeenValues.h"

#include <QDBusObjectPath>

namespace platform {

namespace {

using testing::ElementsAre;
using testsupport::eventually;
using testsupport::SeenNode;
using testsupport::SeenProperties;

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

class StatusMenuTest : public StatusItemTest
{
protected:
    StatusMenuTest() { seen = showItem(*watcher); }

    std::function<void()> note(int number)
    {
        return [this, number] { chosen.push_back(number); };
    }

    void setMenu()
    {
        item->setMenu(
            {{"Faster_now", note(1)}, {}, {"Slower", note(3), false}, {"Beat", note(4), true, true}});
    }

    // Waits for the next registration, and looks at it from now on.
    [[nodiscard]] bool joinsAgain()
    {
        const auto count = ++joined;
        const bool has = eventually([&] { return watcher->registered.size() == count; });
        seen = see(*watcher);
        return has;
    }

    [[nodiscard]] QString menuPathSeen() const
    {
        return seen->property("Menu").value<QDBusObjectPath>().path();
    }

    struct Layout
    {
        uint revision = 0;
        SeenNode root;
        QList<SeenNode> items;
    };

    [[nodiscard]] Layout layout(const QStringList &names = {}) const
    {
        const auto answer = seen->callMenu("GetLayout", {0, -1, names});
        Layout layout{answer.value(0).toUInt(), qdbus_cast<SeenNode>(answer.value(1)), {}};
        for (const auto &child : layout.root.children) {
            layout.items.append(qdbus_cast<SeenNode>(child.variant()));
        }
        return layout;
    }

    void choose(int id, const char *event = "clicked") const
    {
        seen->callMenu("Event", {id, text(event), QVariant::fromValue(QDBusVariant(0)), 0U});
    }

    std::vector<int> chosen;
    qsizetype joined = 1;
    std::unique_ptr<Watcher> watcher = startWatcher();
    std::unique_ptr<Seen> seen;
};

TEST_F(StatusMenuTest, IsNoneAtFirst)
{
    EXPECT_EQ(menuPathSeen(), text("/NO_DBUSMENU"));
    EXPECT_FALSE(seen->property("ItemIsMenu").toBool());
}

// Panels read it once, so the item joins them anew.
TEST_F(StatusMenuTest, ComesAndGoes)
{
    setMenu();
    ASSERT_TRUE(joinsAgain());
    EXPECT_EQ(menuPathSeen(), text("/MenuBar"));
    setMenu();
    item->setMenu({});
    ASSERT_TRUE(joinsAgain());
    EXPECT_EQ(menuPathSeen(), text("/NO_DBUSMENU"));
    EXPECT_EQ(watcher->registered.size(), 3);
}

TEST_F(StatusMenuTest, OpensByAClickWhereNobodyTakesThat)
{
    setMenu();
    ASSERT_TRUE(joinsAgain());
    EXPECT_TRUE(seen->property("ItemIsMenu").toBool());
    item->button()->setClickHandler([](const StatusClick & /*click*/) {});
    ASSERT_TRUE(joinsAgain());
    EXPECT_FALSE(seen->property("ItemIsMenu").toBool());
}

TEST_F(StatusMenuTest, ThatIsThereFromTheStartIsReadAtOnce)
{
    makeItem();
    setMenu();
    ASSERT_TRUE(joinsAgain());
    EXPECT_EQ(menuPathSeen(), text("/MenuBar"));
    EXPECT_EQ(watcher->registered.size(), 2);
}

TEST_F(StatusMenuTest, ItsItemsAreThoseThatWereSet)
{
    setMenu();
    ASSERT_TRUE(joinsAgain());
    const auto menu = layout();
    EXPECT_EQ(menu.root.id, 0);
    EXPECT_EQ(menu.root.properties.value(text("children-display")), text("submenu"));
    ASSERT_EQ(menu.items.size(), 4);
    EXPECT_EQ(menu.items[0].properties.value(text("label")), text("Faster__now"));
    EXPECT_EQ(menu.items[0].properties.value(text("enabled")), true);
    EXPECT_FALSE(menu.items[0].properties.contains(text("toggle-type")));
    EXPECT_EQ(menu.items[1].properties, QVariantMap({{text("type"), text("separator")}}));
    EXPECT_EQ(menu.items[2].properties.value(text("enabled")), false);
    EXPECT_EQ(menu.items[3].properties.value(text("toggle-type")), text("checkmark"));
    EXPECT_EQ(menu.items[3].properties.value(text("toggle-state")), 1);
}

TEST_F(StatusMenuTest, TellsAsMuchAsIsAsked)
{
    setMenu();
    ASSERT_TRUE(joinsAgain());
    EXPECT_EQ(layout({text("label")}).items.value(3).properties,
              QVariantMap({{text("label"), text("Beat")}}));
    const auto shallow = seen->callMenu("GetLayout", {0, 0, QStringList()});
    EXPECT_TRUE(qdbus_cast<SeenNode>(shallow.value(1)).children.isEmpty());
    const int id = layout().items.value(3).id;
    const auto group =
        seen->callMenu("GetGroupProperties", {QVariant::fromValue(QList<int>{id, 999}), QStringList()});
    const auto properties = qdbus_cast<QList<SeenProperties>>(group.value(0));
    ASSERT_EQ(properties.size(), 1);
    EXPECT_EQ(properties[0].id, id);
    const auto label = seen->callMenu("GetProperty", {id, text("label")});
    EXPECT_EQ(label.value(0).value<QDBusVariant>().variant(), text("Beat"));
    EXPECT_EQ(seen->callMenu("AboutToShow", {0}).value(0), false);
}

TEST_F(StatusMenuTest, RunsWhatIsChosen)
{
    setMenu();
    ASSERT_TRUE(joinsAgain());
    const auto items = layout().items;
    choose(items.value(0).id, "hovered");
    choose(items.value(1).id); // the line
    choose(items.value(2).id); // which is disabled
    choose(999);
    choose(0);
    choose(items.value(3).id);
    EXPECT_TRUE(eventually([this] { return !chosen.empty(); }));
    EXPECT_EQ(chosen, std::vector{4});
}

TEST_F(StatusMenuTest, RunsWhatIsChosenInAGroup)
{
    setMenu();
    ASSERT_TRUE(joinsAgain());
    const int first = layout().items.value(0).id;
    const auto errors = seen->callMenu("EventGroup", {testsupport::sent({{first + 3, text("clicked")},
                                                                         {999, text("clicked")},
                                                                         {first, text("hovered")},
                                                                         {first, text("clicked")}})});
    EXPECT_THAT(qdbus_cast<QList<int>>(errors.value(0)), ElementsAre(999));
    EXPECT_TRUE(eventually([this] { return chosen.size() == 2; }));
    EXPECT_THAT(chosen, ElementsAre(4, 1));
    const auto about = seen->callMenu("AboutToShowGroup", {QVariant::fromValue(QList<int>{0, 999, first})});
    EXPECT_THAT(qdbus_cast<QList<int>>(about.value(0)), ElementsAre());
    EXPECT_THAT(qdbus_cast<QList<int>>(about.value(1)), ElementsAre(999));
}

TEST_F(StatusMenuTest, AChoiceFromAnOldMenuDoesNothing)
{
    setMenu();
    ASSERT_TRUE(joinsAgain());
    const auto old = layout();
    item->setMenu({{"Other", note(5)}});
    const auto now = layout();
    EXPECT_GT(now.revision, old.revision);
    choose(old.items.value(0).id);
    choose(now.items.value(0).id);
    EXPECT_TRUE(eventually([this] { return !chosen.empty(); }));
    EXPECT_EQ(chosen, std::vector{5});
}

TEST_F(StatusMenuTest, AnActionMayLetGoOfTheItem)
{
    item->setMenu({{"Quit", [this] { item.reset(); }}});
    ASSERT_TRUE(joinsAgain());
    choose(layout().items.value(0).id);
    EXPECT_TRUE(eventually([this] { return !item; }));
}

} // namespace

} // namespace platform
