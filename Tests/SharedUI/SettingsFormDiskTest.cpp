// The settings form over the system's own storage, on a disk that is full.

#include "Tests/SharedUI/SharedUITest.h"

#include "SharedCore/Storage/AppPreferences.h"
#include "Tests/Support/PrivateMount.h"
#include "Tests/Support/TemporaryFolder.h"

#include <QTest>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace sharedui {

namespace {

using sharedcore::AppPreferences;

class SettingsFormDiskTest : public SharedUITest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(testsupport::separateMounts());
        disk_.emplace(folder_.path() / "disk", 400);
        ASSERT_TRUE(disk_->isMounted());
        setenv("XDG_DATA_HOME", (folder_.path() / "disk").c_str(), 1);
    }

    [[nodiscard]] std::filesystem::path filling() const { return folder_.path() / "disk" / "filling"; }

    void toggle(const char *name)
    {
        auto &button = *item(name).findChild<QQuickItem *>(QStringLiteral("button"));
        const auto middle = button.mapToScene(QPointF(button.width() / 2, button.height() / 2));
        QTest::mouseClick(&view, Qt::LeftButton, {}, middle.toPoint());
    }

private:
    testsupport::TemporaryFolder folder_;
    std::optional<testsupport::SmallDisk> disk_;
};

TEST_F(SettingsFormDiskTest, StaysUsableAndLeavesTheOldRecordWhole)
{
    const AppPreferences old{.keyboardShortcuts = {{"toggle", std::string(2000, 'x')}},
                             .theme = AppPreferences::Theme::dark};
    old.save();
    view.resize(420, 400);
    const auto &form = show("SharedAppSettingsFormView { width: 420 }");
    std::ofstream(filling()) << std::string(1'000'000, 'x');

    toggle("reduceMotion");
    toggle("launchAtLogin");
    EXPECT_TRUE(form.findChild<QObject *>(QStringLiteral("reduceMotion"))->property("isOn").toBool());
    EXPECT_EQ(AppPreferences::load(), old);

    std::filesystem::remove(filling());
    toggle("reduceTransparency");
    auto expected = old;
    expected.reduceMotion = true;
    expected.launchAtLogin = true;
    expected.reduceTransparency = true;
    EXPECT_EQ(AppPreferences::load(), expected);
}

} // namespace

} // namespace sharedui
