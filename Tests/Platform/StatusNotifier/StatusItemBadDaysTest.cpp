// What becomes of an item when others say what makes no sense, or nothing at all.

#include "Tests/Platform/StatusNotifier/SeenValues.h"
#include "Tests/Platform/StatusNotifier/StatusItemTest.h"
#include "Tests/Support/FakeBusService.h"

#include <QDBusMessage>

#include <limits>

namespace platform {

namespace {

using testing::ElementsAre;
using testsupport::eventually;

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

class StatusItemBadDaysTest : public StatusItemTest
{
protected:
    // A click that reaches the item after everything that was asked for before.
    [[nodiscard]] bool takesAClick(Seen &seen)
    {
        const auto before = clicks.size();
        seen.call("Activate", {7, 8});
        return eventually([&] { return clicks.size() > before; });
    }

    void noteClicks()
    {
        item->button()->setClickHandler([this](const StatusClick &click) { clicks.push_back(click.x); });
    }

    std::vector<int> clicks;
};

TEST_F(StatusItemBadDaysTest, RefusesWhatMakesNoSense)
{
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    noteClicks();
    const auto refusal = [&seen](const char *method, const QVariantList &arguments) {
        seen->call(method, arguments);
        return seen->lastError();
    };
    const auto invalid = text("org.freedesktop.DBus.Error.InvalidArgs");
    EXPECT_EQ(refusal("Activate", {}), invalid);
    EXPECT_EQ(refusal("Activate", {1}), invalid);
    EXPECT_EQ(refusal("Activate", {1, 2, 3}), invalid);
    EXPECT_EQ(refusal("Activate", {text("1"), text("2")}), invalid);
    EXPECT_EQ(refusal("ProvideXdgActivationToken", {5}), invalid);
    EXPECT_EQ(refusal("Explode", {}), text("org.freedesktop.DBus.Error.UnknownMethod"));
    EXPECT_FALSE(seen->property("Nonsense").isValid());
    EXPECT_FALSE(seen->property("").isValid());
    EXPECT_EQ(refusal("Scroll", {-1, text("sideways")}), QString());
    EXPECT_TRUE(takesAClick(*seen));
    EXPECT_THAT(clicks, ElementsAre(7));
}

TEST_F(StatusItemBadDaysTest, ItsMenuRefusesWhatMakesNoSense)
{
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    bool isChosen = false;
    noteClicks();
    item->setMenu({{"Beat", [&isChosen] { isChosen = true; }}});
    ASSERT_TRUE(eventually([&] { return watcher->registered.size() == 2; }));
    const auto again = see(*watcher);
    const auto refusal = [&again](const char *method, const QVariantList &arguments) {
        again->callMenu(method, arguments);
        return again->lastError();
    };
    const auto invalid = text("org.freedesktop.DBus.Error.InvalidArgs");
    EXPECT_EQ(refusal("GetLayout", {0}), invalid);
    EXPECT_EQ(refusal("Event", {text("1"), text("clicked")}), invalid);
    EXPECT_EQ(refusal("EventGroup", {QVariant::fromValue(QList<int>{1})}), invalid);
    EXPECT_EQ(refusal("Explode", {}), text("org.freedesktop.DBus.Error.UnknownMethod"));
    for (const int id : {std::numeric_limits<int>::min(), -2147483647, 2147483647}) {
        const auto nothing = again->callMenu("GetLayout", {id, 2147483647, QStringList{text("")}});
        const auto node = qdbus_cast<testsupport::SeenNode>(nothing.value(1));
        EXPECT_EQ(node.id, id);
        EXPECT_TRUE(node.properties.isEmpty());
    }
    const auto unknown = again->callMenu("GetProperty", {1, text("nonsense")});
    EXPECT_EQ(unknown.value(0).value<QDBusVariant>().variant(), text(""));
    EXPECT_TRUE(takesAClick(*again));
    EXPECT_FALSE(isChosen);
}

// Whether there is a host is asked with the standard call, which this watcher knows nothing of.
TEST_F(StatusItemBadDaysTest, AWatcherThatTellsNothingOfItsPanelsHasOne)
{
    for (const auto &answer : {QVariantList(), QVariantList{5}, QVariantList{text("yes")},
                               QVariantList{QVariant::fromValue(QDBusVariant(text("yes")))}}) {
        testsupport::FakeBusService watcher(testsupport::sessionBus(), "org.kde.StatusNotifierWatcher");
        watcher.answer("RegisterStatusNotifierItem", QVariantList());
        watcher.answer("Get", answer);
        testsupport::SeenItem any(testsupport::sessionBus().connect(), {});
        makeItem();
        EXPECT_TRUE(eventually([&] { return any.newIcons == 1; }));
        item.reset();
    }
}

TEST_F(StatusItemBadDaysTest, AWatcherThatRefusesItIsNotTold)
{
    testsupport::FakeBusService watcher(testsupport::sessionBus(), "org.kde.StatusNotifierWatcher");
    watcher.refuse("RegisterStatusNotifierItem", "org.freedesktop.DBus.Error.AccessDenied");
    watcher.answer("Get", {QVariant::fromValue(QDBusVariant(true))});
    testsupport::SeenItem any(testsupport::sessionBus().connect(), {});
    makeItem();
    ASSERT_TRUE(eventually([&] { return watcher.calls("RegisterStatusNotifierItem").size() == 1; }));
    const auto name = watcher.calls("RegisterStatusNotifierItem").at(0).arguments().value(0).toString();
    testsupport::SeenItem seen(testsupport::sessionBus().connect(), name);
    item->button()->setImage(image(10));
    EXPECT_EQ(seen.property("Status"), text("Active"));
    testsupport::letPass(std::chrono::milliseconds(100)); // the refusal has yet to come
    item->button()->setImage(image(20));
    EXPECT_EQ(seen.property("Status"), text("Active"));
    EXPECT_TRUE(watcher.calls("Get").empty());
    EXPECT_EQ(any.newIcons, 0);
}

// What the bus's library says in the place of an answer that does not come in time.
TEST_F(StatusItemBadDaysTest, AWatcherThatDoesNotAnswerInTimeIsTold)
{
    testsupport::FakeBusService watcher(testsupport::sessionBus(), "org.kde.StatusNotifierWatcher");
    watcher.refuse("RegisterStatusNotifierItem", "org.freedesktop.DBus.Error.NoReply");
    watcher.answer("Get", {QVariant::fromValue(QDBusVariant(true))});
    testsupport::SeenItem any(testsupport::sessionBus().connect(), {});
    makeItem();
    item->button()->setImage(image(10));
    EXPECT_TRUE(eventually([&] { return any.newIcons >= 1; }));
}

// Only the bus itself says who has a name.
TEST_F(StatusItemBadDaysTest, BelievesNobodyElseWhoHasAName)
{
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    item->button()->setImage(image(255));
    auto forgery =
        QDBusMessage::createTargetedSignal(watcher->registered.at(0), text("/org/freedesktop/DBus"),
                                           text("org.freedesktop.DBus"), text("NameOwnerChanged"));
    forgery.setArguments({text("org.gnome.Shell"), QString(), text(":1.1")});
    ASSERT_TRUE(seen->bus().send(forgery));
    const auto pixmaps = qdbus_cast<QList<testsupport::SeenPixmap>>(seen->property("IconPixmap"));
    EXPECT_EQ(pixmaps.value(0).bytes, QByteArray::fromHex("d9000000"));
}

} // namespace

} // namespace platform
