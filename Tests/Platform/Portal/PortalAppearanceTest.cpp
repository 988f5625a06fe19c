#include "Platform/Linux/Portal/PortalAppearance.h"

#include "Tests/Platform/Portal/PortalTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/FakeSettingsPortal.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <QThread>

#include <gmock/gmock.h>

namespace platform {

namespace {

using testsupport::eventually;
using testsupport::FakeSettingsPortal;
using testsupport::letPass;
using testsupport::sessionBus;
using Clock = std::chrono::steady_clock;

const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString gnomeGroup = QStringLiteral("org.gnome.desktop.interface");
const QString kdeGroup = QStringLiteral("org.kde.kdeglobals.General");
const QString colorScheme = QStringLiteral("color-scheme");
constexpr auto noPreference = 0U;
constexpr auto prefersDark = 1U;
constexpr auto prefersLight = 2U;

// The installed families. Those that several foundries have are left out: Qt adds the foundry to their names.
QStringList installedFamilies()
{
    auto families = QFontDatabase::families();
    families.removeIf([](const QString &family) { return family.contains(QLatin1Char('[')); });
    return families;
}

QString installedFamily(qsizetype place)
{
    return installedFamilies().value(place);
}

// The portal answers from a thread of its own, as another process would.
class PortalThread final : public QThread
{
public:
    PortalThread() { start(); }

    ~PortalThread() override
    {
        quit();
        wait();
    }

    bool isUp()
    {
        return eventually([this] { return isUp_.load(); });
    }

private:
    void run() override
    {
        FakeSettingsPortal portal(sessionBus());
        portal.set(appearanceGroup, colorScheme, prefersDark);
        isUp_ = portal.isOpen();
        exec();
    }

    std::atomic<bool> isUp_ = false;
};

class PortalAppearanceTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(sessionBus().isOpen());
        ASSERT_GE(installedFamilies().size(), 2);
        portal.emplace(sessionBus());
        ASSERT_TRUE(portal->isOpen());
    }

    void set(const QString &group, const char *key, const QVariant &value)
    {
        portal->set(group, QString::fromLatin1(key), value);
    }

    // Whether the appearance comes to have what the predicate asks for.
    static bool comesToHave(const PortalAppearance &appearance,
                            const std::function<bool(const AppearanceValues &)> &predicate)
    {
        return eventually([&] { return predicate(appearance.values()); });
    }

    // Follows the change of a setting until it can be seen, so that all that came before it has been read.
    bool settles(const PortalAppearance &appearance)
    {
        set(appearanceGroup, "color-scheme", prefersDark);
        const bool isDark = comesToHave(appearance, [](const auto &values) { return values.isDark; });
        set(appearanceGroup, "color-scheme", prefersLight);
        return isDark && comesToHave(appearance, [](const auto &values) { return !values.isDark; });
    }

    std::optional<FakeSettingsPortal> portal;
};

} // namespace

TEST_F(PortalAppearanceTest, ReadsWhatTheDesktopSays)
{
    set(appearanceGroup, "color-scheme", prefersDark);
    portal->setAccent(0.25, 0.5, 1);
    set(gnomeGroup, "font-name", QString(installedFamily(0) + QStringLiteral(" 11")));
    set(gnomeGroup, "monospace-font-name", QString(installedFamily(1) + QStringLiteral(" 10")));
    const PortalAppearance appearance;
    ASSERT_TRUE(comesToHave(appearance, [](const auto &values) { return values.accent.has_value(); }));
    EXPECT_TRUE(appearance.values().isDark);
    EXPECT_EQ(appearance.values().accent->rgb(), qRgb(64, 128, 255));
    EXPECT_EQ(appearance.values().fontFamily, installedFamily(0));
    EXPECT_EQ(appearance.values().fixedFontFamily, installedFamily(1));
}

TEST_F(PortalAppearanceTest, ReadsTheFontNamesOfKde)
{
    set(kdeGroup, "font", QString(installedFamily(1) + QStringLiteral(",10,-1,5,50,0,0,0,0,0")));
    set(kdeGroup, "fixed", QString(installedFamily(0) + QStringLiteral(",10,-1,5,50,0,0,0,0,0")));
    const PortalAppearance appearance;
    EXPECT_TRUE(
        comesToHave(appearance, [](const auto &values) { return values.fontFamily == installedFamily(1); }));
    EXPECT_EQ(appearance.values().fixedFontFamily, installedFamily(0));
}

TEST_F(PortalAppearanceTest, AFontThatIsNotInstalledIsNone)
{
    set(gnomeGroup, "font-name", QStringLiteral("No Such Family 11"));
    set(gnomeGroup, "monospace-font-name", QStringLiteral("No Such Family 11"));
    const PortalAppearance appearance;
    ASSERT_TRUE(settles(appearance));
    EXPECT_FALSE(appearance.values().fontFamily.contains(QStringLiteral("No Such Family")));
    EXPECT_EQ(appearance.values().fixedFontFamily, QString());
}

