// What every secret store has to do. Which one it is shown on is said by STIRRA_TEST_SECRETS: "keyring" (a
// real daemon), "file" (the client's own file) or "fake".

#include "Platform/Linux/Secrets/SecretServiceStore.h"
#include "Tests/Fakes/FakeStorage.h"
#include "Tests/Platform/Secrets/SecretHome.h"

#include <gtest/gtest.h>

namespace platform {

namespace {

using namespace std::string_view_literals;

std::string kindOfStore()
{
    const char *kind = std::getenv("STIRRA_TEST_SECRETS");
    return kind ? kind : "keyring";
}

// One for the process: the client keeps to the first service that it has found.
class Secrets
{
public:
    static SecretStore &store()
    {
        static Secrets secrets;
        return *secrets.store_;
    }

    static std::unique_ptr<SecretStore> another()
    {
        return kind() == "fake" ? nullptr : std::make_unique<SecretServiceStore>();
    }

private:
    static const std::string &kind()
    {
        static const auto kind = kindOfStore(); // before the environment is cleared
        return kind;
    }

    Secrets()
    {
        if (kind() == "fake") {
            store_ = std::make_unique<fakes::FakeSecretStore>();
            return;
        }
        home_ = std::make_unique<SecretHome>(kind() == "file" ? SecretHome::Kind::file
                                                              : SecretHome::Kind::keyring);
        store_ = std::make_unique<SecretServiceStore>();
    }

    std::unique_ptr<SecretHome> home_;
    std::unique_ptr<SecretStore> store_;
};

class SecretStoreTest : public testing::Test
{
protected:
    SecretStoreTest()
        : service_(testing::UnitTest::GetInstance()->current_test_info()->name())
    {}

    [[nodiscard]] std::optional<std::string> read(std::string_view account, SecretStore &store) const
    {
        const auto secret = store.read(account, service_);
        return secret ? std::optional(std::string(secret->view())) : std::nullopt;
    }
    [[nodiscard]] std::optional<std::string> read(std::string_view account) const
    {
        return read(account, store_);
    }
    [[nodiscard]] bool save(std::string_view secret, std::string_view account) const
    {
        return store_.save(secret, account, service_);
    }

    const std::string service_; // one of its own for each test
    SecretStore &store_ = Secrets::store();
};

TEST_F(SecretStoreTest, HasNothingAtFirst)
{
    EXPECT_EQ(read("nobody"), std::nullopt);
}

TEST_F(SecretStoreTest, GivesASecretBack)
{
    EXPECT_TRUE(save("the secret", "account"));
    EXPECT_EQ(read("account"), "the secret");
}

TEST_F(SecretStoreTest, LeavesOneItemWithTheSecondOfTwoSecrets)
{
    EXPECT_TRUE(save("first", "account"));
    EXPECT_TRUE(save("second", "account"));
    EXPECT_EQ(read("account"), "second");
    EXPECT_TRUE(store_.remove("account", service_));
    EXPECT_EQ(read("account"), std::nullopt);
    EXPECT_FALSE(store_.remove("account", service_));
}

TEST_F(SecretStoreTest, SaysFalseOfTheRemovalOfWhatIsNotThere)
{
    EXPECT_FALSE(store_.remove("nobody", service_));
}

TEST_F(SecretStoreTest, TellsAccountsAndServicesApart)
{
    const auto other = service_ + " other";
    EXPECT_TRUE(save("one", "first"));
    EXPECT_TRUE(save("two", "second"));
    EXPECT_TRUE(store_.save("three", "first", other));
    EXPECT_EQ(read("first"), "one");
    EXPECT_EQ(read("second"), "two");
    EXPECT_TRUE(store_.remove("first", service_));
    EXPECT_EQ(read("second"), "two");
    EXPECT_EQ(store_.read("first", other).value().view(), "three");
}

TEST_F(SecretStoreTest, TakesTextOfEveryKind)
{
    const std::string longText(100'000, 'x');
    for (const auto text : {""sv, " "sv, "line\nline"sv, "\xF0\x9F\x92\x9A \xC3\xA4"sv, "before\0after"sv,
                            std::string_view(longText)}) {
        EXPECT_TRUE(save(text, "account")) << text;
        EXPECT_EQ(read("account"), text);
    }
}

TEST_F(SecretStoreTest, GivesBytesBackThatAreNoText)
{
    EXPECT_TRUE(save("\xFF\xFE", "account"));
    EXPECT_EQ(read("account"), "\xFF\xFE");
}

TEST_F(SecretStoreTest, TakesNamesOfEveryKind)
{
    for (const auto name : {""sv, "a b"sv, "\xC3\xA4@example.org"sv, "'\"\\=,;"sv}) {
        EXPECT_TRUE(save("secret of " + std::string(name), name));
        EXPECT_EQ(read(name), "secret of " + std::string(name));
        EXPECT_TRUE(store_.remove(name, service_));
    }
}

TEST_F(SecretStoreTest, KeepsNothingUnderANameThatIsNoText)
{
    for (const auto name : {"\xFF"sv, "before\0after"sv}) {
        EXPECT_FALSE(save("secret", name));
        EXPECT_EQ(read(name), std::nullopt);
        EXPECT_FALSE(store_.remove(name, service_));
        EXPECT_FALSE(store_.save("secret", "account", name));
    }
    EXPECT_EQ(read("before"), std::nullopt);
}

TEST_F(SecretStoreTest, ShowsEachStoreWhatAnotherKeeps)
{
    const auto another = Secrets::another();
    auto &other = another ? *another : store_;
    EXPECT_TRUE(save("mine", "account"));
    EXPECT_EQ(read("account", other), "mine");
    EXPECT_TRUE(other.save("theirs", "account", service_));
    EXPECT_EQ(read("account"), "theirs");
}

} // namespace

} // namespace platform
