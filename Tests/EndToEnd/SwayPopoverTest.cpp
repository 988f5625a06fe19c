// The gallery's popover on a compositor that places the windows itself.

#include "Tests/EndToEnd/WaylandDesktop.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/Wayland/PrivateSway.h"
#include "Tests/Support/Wayland/WaylandUser.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <gmock/gmock.h>

#include <linux/input-event-codes.h>

using namespace testsupport;

namespace endtoend {

namespace {

class SwayPopoverTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(desktop.isOpen());
        ASSERT_TRUE(sway.isOpen());
        auto environment = desktop.environment();
        environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
        gallery = std::make_unique<ChildProcess>(QStringLiteral(GALLERY_PROGRAM),
                                                 QStringList(QStringLiteral("--menu-bar")), environment);
        tree = std::make_unique<AccessibleProgram>(desktop.accessibility(), gallery->pid());
    }

    // As a panel does. The item has a connection of its own, which nobody but panels knows the name of.
    bool clickItem()
    {
        auto *names = bus.interface();
        bool isClicked = false;
        for (const auto &name : names->registeredServiceNames().value()) {
            if (!name.startsWith(QLatin1Char(':')) ||
                static_cast<pid_t>(names->servicePid(name).value()) != gallery->pid()) {
                continue;
            }
            auto call = QDBusMessage::createMethodCall(name, QStringLiteral("/StatusNotifierItem"),
                                                       QStringLiteral("org.kde.StatusNotifierItem"),
                                                       QStringLiteral("Activate"));
            call << 0 << 0;
            isClicked = isClicked || bus.call(call).type() == QDBusMessage::ReplyMessage;
        }
        return isClicked;
    }
    void openPopover()
    {
        ASSERT_TRUE(eventually([this] { return clickItem(); }));
        ASSERT_TRUE(eventually([this] { return isOpen(); }));
    }
    [[nodiscard]] bool isOpen() const { return sway.command(QStringLiteral("[title=\"^Heart\"] nop")); }
    [[nodiscard]] bool shows(const char *text) { return tree->find(QString::fromUtf8(text)).has_value(); }

    WaylandDesktop desktop;
    PrivateSway sway{desktop.runtime()};
    QDBusConnection bus = desktop.bus().connect();
    std::unique_ptr<ChildProcess> gallery;
    std::unique_ptr<AccessibleProgram> tree;
};

} // namespace

TEST_F(SwayPopoverTest, IsAnOrdinaryWindowThatEscapeCloses)
{
    openPopover();
    EXPECT_TRUE(eventually([this] { return shows("Heart rate"); }));
    WaylandUser user(sway.display(), WaylandUser::keymapOfLayout("us"));
    EXPECT_TRUE(eventually([&] {
        user.type(KEY_ESC);
        return !isOpen();
    }));
    EXPECT_TRUE(gallery->isRunning());
}

TEST_F(SwayPopoverTest, ClosesWhenTheUserTurnsToAnotherWindow)
{
    openPopover();
    ASSERT_TRUE(tree->press(QStringLiteral("Show Gallery")));
    EXPECT_TRUE(eventually([this] { return shows("Control"); }));
    EXPECT_TRUE(eventually([this] { return !isOpen(); }));
}

} // namespace endtoend
