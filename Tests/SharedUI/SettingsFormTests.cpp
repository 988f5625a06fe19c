#include "SharedUI/AppLaunchContainer/PreferencesForm.h"
#include "Tests/SharedUI/SettingsFormTest.h"

#include <QFont>

#include <array>

namespace sharedui {

namespace {

using sharedcore::AppPreferences;
using Theme = AppPreferences::Theme;

class SettingsFormViewTest : public SettingsFormTest
{
protected:
    [[nodiscard]] bool isOn(const char *name) const { return item(name).property("isOn").toBool(); }
    [[nodiscard]] QString theme() const { return item("theme").property("selection").toString(); }
    [[nodiscard]] int saves() const { return shown().property("saves").toInt(); }

    // A record in which every field differs from its default.
    static AppPreferences unusual()
    {
        return {.launchAtLogin = true,
                .showMenuBarIcon = false,
                .keyboardShortcuts = {{"toggle", "Ctrl+T"}},
                .theme = Theme::dark,
                .reduceMotion = true,
                .reduceTransparency = true};
    }
};

TEST_F(SettingsFormViewTest, ShowsTheDefaultsOfAnEmptyStore)
{
    showForm();
    EXPECT_FALSE(isOn("launchAtLogin"));
    EXPECT_TRUE(isOn("showMenuBarIcon"));
    EXPECT_EQ(theme(), QStringLiteral("system"));
    EXPECT_FALSE(isOn("reduceMotion"));
    EXPECT_FALSE(isOn("reduceTransparency"));
    EXPECT_EQ(stored(), ""); // which looking does not change
}

TEST_F(SettingsFormViewTest, ShowsTheStoredRecord)
{
    unusual().save();
    showForm();
    EXPECT_TRUE(isOn("launchAtLogin"));
    EXPECT_FALSE(isOn("showMenuBarIcon"));
    EXPECT_EQ(theme(), QStringLiteral("dark"));
    EXPECT_TRUE(isOn("reduceMotion"));
    EXPECT_TRUE(isOn("reduceTransparency"));
}

TEST_F(SettingsFormViewTest, HasItsPartsInOrder)
{
    showForm();
    EXPECT_THAT(told(), testing::ElementsAre(
                            QStringLiteral("heading General"), QStringLiteral("check box Launch at login"),
                            QStringLiteral("check box Show menu bar icon (on)"),
                            QStringLiteral("heading Appearance"), QStringLiteral("group Theme"),
                            QStringLiteral("radio button System (on)"), QStringLiteral("radio button Light"),
                            QStringLiteral("radio button Dark"), QStringLiteral("check box Reduce motion"),
                            QStringLiteral("check box Reduce transparency")));
}

TEST_F(SettingsFormViewTest, IsAStackFromEdgeToEdgeWithADividerBetweenItsSections)
{
    const auto &form = showForm();
    auto children = form.childItems();
    ASSERT_EQ(children.size(), 8);
    double bottom = -16;
    for (const auto *child : children) {
        EXPECT_EQ(child->x(), 0);
        EXPECT_EQ(child->width(), 420);
        EXPECT_EQ(child->y(), bottom + 16);
        bottom = child->y() + child->height();
    }
    EXPECT_EQ(children.at(3)->height(), 1);
    for (const int title : {0, 4}) {
        EXPECT_EQ(children.at(title)->property("font").value<QFont>().pixelSize(), 13);
        EXPECT_EQ(children.at(title)->property("font").value<QFont>().weight(), QFont::DemiBold);
    }
}

struct Edit
{
    const char *name;
    const char *text;
    bool AppPreferences::*field;
};

// In the names of tests.
void PrintTo(const Edit &edit, std::ostream *stream)
{
    *stream << edit.name;
}

constexpr std::array edits{
    Edit{"launchAtLogin", "Launch at login", &AppPreferences::launchAtLogin},
    Edit{"showMenuBarIcon", "Show menu bar icon", &AppPreferences::showMenuBarIcon},
    Edit{"reduceMotion", "Reduce motion", &AppPreferences::reduceMotion},
    Edit{"reduceTransparency", "Reduce transparency", &AppPreferences::reduceTransparency},
};

class SettingsFormSwitch : public SettingsFormViewTest, public testing::WithParamInterface<Edit>
{};

TEST_P(SettingsFormSwitch, StoresARecordInWhichOnlyItsFieldDiffers)
{
    const auto &edit = GetParam();
    for (auto expected : {AppPreferences(), unusual()}) {
        expected.save();
        showForm();
        for (int saved = 1; saved <= 2; ++saved) {
            expected.*edit.field = !(expected.*edit.field);
            click(QString::fromLatin1(edit.text));
            EXPECT_EQ(AppPreferences::load(), expected);
            EXPECT_EQ(isOn(edit.name), expected.*edit.field);
            EXPECT_EQ(saves(), saved);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Fields, SettingsFormSwitch, testing::ValuesIn(edits),
                         [](const auto &edit) { return edit.param.name; });

TEST_F(SettingsFormViewTest, StoresTheThemeThatIsPicked)
{
    auto expected = unusual();
    expected.save();
    showForm();
    for (const auto &[text, theme] : {std::pair{"Light", Theme::light}, std::pair{"System", Theme::system},
                                      std::pair{"Dark", Theme::dark}}) {
        click(QString::fromLatin1(text));
        expected.theme = theme;
        EXPECT_EQ(AppPreferences::load(), expected);
    }
    EXPECT_EQ(saves(), 3);
    click(QStringLiteral("Dark")); // as it is already
    EXPECT_EQ(saves(), 3);
}

TEST_F(SettingsFormViewTest, IgnoresAThemeThatThereIsNot)
{
    PreferencesForm form;
    form.setTheme(QStringLiteral("dark"));
    const auto before = stored();
    bool isSaved = false;
    QObject::connect(&form, &PreferencesForm::preferencesSaved, &form, [&] { isSaved = true; });
    for (const auto *theme : {"Dark", "", "auto"}) {
        form.setTheme(QString::fromLatin1(theme));
    }
    EXPECT_FALSE(isSaved);
    EXPECT_EQ(form.theme(), QStringLiteral("dark"));
    EXPECT_EQ(stored(), before);
}

TEST_F(SettingsFormViewTest, DoesNotPickUpWhatIsStoredElsewhereWhileItStays)
{
    showForm();
    unusual().save();
    view.hide();
    view.show();
    EXPECT_FALSE(isOn("reduceMotion"));
    click(QStringLiteral("Launch at login"));
    EXPECT_EQ(AppPreferences::load(), AppPreferences{.launchAtLogin = true});
}

TEST_F(SettingsFormViewTest, StartsFromTheStoredRecordWhenItComesIntoAWindow)
{
    auto &form = make("SharedAppSettingsFormView { width: 420 }");
    unusual().save();
    EXPECT_FALSE(isOn("reduceMotion"));
    place();
    EXPECT_TRUE(isOn("reduceMotion"));
    form.setParentItem(nullptr);
    AppPreferences().save();
    EXPECT_TRUE(isOn("reduceMotion"));
    form.setParentItem(view.contentItem());
    EXPECT_FALSE(isOn("reduceMotion"));
}

TEST_F(SettingsFormViewTest, ShowsTheDefaultsOfADamagedRecordAndStoresAWholeOne)
{
    for (const auto *damaged : {"", "{bad", "[]", R"({"launchAtLogin": true, "theme": "dark"})"}) {
        store(damaged);
        showForm();
        EXPECT_TRUE(isOn("showMenuBarIcon")) << damaged;
        EXPECT_EQ(theme(), QStringLiteral("system")) << damaged;
        EXPECT_EQ(stored(), damaged);
        click(QStringLiteral("Reduce motion"));
        EXPECT_EQ(AppPreferences::load(), AppPreferences{.reduceMotion = true});
    }
}

TEST_F(SettingsFormViewTest, IsUsableWhereNothingCanBeStored)
{
    unusual().save();
    const auto before = stored();
    showForm();
    storage.applicationDefaults().isWritable = false;
    click(QStringLiteral("Reduce motion"));
    click(QStringLiteral("Light"));
    EXPECT_FALSE(isOn("reduceMotion"));
    EXPECT_EQ(theme(), QStringLiteral("light"));
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(saves(), 2);

    storage.applicationDefaults().isWritable = true;
    click(QStringLiteral("Launch at login"));
    auto expected = unusual();
    expected.reduceMotion = false;
    expected.theme = Theme::light;
    expected.launchAtLogin = false;
    EXPECT_EQ(AppPreferences::load(), expected);
}

TEST_F(SettingsFormViewTest, IsWalkedThroughByTabInBothDirections)
{
    showForm();
    const QStringList order{QStringLiteral("Launch at login"), QStringLiteral("Show menu bar icon"),
                            QStringLiteral("System"), QStringLiteral("Reduce motion"),
                            QStringLiteral("Reduce transparency")};
    for (const auto &text : order) {
        press(Qt::Key_Tab);
        EXPECT_EQ(focused(), text);
    }
    for (qsizetype i = order.size() - 2; i >= 0; --i) {
        press(Qt::Key_Tab, Qt::ShiftModifier);
        EXPECT_EQ(focused(), order.at(i));
    }
}

TEST_F(SettingsFormViewTest, IsEditedByKeys)
{
    showForm();
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    EXPECT_EQ(AppPreferences::load(), AppPreferences{.launchAtLogin = true});
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    press(Qt::Key_Tab);
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(AppPreferences::load(),
              (AppPreferences{.launchAtLogin = true, .showMenuBarIcon = false, .theme = Theme::dark}));
    EXPECT_EQ(focused(), QStringLiteral("Dark"));
    press(Qt::Key_Left);
    EXPECT_EQ(AppPreferences::load().theme, Theme::light);
    EXPECT_EQ(saves(), 5);
}

TEST_F(SettingsFormViewTest, IsEditedByAssistiveTechnology)
{
    showForm();
    auto &motion = accessible(QStringLiteral("Reduce motion"));
    motion.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(motion.state().checked);
    auto &dark = accessible(QStringLiteral("Dark"));
    dark.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(dark.state().checked);
    EXPECT_FALSE(accessible(QStringLiteral("System")).state().checked);
    EXPECT_EQ(AppPreferences::load(), (AppPreferences{.theme = Theme::dark, .reduceMotion = true}));
}

} // namespace

} // namespace sharedui
