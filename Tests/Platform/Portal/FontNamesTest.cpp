#include "Platform/Linux/Portal/FontNames.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace platform {

namespace {

QString familyIn(const char *description)
{
    const QStringList installed{QStringLiteral("Cantarell"), QStringLiteral("Noto Sans"),
                                QStringLiteral("Noto Sans Mono"), QStringLiteral("Source Code Pro"),
                                QStringLiteral("DIN 1451")};
    return fontFamilyIn(QString::fromUtf8(description),
                        [&installed](const QString &family) { return installed.contains(family); });
}

} // namespace

TEST(FontNamesTest, AGnomeDescriptionHasFamilyStyleAndSize)
{
    EXPECT_EQ(familyIn("Cantarell 11"), QStringLiteral("Cantarell"));
    EXPECT_EQ(familyIn("Cantarell Bold Italic 11.5"), QStringLiteral("Cantarell"));
    EXPECT_EQ(familyIn("Source Code Pro 10"), QStringLiteral("Source Code Pro"));
    EXPECT_EQ(familyIn("Cantarell"), QStringLiteral("Cantarell"));
}

TEST(FontNamesTest, AKdeDescriptionHasTheFamilyBeforeTheFirstComma)
{
    EXPECT_EQ(familyIn("Noto Sans,10,-1,5,50,0,0,0,0,0"), QStringLiteral("Noto Sans"));
    EXPECT_EQ(familyIn("Noto Sans Mono,10,-1,5,400,0,0,0,0,0,0,0,0,0,0,1"), QStringLiteral("Noto Sans Mono"));
}

TEST(FontNamesTest, TheLongestRunOfWordsWins)
{
    EXPECT_EQ(familyIn("Noto Sans Mono Medium 10"), QStringLiteral("Noto Sans Mono"));
    EXPECT_EQ(familyIn("Noto Sans Medium 10"), QStringLiteral("Noto Sans"));
    EXPECT_EQ(familyIn("DIN 1451 12"), QStringLiteral("DIN 1451"));
}

TEST(FontNamesTest, BlanksDoNotMatter)
{
    EXPECT_EQ(familyIn("  Noto   Sans  11 "), QStringLiteral("Noto Sans"));
}

TEST(FontNamesTest, AFamilyThatIsNotInstalledIsNone)
{
    EXPECT_EQ(familyIn("Comic Relief 11"), QString());
    EXPECT_EQ(familyIn(""), QString());
    EXPECT_EQ(familyIn(","), QString());
    EXPECT_EQ(familyIn("11"), QString());
    EXPECT_EQ(familyIn("Noto 11"), QString());
}

} // namespace platform
