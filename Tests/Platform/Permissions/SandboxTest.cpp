// Whether the program is in a sandbox, and under which name.

#include "Platform/Linux/Permissions/Sandbox.h"
#include "Tests/Support/QtPrinting.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace platform {

class SandboxTest : public testing::Test
{
protected:
    ~SandboxTest() override
    {
        for (const char *variable : {"SNAP", "SNAP_NAME", "SNAP_INSTANCE_NAME"}) {
            qunsetenv(variable);
        }
    }

    QString write(const char *name, const char *text) const
    {
        QDir(folder.path()).mkpath(QStringLiteral("meta"));
        QFile file(folder.filePath(QString::fromLatin1(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }

    // As in a Snap of that confinement.
    void enterSnap(const char *confinement) const
    {
        write("meta/snap.yaml", (QByteArray("name: stirra\nconfinement: ") + confinement + "\n").constData());
        qputenv("SNAP", folder.path().toLocal8Bit());
        qputenv("SNAP_NAME", "stirra");
    }

    QTemporaryDir folder;
};

TEST_F(SandboxTest, OutsideThereIsNone)
{
    EXPECT_EQ(sandboxedApplication(folder.filePath(QStringLiteral("nothing"))), std::nullopt);
    EXPECT_EQ(sandboxedApplication(), std::nullopt);
}

TEST_F(SandboxTest, FlatpakSaysTheName)
{
    const auto file =
        write("info", "[Application]\nname=org.stirra.Stirra\nruntime=r\n\n[Instance]\nname=5\n");
    EXPECT_EQ(sandboxedApplication(file), QStringLiteral("org.stirra.Stirra"));
    EXPECT_EQ(sandboxedApplication(write("info", "broken")), QString()); // in one, whatever its name
}

TEST_F(SandboxTest, AStrictSnapIsOneAndHasItsNamePrefixed)
{
    enterSnap("strict");
    EXPECT_EQ(sandboxedApplication(), QStringLiteral("snap.stirra"));
    qputenv("SNAP_INSTANCE_NAME", "stirra_two");
    EXPECT_EQ(sandboxedApplication(), QStringLiteral("snap.stirra_two"));
}

TEST_F(SandboxTest, AProgramOfAClassicSnapIsInNone)
{
    enterSnap("classic");
    EXPECT_EQ(sandboxedApplication(), std::nullopt);
    qputenv("SNAP", "/nonexistent");
    EXPECT_EQ(sandboxedApplication(), std::nullopt);
}

} // namespace platform
