#include "SharedCore/Storage/AppPreferences.h"
#include "Tests/SharedCore/StorageTest.h"

#include <nlohmann/json.hpp>

namespace sharedcore {

namespace {

using namespace std::string_literals;
using Theme = AppPreferences::Theme;

class AppPreferencesTest : public StorageTest
{
protected:
    static AppPreferences unusual()
    {
        return {
            .launchAtLogin = true,
            .showMenuBarIcon = false,
            .keyboardShortcuts = {{"", ""}, {"toggle", "\xE2\x8C\x98T"}, {"with \0 in it"s, "\"quoted\""}},
            .theme = Theme::dark,
            .reduceMotion = true,
            .reduceTransparency = true};
    }

    static Json object()
    {
        return Json::parse(
            R"({"launchAtLogin": true, "showMenuBarIcon": false, "keyboardShortcuts": {"a": "b"},
                               "theme": "light", "reduceMotion": true, "reduceTransparency": true})");
    }

    // What load() gives where that object is stored.
    AppPreferences loadedFrom(const std::string &json)
    {
        shared_.applicationDefaults().values.insert_or_assign("appPreferences", data(json));
        return AppPreferences::load();
    }

    fakes::FakeStorage &shared_ = sharedStorage();
};

TEST_F(AppPreferencesTest, HaveTheDefaultsInAFreshStore)
{
    const auto preferences = AppPreferences::load();
    EXPECT_FALSE(preferences.launchAtLogin);
    EXPECT_TRUE(preferences.showMenuBarIcon);
    EXPECT_TRUE(preferences.keyboardShortcuts.empty());
    EXPECT_EQ(preferences.theme, Theme::system);
    EXPECT_FALSE(preferences.reduceMotion);
    EXPECT_FALSE(preferences.reduceTransparency);
    EXPECT_EQ(preferences, AppPreferences());
    EXPECT_EQ(preferences, AppPreferences::defaultSettings());
}

TEST_F(AppPreferencesTest, ComeBackEqual)
{
    unusual().save();
    EXPECT_EQ(AppPreferences::load(), unusual());
    AppPreferences().save();
    EXPECT_EQ(AppPreferences::load(), AppPreferences());
}

TEST_F(AppPreferencesTest, AreStoredAsAnObjectWithTheSixKeys)
{
    unusual().save();
    const auto &value = shared_.applicationDefaults().values.at("appPreferences");
    const auto &bytes = std::get<platform::Data>(value);
    const auto *text = reinterpret_cast<const char *>(bytes.data());
    EXPECT_EQ(Json::parse(text, text + bytes.size()),
              Json({{"launchAtLogin", true},
                    {"showMenuBarIcon", false},
                    {"keyboardShortcuts",
                     {{"", ""}, {"toggle", "\xE2\x8C\x98T"}, {"with \0 in it"s, "\"quoted\""}}},
                    {"theme", "dark"},
                    {"reduceMotion", true},
                    {"reduceTransparency", true}}));
}

TEST_F(AppPreferencesTest, LoadAsTheDefaultsWhereAnyKeyIsMissing)
{
    const auto whole = object();
    EXPECT_EQ(loadedFrom(whole.dump()).theme, Theme::light);
    for (const auto &[key, value] : whole.items()) {
        auto lacking = object();
        lacking.erase(key);
        EXPECT_EQ(loadedFrom(lacking.dump()), AppPreferences()) << key;
    }
}

TEST_F(AppPreferencesTest, LoadAsTheDefaultsWhereAThemeIsUnknown)
{
    for (const auto *theme : {"Dark", "DARK", "", "dark ", "auto"}) {
        auto changed = object();
        changed["theme"] = theme;
        EXPECT_EQ(loadedFrom(changed.dump()), AppPreferences()) << theme;
    }
}

TEST_F(AppPreferencesTest, LoadAsTheDefaultsWhereAnythingHasAnotherType)
{
    const auto whole = object();
    for (const auto &[key, value] : whole.items()) {
        for (const auto &other : {Json(1), Json(0), Json(nullptr), Json("true"), Json::array(), Json(0.5)}) {
            auto changed = object();
            changed[key] = other;
            EXPECT_EQ(loadedFrom(changed.dump()), AppPreferences()) << changed;
        }
    }
    auto changed = object();
    changed["keyboardShortcuts"]["a"] = 1;
    EXPECT_EQ(loadedFrom(changed.dump()), AppPreferences());
}

TEST_F(AppPreferencesTest, LoadAsTheDefaultsWhereSomethingFollowsTheObject)
{
    EXPECT_EQ(loadedFrom(object().dump() + " "), loadedFrom(object().dump()));
    for (const auto *garbage : {"x", "{}", ",", "\0"}) {
        EXPECT_EQ(loadedFrom(object().dump() + garbage + "!"), AppPreferences());
    }
}

TEST_F(AppPreferencesTest, IgnoreFurtherKeys)
{
    auto further = object();
    further["further"] = {{"theme", 7}};
    EXPECT_EQ(loadedFrom(further.dump()), loadedFrom(object().dump()));
    EXPECT_NE(loadedFrom(further.dump()), AppPreferences());
}

TEST_F(AppPreferencesTest, LeaveBadDataInPlaceUntilTheNextSave)
{
    EXPECT_EQ(loadedFrom("{bad"), AppPreferences());
    EXPECT_EQ(shared_.applicationDefaults().values.at("appPreferences"),
              platform::PropertyValue(data("{bad")));
    unusual().save();
    EXPECT_EQ(AppPreferences::load(), unusual());
}

TEST_F(AppPreferencesTest, AreNotReadFromAPlainText)
{
    shared_.applicationDefaults().values.insert_or_assign("appPreferences", object().dump());
    EXPECT_EQ(AppPreferences::load(), AppPreferences());
}

TEST_F(AppPreferencesTest, KeepWhatWasStoredWhereTheyCannotBeEncoded)
{
    unusual().save();
    auto bad = AppPreferences();
    bad.keyboardShortcuts = {{"action", "\xFF"}};
    bad.save();
    EXPECT_EQ(AppPreferences::load(), unusual());
    bad.keyboardShortcuts = {{"\xFF", "text"}};
    bad.save();
    EXPECT_EQ(AppPreferences::load(), unusual());
}

TEST_F(AppPreferencesTest, HaveThemesWithExactTexts)
{
    EXPECT_EQ(AppPreferences::rawValue(Theme::light), "light");
    EXPECT_EQ(AppPreferences::rawValue(Theme::dark), "dark");
    EXPECT_EQ(AppPreferences::rawValue(Theme::system), "system");
    EXPECT_EQ(AppPreferences::themeFromRawValue("light"), Theme::light);
    EXPECT_EQ(AppPreferences::themeFromRawValue("dark"), Theme::dark);
    EXPECT_EQ(AppPreferences::themeFromRawValue("system"), Theme::system);
    for (const auto *text : {"", "Light", "SYSTEM", " dark", "auto"}) {
        EXPECT_EQ(AppPreferences::themeFromRawValue(text), std::nullopt);
    }
    EXPECT_EQ(std::hash<Theme>()(Theme::dark), std::hash<Theme>()(Theme::dark));
}

// A record of an application's own.
struct Reminder
{
    std::string text = "Stand up";
    std::int64_t minutes = 30;
    std::optional<foundation::Date> lastShown = {};

    static constexpr std::string_view settingsKey = "reminder";
    static const Reminder &defaultSettings()
    {
        static const Reminder settings;
        return settings;
    }
    static Reminder load() { return loadSettings<Reminder>(); }
    void save() const { saveSettings(*this); }
    static constexpr auto fields()
    {
        return std::tuple{Field{"text", &Reminder::text}, Field{"minutes", &Reminder::minutes},
                          Field{"lastShown", &Reminder::lastShown}};
    }

    bool operator==(const Reminder &) const = default;
};

static_assert(AppSettings<Reminder>);
static_assert(!AppSettings<std::string>);

TEST_F(AppPreferencesTest, AreJoinedByARecordOfAnApplicationsOwn)
{
    EXPECT_EQ(Reminder::load(), Reminder());
    const Reminder reminder{.text = "Drink", .minutes = 45, .lastShown = foundation::referenceDate};
    reminder.save();
    EXPECT_EQ(Reminder::load(), reminder);
    EXPECT_EQ(AppPreferences::load(), AppPreferences());
}

} // namespace

} // namespace sharedcore
