#include "Tests/SharedCore/RealStorageTest.h"

#include "SharedCore/Storage/AppPreferences.h"
#include "SharedCore/Storage/UsageStats.h"

#include <QCoreApplication>

#include <thread>

namespace sharedcore {

namespace {

using namespace std::string_literals;
using platform::PropertyValue;

// With nothing of the user's session in reach.
class EmptySessionTest : public RealStorageTest
{
protected:
    EmptySessionTest()
    {
        for (const auto *variable :
             {"DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "DISPLAY", "WAYLAND_DISPLAY"}) {
            unsetenv(variable);
        }
    }
};

TEST_F(RealStorageTest, KeepsRecordsFromOneRunToTheNext)
{
    const AppPreferences preferences{.launchAtLogin = true, .keyboardShortcuts = {{"a", "b"}}};
    UsageStats stats;
    stats.recordLaunch();
    {
        RealStorage storage;
        storage->set(preferences, AppPreferences::settingsKey);
        storage->set(stats, "usage");
    }
    RealStorage storage;
    EXPECT_EQ(storage->get<AppPreferences>(AppPreferences::settingsKey), preferences);
    EXPECT_EQ(storage->get<UsageStats>("usage"), stats);
}

TEST_F(RealStorageTest, KeepsEachApplicationsValuesInAFolderOfItsName)
{
    QCoreApplication::setApplicationName(QStringLiteral("first"));
    RealStorage first;
    QCoreApplication::setApplicationName(QStringLiteral("../second \xC3\xA4"));
    RealStorage second;
    QCoreApplication::setApplicationName({});
    first->set(PropertyValue("1"s), "key");
    second->set(PropertyValue("2"s), "key");
    EXPECT_EQ(first->get("key"), PropertyValue("1"s));
    EXPECT_EQ(second->get("key"), PropertyValue("2"s));
    EXPECT_TRUE(std::filesystem::exists(dataFolder() / "first" / "defaults.sqlite"));
    int folders = 0;
    for ([[maybe_unused]] const auto &entry : std::filesystem::directory_iterator(dataFolder())) {
        ++folders;
    }
    EXPECT_EQ(folders, 2);
}

TEST_F(RealStorageTest, SharesTheFamilysDefaultsBetweenApplications)
{
    QCoreApplication::setApplicationName(QStringLiteral("first"));
    RealStorage first;
    QCoreApplication::setApplicationName(QStringLiteral("second"));
    RealStorage second;
    QCoreApplication::setApplicationName({});
    EXPECT_TRUE(first->sharedDefaults()->setValue("key", "ours"s));
    EXPECT_EQ(second->sharedDefaults()->value("key"), PropertyValue("ours"s));
    EXPECT_NE(first->sharedDefaults(), first->sharedDefaults());
    EXPECT_TRUE(std::filesystem::exists(dataFolder() / applicationGroupIdentifier / "defaults.sqlite"));
}

TEST_F(RealStorageTest, RefusesSuitesThatAreNoNames)
{
    QCoreApplication::setApplicationName(QStringLiteral("application"));
    const auto services = platform::makeNativeStorage();
    for (const auto &name : {""s, "."s, ".."s, ".hidden"s, "a/b"s, "/"s, "a b"s, "a\0"s, "\xC3\xA4"s,
                             std::string(201, 'a'), "application"s}) {
        EXPECT_EQ(services->openSuite(name), nullptr) << name;
    }
    EXPECT_NE(services->openSuite("group.org.stirra-2_x"), nullptr);
    QCoreApplication::setApplicationName({});
}

TEST_F(RealStorageTest, IsInTheUsersHomeWhereNoFolderIsNamed)
{
    setenv("XDG_DATA_HOME", "not/absolute", 1);
    setenv("HOME", (dataFolder() / "home").c_str(), 1);
    QCoreApplication::setApplicationName(QStringLiteral("application"));
    RealStorage storage;
    QCoreApplication::setApplicationName({});
    storage->set(PropertyValue("value"s), "key");
    EXPECT_TRUE(std::filesystem::exists(dataFolder() / "home/.local/share/application/defaults.sqlite"));
}

// With STIRRA_SANITIZERS=thread this shows that the shared instance needs no lock of its callers.
TEST_F(EmptySessionTest, IsUsedByEightThreadsAtOnce)
{
    constexpr int rounds = 40;
    std::vector<std::thread> threads;
    for (int number = 0; number < 8; ++number) {
        threads.emplace_back([number] {
            auto &storage = StorageManager::shared();
            const auto key = "key " + std::to_string(number);
            const auto suite = storage.sharedDefaults();
            for (std::int64_t round = 0; round < rounds; ++round) {
                storage.set(UsageStats{.launchCount = round}, key);
                EXPECT_EQ(storage.get<UsageStats>(key), UsageStats{.launchCount = round});
                AppPreferences{.launchAtLogin = number % 2 == 0}.save();
                EXPECT_TRUE(AppPreferences::load().showMenuBarIcon);
                EXPECT_TRUE(suite->setValue(key, round));
                EXPECT_EQ(storage.sharedDefaults()->value(key), PropertyValue(round));
            }
            EXPECT_FALSE(storage.deleteFromKeychain(key)); // there is no service here
            storage.remove(key);
            EXPECT_EQ(storage.get(key), std::nullopt);
        });
    }
    for (auto &thread : threads) {
        thread.join();
    }
}

} // namespace

} // namespace sharedcore