TEST_F(PortalAppearanceTest, AnAccentOutsideTheRangeIsNone)
{
    const PortalAppearance appearance;
    portal->setAccent(1, 0, 0);
    ASSERT_TRUE(comesToHave(appearance, [](const auto &values) { return values.accent.has_value(); }));
    for (const auto &bad : {std::array{-1.0, -1.0, -1.0}, std::array{0.0, 1.5, 0.0},
                            std::array{0.0, 0.0, std::numeric_limits<double>::quiet_NaN()}}) {
        portal->setAccent(bad[0], bad[1], bad[2]);
        EXPECT_TRUE(comesToHave(appearance, [](const auto &values) { return !values.accent; }));
        portal->setAccent(0, 1, 0);
        EXPECT_TRUE(comesToHave(appearance, [](const auto &values) { return values.accent.has_value(); }));
    }
}

TEST_F(PortalAppearanceTest, ValuesOfAnotherTypeAreNone)
{
    set(appearanceGroup, "accent-color", QStringLiteral("red"));
    set(appearanceGroup, "color-scheme", QStringLiteral("dark"));
    set(gnomeGroup, "font-name", 11);
    const PortalAppearance appearance;
    const auto before = appearance.values();
    ASSERT_TRUE(eventually([&] { return portal->readCount() > 0; }));
    letPass(std::chrono::milliseconds(50));
    EXPECT_EQ(appearance.values().accent, std::nullopt);
    EXPECT_EQ(appearance.values().isDark, before.isDark);
    EXPECT_EQ(appearance.values().fontFamily, before.fontFamily);
    EXPECT_TRUE(settles(appearance));
}

TEST_F(PortalAppearanceTest, FollowsEveryChangeAndSaysItOnce)
{
    PortalAppearance appearance;
    ASSERT_TRUE(settles(appearance));
    int changes = 0;
    QObject::connect(&appearance, &Appearance::changed, [&changes] { ++changes; });
    set(appearanceGroup, "color-scheme", prefersDark);
    ASSERT_TRUE(comesToHave(appearance, [](const auto &values) { return values.isDark; }));
    set(appearanceGroup, "color-scheme", prefersDark);
    set(QStringLiteral("org.example.other"), "color-scheme", prefersLight);
    set(appearanceGroup, "contrast", 1U);
    portal->setAccent(0, 0, 1);
    ASSERT_TRUE(comesToHave(appearance, [](const auto &values) { return values.accent.has_value(); }));
    EXPECT_EQ(changes, 2);
    set(gnomeGroup, "font-name", QString(installedFamily(0) + QStringLiteral(" 9")));
    EXPECT_TRUE(
        comesToHave(appearance, [](const auto &values) { return values.fontFamily == installedFamily(0); }));
}

TEST_F(PortalAppearanceTest, WithoutAPreferenceTheToolkitsPaletteDecides)
{
    set(appearanceGroup, "color-scheme", noPreference);
    const PortalAppearance appearance;
    ASSERT_TRUE(settles(appearance));
    set(appearanceGroup, "color-scheme", noPreference);
    const auto palette = QGuiApplication::palette();
    QPalette dark = palette;
    dark.setColor(QPalette::Window, QColor(20, 20, 20));
    QGuiApplication::setPalette(dark);
    EXPECT_TRUE(comesToHave(appearance, [](const auto &values) { return values.isDark; }));
    QGuiApplication::setPalette(palette);
    EXPECT_TRUE(comesToHave(appearance, [](const auto &values) { return !values.isDark; }));
}

TEST_F(PortalAppearanceTest, APortalThatAppearsLateIsRead)
{
    portal.reset();
    const PortalAppearance appearance;
    letPass(std::chrono::milliseconds(50));
    ASSERT_FALSE(appearance.values().isDark);
    portal.emplace(sessionBus());
    set(appearanceGroup, "color-scheme", prefersDark);
    EXPECT_TRUE(comesToHave(appearance, [](const auto &values) { return values.isDark; }));
}

TEST_F(PortalAppearanceTest, APortalThatRestartsIsReadAgainAndItsAbsenceChangesNothing)
{
    set(appearanceGroup, "color-scheme", prefersDark);
    const PortalAppearance appearance;
    ASSERT_TRUE(comesToHave(appearance, [](const auto &values) { return values.isDark; }));
    portal.reset();
    letPass(std::chrono::milliseconds(50));
    EXPECT_TRUE(appearance.values().isDark);
    portal.emplace(sessionBus());
    EXPECT_TRUE(eventually([&] { return portal->readCount() > 0; }));
    EXPECT_TRUE(comesToHave(appearance, [](const auto &values) { return !values.isDark; }));
}

TEST_F(PortalAppearanceTest, ThePromptAnswerOfAPortalIsAwaited)
{
    portal.reset();
    PortalThread other;
    ASSERT_TRUE(other.isUp());
    PortalAppearance appearance;
    EXPECT_FALSE(appearance.values().isDark);
    appearance.awaitFirstAnswer();
    EXPECT_TRUE(appearance.values().isDark);
    appearance.awaitFirstAnswer();
}

TEST_F(PortalAppearanceTest, APortalThatDoesNotAnswerIsAwaitedForAMomentOnlyAndHeardLater)
{
    set(appearanceGroup, "color-scheme", prefersDark);
    PortalAppearance appearance;
    const auto start = Clock::now();
    appearance.awaitFirstAnswer(); // the portal lives in this thread, which is waiting for it
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(1));
    EXPECT_FALSE(appearance.values().isDark);
    EXPECT_TRUE(comesToHave(appearance, [](const auto &values) { return values.isDark; }));
}

} // namespace platform
