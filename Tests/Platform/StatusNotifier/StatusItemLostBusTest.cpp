// What becomes of an item when the session's bus hangs or goes.

#include "Tests/Platform/StatusNotifier/SeenValues.h"
#include "Tests/Platform/StatusNotifier/StatusItemTest.h"

#include <sys/socket.h>

#include <csignal>

namespace platform {

namespace {

using testsupport::eventually;

// The session bus of the process is one of the test's own, which it may end.
class StatusItemLostBusTest : public StatusItemTest
{
protected:
    StatusItemLostBusTest() { setAddress(place()); }
    ~StatusItemLostBusTest() override { setAddress(testsupport::sessionBus().address()); }

    // Without the number by which clients refuse every bus but that one.
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
    EXPECT_EQ(seen.property("Status"), QStringLiteral("Active"));
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
        ASSERT_TRUE(shell.registerService(QStringLiteral("org.gnome.Shell")));
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

// Whether the item has sent all that it had to say so far: each answer comes after what was sent before it.
bool isQuiet(testsupport::SeenItem &seen)
{
    return eventually([&seen] {
        const int before = seen.newIcons;
        return seen.property("Status").isValid() && seen.newIcons == before;
    });
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
    EXPECT_TRUE(isQuiet(seen));
    EXPECT_LT(seen.newIcons, images);
    int coverage = 100;
    EXPECT_TRUE(eventually([&] { // or once more, where the last of them was told of just now
        const int before = seen.newIcons;
        item->button()->setImage(image(++coverage));
        return isQuiet(seen) && seen.newIcons == before + 1;
    }));
}

// What holds up the bus's ear here is the menu, so that the image is told of when the bus has caught up, or
// never.
TEST_F(StatusItemLostBusTest, TellsABusThatHungOfTheImageThatItCouldNotHearOf)
{
    constexpr int menus = 500; // more than such a socket takes
    const Watcher watcher(bus->connect(), true);
    makeItem();
    item->setMenu({{"Beat", [] {}}});
    ASSERT_TRUE(eventually([&] { return watcher.registered.size() == 1; }));
    testsupport::SeenItem seen(bus->connect(), watcher.registered.at(0));
    item->button()->setImage(image(10));
    ASSERT_TRUE(eventually([&] { return seen.newIcons >= 1; }));
    ASSERT_TRUE(isQuiet(seen));
    const int before = seen.newIcons;
    narrowSockets();
    bus->process().sendSignal(SIGSTOP);
    for (int i = 0; i < menus; ++i) {
        item->setMenu({{"Beat", [] {}}});
    }
    item->button()->setImage(image(255));
    bus->process().sendSignal(SIGCONT);
    EXPECT_TRUE(eventually([&] { return seen.newIcons > before; }));
    EXPECT_TRUE(isQuiet(seen));
    EXPECT_EQ(seen.newIcons, before + 1);
    EXPECT_EQ(watcher.registered.size(), 1);
}

} // namespace

} // namespace platform
