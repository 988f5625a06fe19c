// What every defaults store has to do, shown on each of them.

#include "Platform/Linux/Defaults/SqliteDefaultsStore.h"
#include "Tests/Fakes/FakeStorage.h"
#include "Tests/Platform/Storage/SampleValues.h"
#include "Tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <functional>

namespace platform {

namespace {

using namespace std::string_literals;

// Opens the same domain at each call.
class Domain
{
public:
    Domain() = default;
    Domain(const Domain &) = delete;
    Domain &operator=(const Domain &) = delete;
    virtual ~Domain() = default;

    virtual std::unique_ptr<DefaultsStore> open() = 0;
};

class SqliteDomain final : public Domain
{
public:
    std::unique_ptr<DefaultsStore> open() override
    {
        return std::make_unique<SqliteDefaultsStore>(folder_.path() / "domain" / "defaults.sqlite");
    }

private:
    testsupport::TemporaryFolder folder_;
};

class FakeDomain final : public Domain
{
public:
    std::unique_ptr<DefaultsStore> open() override { return storage_.openSuite("domain"); }

private:
    fakes::FakeStorage storage_;
};

struct Backend
{
    const char *name;
    std::function<std::unique_ptr<Domain>()> make;
};

void PrintTo(const Backend &backend, std::ostream *stream)
{
    *stream << backend.name;
}

class DefaultsStoreTest : public testing::TestWithParam<Backend>
{
protected:
    std::unique_ptr<Domain> domain_ = GetParam().make();
    std::unique_ptr<DefaultsStore> store_ = domain_->open();
};

TEST_P(DefaultsStoreTest, HasNothingAtFirst)
{
    EXPECT_EQ(store_->value("key"), std::nullopt);
    EXPECT_EQ(store_->value(""), std::nullopt);
}

TEST_P(DefaultsStoreTest, GivesEveryValueBackWithItsType)
{
    int number = 0;
    for (const auto &value : sampleValues()) {
        const auto key = "key " + std::to_string(++number);
        EXPECT_TRUE(store_->setValue(key, value));
        EXPECT_EQ(store_->value(key), value);
        EXPECT_EQ(domain_->open()->value(key), value);
    }
}

TEST_P(DefaultsStoreTest, PutsAValueInPlaceOfOneOfAnotherType)
{
    for (const auto &value : sampleValues()) {
        EXPECT_TRUE(store_->setValue("key", value));
        EXPECT_EQ(store_->value("key"), value);
    }
}

TEST_P(DefaultsStoreTest, TellsKeysApartByTheirBytes)
{
    const std::vector keys{
        ""s, "a"s, "A"s, "a "s, "a\0"s, "a\0b"s, "\xC3\xA4"s, "a\xCC\x88"s, std::string(5000, 'a')};
    for (std::size_t index = 0; index < keys.size(); ++index) {
        EXPECT_TRUE(store_->setValue(keys[index], static_cast<std::int64_t>(index)));
    }
    for (std::size_t index = 0; index < keys.size(); ++index) {
        EXPECT_EQ(store_->value(keys[index]), PropertyValue(static_cast<std::int64_t>(index)));
    }
}

TEST_P(DefaultsStoreTest, RemovesAKeyAndNoOther)
{
    EXPECT_TRUE(store_->setValue("first", "1"s));
    EXPECT_TRUE(store_->setValue("second", "2"s));
    EXPECT_TRUE(store_->remove("first"));
    EXPECT_EQ(store_->value("first"), std::nullopt);
    EXPECT_EQ(store_->value("second"), PropertyValue("2"s));
    EXPECT_EQ(domain_->open()->value("first"), std::nullopt);
}

TEST_P(DefaultsStoreTest, HasRemovedWhatWasNeverThere)
{
    EXPECT_TRUE(store_->remove("key"));
    EXPECT_TRUE(store_->remove("key"));
}

TEST_P(DefaultsStoreTest, KeepsWhatItHadWhereAValueHasNoStoredForm)
{
    EXPECT_TRUE(store_->setValue("key", "before"s));
    EXPECT_FALSE(store_->setValue("key", "\xFF"s));
    EXPECT_FALSE(store_->setValue("key", PropertyList{"\xFF"s}));
    EXPECT_EQ(store_->value("key"), PropertyValue("before"s));
}

TEST_P(DefaultsStoreTest, KeepsNothingUnderAKeyThatIsNotUtf8)
{
    EXPECT_FALSE(store_->setValue("\xFF", "value"s));
    EXPECT_EQ(store_->value("\xFF"), std::nullopt);
}

TEST_P(DefaultsStoreTest, TakesAValueOfMegabytes)
{
    const Data large(5'000'000, std::byte{7});
    EXPECT_TRUE(store_->setValue("key", large));
    EXPECT_EQ(store_->value("key"), PropertyValue(large));
    EXPECT_TRUE(store_->setValue("key", "small again"s));
    EXPECT_EQ(store_->value("key"), PropertyValue("small again"s));
}

TEST_P(DefaultsStoreTest, ShowsEachOpenStoreWhatTheOthersWrite)
{
    const auto other = domain_->open();
    EXPECT_TRUE(store_->setValue("key", "mine"s));
    EXPECT_EQ(other->value("key"), PropertyValue("mine"s));
    EXPECT_TRUE(other->setValue("key", "theirs"s));
    EXPECT_EQ(store_->value("key"), PropertyValue("theirs"s));
    EXPECT_TRUE(other->remove("key"));
    EXPECT_EQ(store_->value("key"), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Backends, DefaultsStoreTest,
                         testing::Values(Backend{"Sqlite", [] { return std::make_unique<SqliteDomain>(); }},
                                         Backend{"Fake", [] { return std::make_unique<FakeDomain>(); }}),
                         [](const auto &backend) { return backend.param.name; });

} // namespace

} // namespace platform
