#include "Tests/Platform/StatusNotifier/StatusItemTest.h"

#include "Tests/Platform/StatusNotifier/SeenValues.h"

namespace platform {

namespace {

using testsupport::eventually;

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

// What the panel reads as the icon.
QList<testsupport::SeenPixmap> icon(testsupport::SeenItem &seen)
{
    return qdbus_cast<QList<testsupport::SeenPixmap>>(seen.property("IconPixmap"));
}

// The one pixel's alpha and red.
std::pair<int, int> pixel(testsupport::SeenItem &seen)
{
    const auto bytes = icon(seen).value(0).bytes;
    return bytes.size() == 4
               ? std::pair(static_cast<unsigned char>(bytes[0]), static_cast<unsigned char>(bytes[1]))
               : std::pair(static_cast<unsigned char>(0), static_cast<unsigned char>(0));
}

TEST_F(StatusItemTest, JoinsAPanelThatIsThere)
{
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    EXPECT_TRUE(watcher->registered.at(0).startsWith(QLatin1Char(':')));
    EXPECT_EQ(seen->property("Category"), text("ApplicationStatus"));
    EXPECT_EQ(seen->property("Id"), text("org.stirra.Test"));
    EXPECT_EQ(seen->property("Title"), text("Heart"));
    EXPECT_EQ(seen->property("Status"), text("Active"));
    EXPECT_EQ(seen->property("IconName"), text(""));
    EXPECT_TRUE(icon(*seen).isEmpty());
}

TEST_F(StatusItemTest, JoinsAPanelThatAppearsLate)
{
    makeItem();
    item->button()->setImage(image(255));
    const auto watcher = startWatcher();
    ASSERT_TRUE(eventually([&] { return watcher->registered.size() == 1; }));
    EXPECT_EQ(icon(*see(*watcher)).size(), 1);
}

TEST_F(StatusItemTest, JoinsAgainWhenThePanelIsStartedAnew)
{
    auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    for (int i = 0; i < 3; ++i) {
        watcher.reset();
        watcher = startWatcher();
        EXPECT_TRUE(eventually([&] { return watcher->registered.size() == 1; }));
    }
    EXPECT_EQ(seen->property("Status"), text("Active"));
}

TEST_F(StatusItemTest, LeavesThePanelWhenItGoes)
{
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    item.reset();
    EXPECT_FALSE(seen->property("Status").isValid());
}

TEST_F(StatusItemTest, SeveralItemsAreApart)
{
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    const auto second = services->makeStatusItem({"second", "Second"});
    ASSERT_TRUE(eventually([&] { return watcher->registered.size() == 2; }));
    testsupport::SeenItem other(testsupport::sessionBus().connect(), watcher->registered.at(1));
    EXPECT_EQ(other.property("Id"), text("second"));
    EXPECT_EQ(seen->property("Id"), text("org.stirra.Test"));
}

TEST_F(StatusItemTest, TellsThePanelOnceForEachImage)
{
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    ASSERT_TRUE(eventually([&] { return seen->newIcons == 1; })); // there is somebody to tell
    for (const int coverage : {10, 20, 30}) {
        item->button()->setImage(image(coverage));
    }
    item->button()->setImage(image(30));
    EXPECT_EQ(pixel(*seen).first, 30 * 0xD9 / 255);
    EXPECT_TRUE(eventually([&] { return seen->newIcons == 4; }));
    testsupport::letPass(std::chrono::milliseconds(100));
    EXPECT_EQ(seen->newIcons, 4);
}

TEST_F(StatusItemTest, SendsNothingWithoutAPanel)
{
    testsupport::SeenItem any(testsupport::sessionBus().connect(), {});
    makeItem();
    item->button()->setImage(image(10));
    auto watcher = startWatcher(false);
    ASSERT_TRUE(eventually([&] { return watcher->registered.size() == 1; }));
    const auto seen = see(*watcher);
    testsupport::letPass(std::chrono::milliseconds(100)); // until it knows that there is no panel
    for (const int coverage : {20, 30, 40}) {
        item->button()->setImage(image(coverage));
    }
    EXPECT_EQ(pixel(*seen).first, 40 * 0xD9 / 255); // which comes after everything that was sent before
    testsupport::letPass(std::chrono::milliseconds(100));
    EXPECT_EQ(any.newIcons, 0);
}

TEST_F(StatusItemTest, TellsAPanelThatComesToTheWatcherLate)
{
    const auto watcher = startWatcher(false);
    const auto seen = showItem(*watcher);
    item->button()->setImage(image(10));
    EXPECT_EQ(pixel(*seen).first, 10 * 0xD9 / 255);
    EXPECT_EQ(seen->newIcons, 0);
    watcher->setHasHost(true);
    EXPECT_TRUE(eventually([&] { return seen->newIcons == 1; }));
}

TEST_F(StatusItemTest, IsQuietWhenTheLastPanelHasGone)
{
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    ASSERT_TRUE(eventually([&] { return seen->newIcons == 1; }));
    watcher->setHasHost(false);
    int before = -1;
    EXPECT_TRUE(eventually([&] { // until it has heard of it
        before = seen->newIcons;
        item->button()->setImage(image(before % 2));
        item->button()->setImage(image(3));
        static_cast<void>(seen->property("Status"));
        return seen->newIcons == before;
    }));
}

TEST_F(StatusItemTest, ItsPicturesAreTheImagesRepresentations)
{
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    item->button()->setImage(services->drawSymbol("heart.fill", 18, {0, 0, 18}));
    const auto pixmaps = icon(*seen);
    ASSERT_EQ(pixmaps.size(), 4);
    const std::array sides{18, 27, 36, 54};
    for (int i = 0; i < 4; ++i) {
        const int side = sides.at(static_cast<std::size_t>(i));
        EXPECT_EQ(pixmaps[i].width, side);
        EXPECT_EQ(pixmaps[i].height, side);
        ASSERT_EQ(pixmaps[i].bytes.size(), side * side * 4);
        const auto middle = pixmaps[i].bytes.mid((side / 2 * side + side / 2) * 4, 4);
        EXPECT_EQ(middle, QByteArray::fromHex("d9000000"));
        EXPECT_EQ(pixmaps[i].bytes.at(0), 0);
    }
}

TEST_F(StatusItemTest, IsTintedAsTheDesktopLooks)
{
    platform.appearance().set({true, {}, {}, {}});
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    ASSERT_TRUE(eventually([&] { return seen->newIcons == 1; }));
    item->button()->setImage(image(255));
    EXPECT_EQ(pixel(*seen), std::pair(0xD9, 255));
    EXPECT_TRUE(eventually([&] { return seen->newIcons == 2; }));
    platform.appearance().set({false, {}, {}, {}});
    EXPECT_EQ(pixel(*seen), std::pair(0xD9, 0));
    EXPECT_TRUE(eventually([&] { return seen->newIcons == 3; }));
    platform.appearance().set({false, QColor(Qt::red), {}, {}}); // which changes nothing in the panel
    static_cast<void>(seen->property("Status"));
    EXPECT_EQ(seen->newIcons, 3);
}

TEST_F(StatusItemTest, IsTintedAsTheDesktopLooksWhateverTheProgramPrefers)
{
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    item->button()->setImage(image(255));
    platform.appearance().prefer({.isDark = true});
    EXPECT_EQ(pixel(*seen), std::pair(0xD9, 0));
    platform.appearance().set({true, {}, {}, {}});
    platform.appearance().prefer({.isDark = false});
    EXPECT_EQ(pixel(*seen), std::pair(0xD9, 255));
}

TEST_F(StatusItemTest, IsLightOnTheBarThatIsAlwaysDark)
{
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    item->button()->setImage(image(255));
    EXPECT_EQ(pixel(*seen), std::pair(0xD9, 0));
    auto shell = testsupport::sessionBus().connect();
    ASSERT_TRUE(shell.registerService(text("org.gnome.Shell")));
    EXPECT_TRUE(eventually([&] { return pixel(*seen) == std::pair(0xD9, 255); }));
    const auto second = services->makeStatusItem({"second", "Second"});
    second->button()->setImage(image(255));
    ASSERT_TRUE(eventually([&] { return watcher->registered.size() == 2; }));
    testsupport::SeenItem other(testsupport::sessionBus().connect(), watcher->registered.at(1));
    EXPECT_TRUE(eventually([&] { return pixel(other) == std::pair(0xD9, 255); }));
    shell.unregisterService(text("org.gnome.Shell"));
    EXPECT_TRUE(eventually([&] { return pixel(*seen) == std::pair(0xD9, 0); }));
}

TEST_F(StatusItemTest, TellsWhereItWasClickedAndByWhatRight)
{
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    std::vector<StatusClick> clicks;
    item->button()->setClickHandler([&clicks](const StatusClick &click) { clicks.push_back(click); });
    seen->call("ProvideXdgActivationToken", {text("token")});
    seen->call("Activate", {300, 4});
    seen->call("Activate", {-5, 6});
    ASSERT_TRUE(eventually([&] { return clicks.size() == 2; }));
    EXPECT_EQ(clicks[0].x, 300);
    EXPECT_EQ(clicks[0].y, 4);
    EXPECT_EQ(clicks[0].activationToken, "token");
    EXPECT_EQ(clicks[1].x, -5);
    EXPECT_EQ(clicks[1].activationToken, "");
}

TEST_F(StatusItemTest, MayBeLetGoOfByAClick)
{
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    item->button()->setClickHandler([this](const StatusClick & /*click*/) { item.reset(); });
    seen->call("Activate", {0, 0});
    EXPECT_TRUE(eventually([&] { return !item; }));
}

TEST_F(StatusItemTest, OtherButtonsAreNoClicks)
{
    const auto watcher = startWatcher();
    const auto seen = showItem(*watcher);
    std::vector<StatusClick> clicks;
    item->button()->setClickHandler([&clicks](const StatusClick &click) { clicks.push_back(click); });
    seen->call("SecondaryActivate", {1, 1});
    seen->call("ContextMenu", {1, 1});
    seen->call("Scroll", {120, text("vertical")});
    seen->call("Activate", {7, 7});
    ASSERT_TRUE(eventually([&] { return !clicks.empty(); }));
    EXPECT_EQ(clicks.at(0).x, 7);
}

} // namespace

} // namespace platform
