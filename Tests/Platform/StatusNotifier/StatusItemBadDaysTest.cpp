// What becomes of an item when others say what makes no sense, nothing at all, or go.

#include "Tests/Platform/StatusNotifier/SeenValues.h"
#include "Tests/Platform/StatusNotifier/StatusItemTest.h"
#include "Tests/Support/FakeBusService.h"

#include <QDBusMessage>

#include <sys/socket.h>

#include <csignal>
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

// The session bus of the process is one of the test's own, which it may end.
class StatusItemLostBusTest : public StatusItemTest
{
protected:
    StatusItemLostBusTest() { setAddress(place()); }
    ~StatusItemLostBusTest() override { setAddress(testsupport::sessionBus().address()); }

    // Each bus that is started there has it, but for the number of the one bus that may follow.
    [[nodiscard]] QString place() const { return bus->address().section(QLatin1Char(','), 0, 0); }

    static void setAddress(const QString &address)
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", address.toLocal8Bit());
    }

    void startBusAnew()
    {
        bus.reset();
        bus = std::make_unique<testsupport::PrivateBus>(runtime);
        ASSERT_TRUE(bus->isOpen());
    }

    // Those of this process, which hold megabytes where the user may have as much.
    static void narrowSockets()
    {
        const int bytes = 10'000;
        for (int file = 0; file < 256; ++file) {
            setsockopt(file, SOL_SOCKET, SO_SNDBUF, &bytes, sizeof bytes);
        }
    }

    testsupport::PrivateRuntime runtime;
    std::unique_ptr<testsupport::PrivateBus> bus = std::make_unique<testsupport::PrivateBus>(runtime);
};

TEST_F(StatusItemLostBusTest, GoesOnWithoutItAndComesBackWithItsMenu)
{
    {
        const Watcher watcher(bus->connect(), true);
        makeItem();
        ASSERT_TRUE(eventually([&] { return watcher.registered.size() == 1; }));
    }
    startBusAnew();
    const Watcher watcher(bus->connect(), true);
    item->button()->setImage(image(10));
    item->setMenu({{"Beat", [] {}}});
    ASSERT_TRUE(eventually([&] { return watcher.registered.size() == 1; }));
    testsupport::SeenItem seen(bus->connect(), watcher.registered.at(0));
    EXPECT_EQ(seen.property("Status"), text("Active"));
}

TEST_F(StatusItemLostBusTest, ComesBackByItselfThoughTheBusStaysAwayForAWhile)
{
    {
        const Watcher watcher(bus->connect(), true);
        makeItem();
        ASSERT_TRUE(eventually([&] { return watcher.registered.size() == 1; }));
    }
    bus->process().sendSignal(SIGKILL);
    testsupport::letPass(std::chrono::milliseconds(1500)); // in which it looks for the bus once
    startBusAnew();
    const Watcher watcher(bus->connect(), true);
    ASSERT_TRUE(eventually([&] { return watcher.registered.size() == 1; }));
    testsupport::SeenItem seen(bus->connect(), watcher.registered.at(0));
    item->button()->setImage(image(10));
    EXPECT_TRUE(eventually([&] { return seen.newIcons >= 1; }));
}

TEST_F(StatusItemLostBusTest, ForgetsThePanelThatWentWithTheBus)
{
    const auto isInk = [](testsupport::SeenItem &seen, const char *bytes) {
        return eventually([&] {
            const auto pixmaps = qdbus_cast<QList<testsupport::SeenPixmap>>(seen.property("IconPixmap"));
            return pixmaps.value(0).bytes == QByteArray::fromHex(bytes);
        });
    };
    {
        const Watcher watcher(bus->connect(), true);
        auto shell = bus->connect();
        ASSERT_TRUE(shell.registerService(text("org.gnome.Shell")));
        makeItem();
        item->button()->setImage(image(255));
        ASSERT_TRUE(eventually([&] { return watcher.registered.size() == 1; }));
        testsupport::SeenItem seen(bus->connect(), watcher.registered.at(0));
        EXPECT_TRUE(isInk(seen, "d9ffffff"));
        bus->process().sendSignal(SIGKILL); // which leaves it no time to tell anybody
        ASSERT_TRUE(eventually([&] { return !shell.isConnected() && !seen.bus().isConnected(); }));
    }
    startBusAnew();
    const Watcher watcher(bus->connect(), true);
    item->setMenu({{"Beat", [] {}}});
    ASSERT_TRUE(eventually([&] { return watcher.registered.size() == 1; }));
    testsupport::SeenItem seen(bus->connect(), watcher.registered.at(0));
    EXPECT_TRUE(isInk(seen, "d9000000"));
}

TEST_F(StatusItemLostBusTest, ComesWhenABusThatHangsGoesOn)
{
    bus->process().sendSignal(SIGSTOP);
    makeItem();
    ASSERT_TRUE(item->button());
    item->button()->setImage(image(10));
    item->setMenu({{"Beat", [] {}}});
    bus->process().sendSignal(SIGCONT);
    const Watcher watcher(bus->connect(), true);
    ASSERT_TRUE(eventually([&] { return watcher.registered.size() == 1; }));
    testsupport::SeenItem seen(bus->connect(), watcher.registered.at(0));
    EXPECT_TRUE(seen.property("ItemIsMenu").toBool());
}

// Each frame would otherwise be kept, for as long as the bus hangs.
TEST_F(StatusItemLostBusTest, TellsABusThatHungOfTheLastImageOnly)
{
    constexpr int images = 500; // more than such a socket takes
    const Watcher watcher(bus->connect(), true);
    makeItem();
    ASSERT_TRUE(eventually([&] { return watcher.registered.size() == 1; }));
    testsupport::SeenItem seen(bus->connect(), watcher.registered.at(0));
    item->button()->setImage(image(10));
    ASSERT_TRUE(eventually([&] { return seen.newIcons >= 1; }));
    narrowSockets();
    bus->process().sendSignal(SIGSTOP);
    for (int i = 0; i < images; ++i) {
        item->button()->setImage(image(i % 2));
    }
    bus->process().sendSignal(SIGCONT);
    // Each answer comes after what was sent before it.
    const auto hasHeardAll = [&seen] {
        const int before = seen.newIcons;
        return seen.property("Status").isValid() && seen.newIcons == before;
    };
    EXPECT_TRUE(eventually(hasHeardAll));
    EXPECT_LT(seen.newIcons, images);
    const int before = seen.newIcons;
    item->button()->setImage(image(255));
    EXPECT_TRUE(eventually([&] { return seen.newIcons == before + 1; }));
}

} // namespace

} // namespace platform
