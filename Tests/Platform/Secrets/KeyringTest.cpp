// What is kept in a real keyring, as other programs see it.

#include "Platform/Linux/Secrets/SecretServiceStore.h"
#include "Tests/Platform/Secrets/ProcessMemory.h"
#include "Tests/Platform/Secrets/SecretHome.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusReply>
#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

namespace platform {

namespace {

using Attributes = QMap<QString, QString>;

class KeyringTest : public testing::Test
{
protected:
    static QDBusMessage call(const QString &path, const QString &interface, const QString &method)
    {
        return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.secrets"), path, interface,
                                              method);
    }

    [[nodiscard]] std::string read(std::string_view account)
    {
        const auto secret = store_.read(account, "service");
        return secret ? std::string(secret->view()) : "(nothing)";
    }

    // Of the one item that has that account; ends the test where there are more.
    [[nodiscard]] Attributes attributesOf(const QString &account)
    {
        qDBusRegisterMetaType<Attributes>();
        const auto connection = home_.bus().connect();
        const Attributes wanted{{QStringLiteral("account"), account}};
        const QDBusReply<QList<QDBusObjectPath>> items = connection.call(
            call(QStringLiteral("/org/freedesktop/secrets"), QStringLiteral("org.freedesktop.Secret.Service"),
                 QStringLiteral("SearchItems"))
            << QVariant::fromValue(wanted));
        EXPECT_EQ(items.value().size(), 1);
        const QDBusReply<QVariant> found =
            connection.call(call(items.value().value(0).path(),
                                 QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"))
                            << QStringLiteral("org.freedesktop.Secret.Item") << QStringLiteral("Attributes"));
        QDBusConnection::disconnectFromBus(connection.name());
        return qdbus_cast<Attributes>(found.value());
    }

    QByteArray shell(const char *line) const
    {
        return home_.run({QStringLiteral("sh"), QStringLiteral("-c"), QString::fromLatin1(line)});
    }

    SecretHome home_{SecretHome::Kind::keyring};
    SecretServiceStore store_;
};

TEST_F(KeyringTest, NamesAnItemByItsAccountAndServiceAlone)
{
    EXPECT_TRUE(store_.save("secret", "me", "service"));
    auto attributes = attributesOf(QStringLiteral("me"));
    attributes.remove(QStringLiteral("xdg:schema")); // which the daemon adds to items that have none
    EXPECT_EQ(attributes, (Attributes{{QStringLiteral("account"), QStringLiteral("me")},
                                      {QStringLiteral("service"), QStringLiteral("service")}}));
}

TEST_F(KeyringTest, LeavesOneItemHoweverOftenItIsSaved)
{
    for (const auto *secret : {"one", "two", "three"}) {
        EXPECT_TRUE(store_.save(secret, "me", "service"));
    }
    EXPECT_EQ(attributesOf(QStringLiteral("me")).value(QStringLiteral("service")), QStringLiteral("service"));
    EXPECT_EQ(read("me"), "three");
}

TEST_F(KeyringTest, IsFoundByOtherPrograms)
{
    EXPECT_TRUE(store_.save("from here", "me", "service"));
    EXPECT_EQ(shell("secret-tool lookup account me service service"), "from here");
}

TEST_F(KeyringTest, FindsWhatOtherProgramsKeep)
{
    shell("printf 'from there' | secret-tool store --label=x account me service service");
    EXPECT_EQ(read("me"), "from there");
    EXPECT_TRUE(store_.remove("me", "service"));
    EXPECT_EQ(read("me"), "(nothing)");
}

TEST_F(KeyringTest, ReplacesAnItemThatHasFurtherAttributes)
{
    shell("printf 'from there' | secret-tool store --label=x account me service service further more");
    EXPECT_TRUE(store_.save("from here", "me", "service"));
    EXPECT_EQ(read("me"), "from here");
}

TEST_F(KeyringTest, LeavesTheSecretNowhereInMemory)
{
    const MaskedText masked("a secret that is ", "looked for in memory");
    {
        auto plain = masked.plain();
        EXPECT_GT(countInMemory(masked), 0); // the search finds what is there
        EXPECT_TRUE(store_.save(plain, "me", "service"));
        const auto found = store_.read("me", "service");
        ASSERT_TRUE(found);
        EXPECT_TRUE(found->view() == plain);
        clear(plain);
        EXPECT_GT(countInMemory(masked), 0); // in what was read
    }
    EXPECT_EQ(countInMemory(masked), 0);
}

TEST_F(KeyringTest, WritesTheSecretNowhereElse)
{
    EXPECT_TRUE(store_.save("a secret that is looked for on the disk", "me", "service"));
    int files = 0;
    QDirIterator entries(home_.runtime().path(QStringLiteral(".")), QDir::Files | QDir::Hidden,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        QFile file(entries.next());
        ++files;
        EXPECT_FALSE(file.open(QIODevice::ReadOnly) && file.readAll().contains("looked for"))
            << file.fileName().toStdString();
    }
    EXPECT_GT(files, 0);
}

} // namespace

} // namespace platform
