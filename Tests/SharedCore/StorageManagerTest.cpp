#include "Tests/SharedCore/StorageTest.h"

#include <cmath>
#include <limits>
#include <thread>

namespace sharedcore {

namespace {

using namespace std::string_literals;
using platform::Data;
using platform::PropertyDictionary;
using platform::PropertyList;
using platform::PropertyValue;

using StorageManagerTest = StorageTest;

TEST_F(StorageManagerTest, StoresAnEncodableValueAsTheDataOfItsJson)
{
    manager_.set(std::map<std::string, std::int64_t>{{"a", 1}}, "key");
    EXPECT_EQ(manager_.get("key"), PropertyValue(data("{\"a\":1}")));
    EXPECT_EQ((manager_.get<std::map<std::string, std::int64_t>>("key")),
              (std::map<std::string, std::int64_t>{{"a", 1}}));
}

TEST_F(StorageManagerTest, GivesNothingForAMissingKey)
{
    EXPECT_EQ(manager_.get("key"), std::nullopt);
    EXPECT_EQ(manager_.get<std::string>("key"), std::nullopt);
}

TEST_F(StorageManagerTest, GivesNoRecordWhereAPlainTextIsStored)
{
    manager_.set(PropertyValue("\"text\""s), "key");
    EXPECT_EQ(manager_.get<std::string>("key"), std::nullopt);
    EXPECT_EQ(manager_.get("key"), PropertyValue("\"text\""s));
}

TEST_F(StorageManagerTest, GivesNoRecordWhereAPlainValueOfAnyOtherTypeIsStored)
{
    for (const PropertyValue &value : {PropertyValue(std::int64_t{1}), PropertyValue(1.0),
                                       PropertyValue(true), PropertyValue(foundation::referenceDate),
                                       PropertyValue(PropertyList{}), PropertyValue(PropertyDictionary{})}) {
        manager_.set(value, "key");
        EXPECT_EQ(manager_.get<std::int64_t>("key"), std::nullopt);
        EXPECT_EQ(manager_.get<bool>("key"), std::nullopt);
        EXPECT_EQ(manager_.get("key"), value);
    }
}

TEST_F(StorageManagerTest, RemovesTheKeyOfAnAbsentPlainValue)
{
    manager_.set(PropertyValue("text"s), "key");
    manager_.set(std::nullopt, "key");
    EXPECT_EQ(manager_.get("key"), std::nullopt);
}

TEST_F(StorageManagerTest, RemovesAKey)
{
    manager_.set(std::int64_t{1}, "key");
    manager_.remove("key");
    manager_.remove("key");
    EXPECT_EQ(manager_.get("key"), std::nullopt);
}

TEST_F(StorageManagerTest, DropsWhatCannotBeEncodedAndKeepsWhatWasStored)
{
    manager_.set("before"s, "key");
    manager_.set(std::nan(""), "key");
    manager_.set(std::numeric_limits<double>::infinity(), "key");
    manager_.set("\xFF"s, "key");
    manager_.set(std::vector{"fine"s, "\xC3"s}, "key");
    manager_.set(std::map<std::string, bool>{{"\xFF", true}}, "key");
    manager_.set(PropertyValue("\xFF"s), "key");
    EXPECT_EQ(manager_.get<std::string>("key"), "before");
}

TEST_F(StorageManagerTest, KeepsWhatWasStoredWhereTheStoreCannotBeWritten)
{
    manager_.set("before"s, "key");
    storage_.applicationDefaults().isWritable = false;
    manager_.set("after"s, "key");
    manager_.set(PropertyValue("after"s), "key");
    manager_.set(std::nullopt, "key");
    manager_.remove("key");
    EXPECT_EQ(manager_.get<std::string>("key"), "before");
}

TEST_F(StorageManagerTest, GivesNothingWhileTheStoreCannotBeRead)
{
    manager_.set("before"s, "key");
    storage_.applicationDefaults().isReadable = false;
    EXPECT_EQ(manager_.get("key"), std::nullopt);
    EXPECT_EQ(manager_.get<std::string>("key"), std::nullopt);
    storage_.applicationDefaults().isReadable = true;
    EXPECT_EQ(manager_.get<std::string>("key"), "before");
}

TEST_F(StorageManagerTest, UsesTheApplicationsDefaultsAndNotTheSharedOnes)
{
    manager_.set(PropertyValue("mine"s), "key");
    EXPECT_EQ(manager_.sharedDefaults()->value("key"), std::nullopt);
    EXPECT_TRUE(manager_.sharedDefaults()->setValue("key", "ours"s));
    EXPECT_EQ(manager_.get("key"), PropertyValue("mine"s));
}

TEST_F(StorageManagerTest, MakesANewObjectOnTheSameSharedDefaultsAtEachCall)
{
    const auto first = manager_.sharedDefaults();
    const auto second = manager_.sharedDefaults();
    ASSERT_TRUE(first && second);
    EXPECT_NE(first, second);
    EXPECT_TRUE(first->setValue("key", "value"s));
    EXPECT_EQ(second->value("key"), PropertyValue("value"s));
    EXPECT_EQ(storage_.suite(std::string(applicationGroupIdentifier)).values.size(), 1U);
}

TEST_F(StorageManagerTest, HasNoSharedDefaultsWhereTheSystemRefusesThem)
{
    storage_.refusesSuites = true;
    EXPECT_EQ(manager_.sharedDefaults(), nullptr);
}

TEST_F(StorageManagerTest, LeavesOneSecretOfTwoThatAreSaved)
{
    EXPECT_TRUE(manager_.saveToKeychain("first", "account", "service"));
    EXPECT_TRUE(manager_.saveToKeychain("second", "account", "service"));
    EXPECT_EQ(manager_.readFromKeychain("account", "service"), "second");
    EXPECT_TRUE(manager_.deleteFromKeychain("account", "service"));
    EXPECT_FALSE(manager_.deleteFromKeychain("account", "service"));
    EXPECT_EQ(manager_.readFromKeychain("account", "service"), std::nullopt);
}

TEST_F(StorageManagerTest, KeepsSecretsForTheFamilyWhereNoServiceIsNamed)
{
    EXPECT_TRUE(manager_.saveToKeychain("secret", "account"));
    EXPECT_EQ(manager_.readFromKeychain("account", familyIdentifier), "secret");
    EXPECT_EQ(manager_.readFromKeychain("account"), "secret");
    EXPECT_TRUE(manager_.deleteFromKeychain("account"));
    EXPECT_EQ(manager_.readFromKeychain("account", familyIdentifier), std::nullopt);
}

TEST_F(StorageManagerTest, ReadsASecretThatIsNotUtf8AsNothing)
{
    EXPECT_TRUE(storage_.secrets().save("\xFF\xFE", "account", familyIdentifier));
    EXPECT_EQ(manager_.readFromKeychain("account"), std::nullopt);
    EXPECT_TRUE(manager_.deleteFromKeychain("account"));
}

TEST_F(StorageManagerTest, SavesNoSecretThatIsNotUtf8)
{
    EXPECT_TRUE(manager_.saveToKeychain("before", "account"));
    EXPECT_FALSE(manager_.saveToKeychain("\xFF", "account"));
    EXPECT_EQ(manager_.readFromKeychain("account"), "before");
}

TEST_F(StorageManagerTest, FailsPolitelyWithoutASecretService)
{
    storage_.secrets().isAvailable = false;
    EXPECT_FALSE(manager_.saveToKeychain("secret", "account"));
    EXPECT_EQ(manager_.readFromKeychain("account"), std::nullopt);
    EXPECT_FALSE(manager_.deleteFromKeychain("account"));
}

class CountingStorageManager final : public OwnStorageManager
{
public:
    using OwnStorageManager::OwnStorageManager;
    using StorageManager::get;
    using StorageManager::set;

    void set(const Encodable &value, std::string_view key) override
    {
        ++writes;
        StorageManager::set(value, key);
    }
    bool get(Decodable & /*into*/, std::string_view /*key*/) override
    {
        ++reads;
        return false;
    }

    int writes = 0;
    int reads = 0;
};

TEST_F(StorageManagerTest, LetsItsGenericOperationsBeOverridden)
{
    CountingStorageManager manager(storage_);
    StorageManager &gateway = manager;
    gateway.set("text"s, "key");
    EXPECT_EQ(gateway.get<std::string>("key"), std::nullopt);
    EXPECT_EQ(manager.writes, 1);
    EXPECT_EQ(manager.reads, 1);
    EXPECT_EQ(manager_.get<std::string>("key"), "text");
}

TEST(SharedStorageManager, IsOneInstanceForAllThreads)
{
    sharedStorage();
    std::vector<StorageManager *> found(8);
    std::vector<std::thread> threads;
    for (auto &each : found) {
        threads.emplace_back([&each] { each = &StorageManager::shared(); });
    }
    for (auto &thread : threads) {
        thread.join();
    }
    for (const auto *each : found) {
        EXPECT_EQ(each, &StorageManager::shared());
    }
}

} // namespace

} // namespace sharedcore
