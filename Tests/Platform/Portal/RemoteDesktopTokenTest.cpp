#include "Platform/Linux/Portal/RemoteDesktopToken.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace platform {

namespace {

constexpr mode_t permissions = 0777;

mode_t modeOf(const QString &path)
{
    struct stat status = {};
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & permissions : 0;
}

class RemoteDesktopTokenTest : public testing::Test
{
protected:
    [[nodiscard]] QString file() const { return folder.filePath(QStringLiteral("a/b/token")); }
    [[nodiscard]] RemoteDesktopToken token() const { return RemoteDesktopToken(file()); }

    void write(const QByteArray &content) const
    {
        QFile target(file());
        QDir().mkpath(folder.filePath(QStringLiteral("a/b")));
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        ASSERT_EQ(target.write(content), content.size());
    }

    QTemporaryDir folder;
};

class ScopedVariable
{
public:
    ScopedVariable(const char *name, const QString &value)
        : name_(name)
        , before_(qgetenv(name))
    {
        qputenv(name, value.toLocal8Bit());
    }
    ScopedVariable(const ScopedVariable &) = delete;
    ScopedVariable &operator=(const ScopedVariable &) = delete;
    ~ScopedVariable() { qputenv(name_, before_); }

private:
    const char *name_;
    QByteArray before_;
};

} // namespace

TEST_F(RemoteDesktopTokenTest, TheFileIsInTheUsersStateFolder)
{
    const ScopedVariable home("HOME", QStringLiteral("/somebody"));
    const ScopedVariable state("XDG_STATE_HOME", QStringLiteral("/state"));
    EXPECT_EQ(RemoteDesktopToken::defaultFile(), QStringLiteral("/state/stirra/remote-desktop-token"));
    for (const auto *useless : {"", "relative/state"}) {
        const ScopedVariable none("XDG_STATE_HOME", QString::fromLatin1(useless));
        EXPECT_EQ(RemoteDesktopToken::defaultFile(),
                  QStringLiteral("/somebody/.local/state/stirra/remote-desktop-token"));
    }
}

TEST_F(RemoteDesktopTokenTest, WhatIsSavedIsLoaded)
{
    EXPECT_EQ(token().load(), QString());
    EXPECT_TRUE(token().save(QStringLiteral("first")));
    EXPECT_EQ(token().load(), QStringLiteral("first"));
    EXPECT_TRUE(token().save(QStringLiteral("zweites Zeichen \u00e4\U0001F511")));
    EXPECT_EQ(token().load(), QStringLiteral("zweites Zeichen \u00e4\U0001F511"));
}

TEST_F(RemoteDesktopTokenTest, OnlyTheUserCanReadIt)
{
    const auto before = umask(0);
    EXPECT_TRUE(token().save(QStringLiteral("secret")));
    umask(before);
    EXPECT_EQ(modeOf(file()), 0600);
    EXPECT_EQ(modeOf(folder.filePath(QStringLiteral("a/b"))), 0700);
}

TEST_F(RemoteDesktopTokenTest, AFileThatOthersCouldReadIsReplacedByOneThatTheyCannot)
{
    write("old");
    ASSERT_EQ(chmod(QFile::encodeName(file()).constData(), 0644), 0);
    EXPECT_TRUE(token().save(QStringLiteral("secret")));
    EXPECT_EQ(modeOf(file()), 0600);
    EXPECT_EQ(token().load(), QStringLiteral("secret"));
}

TEST_F(RemoteDesktopTokenTest, AnEmptyTokenRemovesTheFile)
{
    EXPECT_TRUE(token().save({}));
    EXPECT_TRUE(token().save(QStringLiteral("spent")));
    EXPECT_TRUE(token().save({}));
    EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(RemoteDesktopTokenTest, WhatIsNoTokenIsNone)
{
    for (const QByteArray &garbage :
         {QByteArray(), QByteArray("two\nlines"), QByteArray("nul\0l", 5), QByteArray("\xff\xfe token"),
          QByteArray("cut \xf0\x9f\x94"), QByteArray(100000, 'x'), QByteArray("\x1b[2J")}) {
        write(garbage);
        EXPECT_EQ(token().load(), QString()) << garbage.left(20).toStdString();
    }
    write("token");
    EXPECT_EQ(token().load(), QStringLiteral("token"));
}

TEST_F(RemoteDesktopTokenTest, WhatIsNoFileIsNone)
{
    QDir().mkpath(file());
    EXPECT_EQ(token().load(), QString());
    EXPECT_FALSE(token().save(QStringLiteral("token")));
    EXPECT_FALSE(token().save({}));
}

TEST_F(RemoteDesktopTokenTest, AFolderThatCannotBeMadeIsSaid)
{
    QFile inTheWay(folder.filePath(QStringLiteral("a")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    EXPECT_FALSE(token().save(QStringLiteral("token")));
    EXPECT_EQ(token().load(), QString());
}

} // namespace platform
