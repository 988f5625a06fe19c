#include "SharedUI/PreferredAppearance.h"

#include "Tests/SharedUI/SettingsFormTest.h"

namespace sharedui {

namespace {

using sharedcore::AppPreferences;
using Theme = AppPreferences::Theme;

class PreferredAppearanceTest : public SettingsFormTest
{
protected:
    [[nodiscard]] const platform::AppearanceValues &values() { return platform.appearance().values(); }
};

TEST_F(PreferredAppearanceTest, IsAsTheDesktopByDefault)
{
    const PreferredAppearance appearance;
    for (const bool isDark : {true, false}) {
        setDark(isDark);
        EXPECT_EQ(values().isDark, isDark);
    }
    EXPECT_FALSE(values().reducesMotion);
    EXPECT_FALSE(values().reducesTransparency);
}

TEST_F(PreferredAppearanceTest, IsTheThemeWhateverTheDesktopSays)
{
    for (const auto theme : {Theme::light, Theme::dark}) {
        AppPreferences{.theme = theme}.save();
        const PreferredAppearance appearance;
        for (const bool isDark : {true, false}) {
            setDark(isDark);
            EXPECT_EQ(values().isDark, theme == Theme::dark);
        }
    }
}

TEST_F(PreferredAppearanceTest, ReducesWhatItsUserWantsLessOf)
{
    AppPreferences{.reduceMotion = true, .reduceTransparency = true}.save();
    const PreferredAppearance appearance;
    EXPECT_TRUE(values().reducesMotion);
    EXPECT_TRUE(values().reducesTransparency);
}

TEST_F(PreferredAppearanceTest, FollowsTheRecordWhenItIsToldTo)
{
    auto &follower =
        show("Item { PreferredAppearance { id: preferred } function follow() { preferred.apply() } }");
    AppPreferences{.theme = Theme::dark}.save();
    EXPECT_FALSE(values().isDark);
    QMetaObject::invokeMethod(&follower, "follow");
    EXPECT_TRUE(values().isDark);
}

} // namespace

} // namespace sharedui
