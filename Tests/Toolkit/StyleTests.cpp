#include "Toolkit/SystemStyle.h"

#include "Tests/Toolkit/ToolkitTest.h"

#include <array>
#include <cmath>

namespace toolkit {

namespace {

struct NamedColor
{
    const char *name;
    QRgb light;
    QRgb dark;
};

constexpr std::array systemColors{
    NamedColor{"red", 0xFF3B30, 0xFF453A},    NamedColor{"green", 0x34C759, 0x30D158},
    NamedColor{"yellow", 0xFFCC00, 0xFFD60A}, NamedColor{"blue", 0x007AFF, 0x0A84FF},
    NamedColor{"cyan", 0x32ADE6, 0x64D2FF},   NamedColor{"purple", 0xAF52DE, 0xBF5AF2},
    NamedColor{"gray", 0x8E8E93, 0x8E8E93},
};

QColor namedColor(const SystemStyle &style, const char *name)
{
    return style.property(name).value<QColor>();
}

TEST(SystemStyle, HasTheSystemColoursOfBothAppearances)
{
    fakes::FakePlatform platform;
    const SystemStyle style;
    for (const auto &color : systemColors) {
        EXPECT_EQ(namedColor(style, color.name), QColor(color.light)) << color.name;
    }
    platform.appearance().set({true, {}, {}, {}});
    for (const auto &color : systemColors) {
        EXPECT_EQ(namedColor(style, color.name), QColor(color.dark)) << color.name;
    }
}

TEST(SystemStyle, IsBlueAndInterWhereTheDesktopNamesNone)
{
    fakes::FakePlatform platform;
    const SystemStyle style;
    EXPECT_EQ(style.accent(), style.blue());
    EXPECT_EQ(style.fontFamily(), QStringLiteral("Inter"));
    EXPECT_FALSE(style.monospacedFamily().isEmpty());
}

TEST(SystemStyle, TellsItsViewsWhenTheDesktopChanges)
{
    fakes::FakePlatform platform;
    const SystemStyle style;
    int changes = 0;
    QObject::connect(&style, &SystemStyle::changed, &style, [&] { ++changes; });
    const platform::AppearanceValues values{true, QColor(Qt::green), QStringLiteral("Sans A"),
                                            QStringLiteral("Mono A")};
    platform.appearance().set(values);
    platform.appearance().set(values);
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(style.isDark());
    EXPECT_EQ(style.accent(), QColor(Qt::green));
    EXPECT_EQ(style.fontFamily(), QStringLiteral("Sans A"));
    EXPECT_EQ(style.monospacedFamily(), QStringLiteral("Mono A"));
}

QColor over(const QColor &top, const QColor &bottom)
{
    const auto mix = [&](float upper, float lower) {
        return upper * top.alphaF() + lower * (1 - top.alphaF());
    };
    return QColor::fromRgbF(mix(top.redF(), bottom.redF()), mix(top.greenF(), bottom.greenF()),
                            mix(top.blueF(), bottom.blueF()));
}

TEST(SystemStyle, FollowsWhatTheProgramPrefersOverTheDesktop)
{
    fakes::FakePlatform platform;
    const SystemStyle style;
    int changes = 0;
    QObject::connect(&style, &SystemStyle::changed, &style, [&] { ++changes; });
    platform.appearance().prefer({.isDark = true, .reducesMotion = true});
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(style.isDark());
    EXPECT_TRUE(style.reducesMotion());
    platform.appearance().set({false, QColor(Qt::green), {}, {}});
    EXPECT_TRUE(style.isDark());
    EXPECT_EQ(style.accent(), QColor(Qt::green));
    platform.appearance().prefer({});
    EXPECT_FALSE(style.isDark());
    EXPECT_FALSE(style.reducesMotion());
}

TEST(SystemStyle, ReducesWhereTheDesktopOrTheProgramWantsIt)
{
    fakes::FakePlatform platform;
    const SystemStyle style;
    platform.appearance().set({.reducesMotion = true, .reducesTransparency = true});
    platform.appearance().prefer({.reducesMotion = false});
    EXPECT_TRUE(style.reducesMotion());
    EXPECT_TRUE(style.reducesTransparency());
}

TEST(SystemStyle, ItsMaterialsBecomeOpaqueAndLookTheSameOverTheWindow)
{
    fakes::FakePlatform platform;
    const SystemStyle style;
    for (const bool isDark : {false, true}) {
        platform.appearance().prefer({.isDark = isDark});
        const auto window = style.windowBackground();
        const auto thin = over(style.ultraThinMaterial(), window);
        const auto bar = over(style.barMaterial(), window);
        platform.appearance().prefer({.isDark = isDark, .reducesTransparency = true});
        EXPECT_EQ(style.ultraThinMaterial().rgba(), thin.rgba()) << isDark;
        EXPECT_EQ(style.barMaterial().rgba(), bar.rgba()) << isDark;
    }
}

double luminance(const QColor &color)
{
    const auto linear = [](float part) {
        const double value = part;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

// The contrast of WCAG 2.1 (relative luminances, plus 0.05 for the light of the room).
double contrast(const QColor &text, const QColor &ground)
{
    const double first = luminance(over(text, ground)) + 0.05;
    const double second = luminance(ground) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

TEST(SystemStyle, ItsLabelsCanBeReadOnEveryGround)
{
    fakes::FakePlatform platform;
    const SystemStyle style;
    for (const bool isDark : {false, true}) {
        platform.appearance().set({isDark, {}, {}, {}});
        const auto window = style.windowBackground();
        for (const auto &ground :
             {window, over(style.ultraThinMaterial(), window), over(style.barMaterial(), window)}) {
            EXPECT_GE(contrast(style.label(), ground), 7) << isDark;
            EXPECT_GE(contrast(style.secondaryLabel(), ground), 4.5) << isDark;
        }
        for (const auto &ground : {style.controlFace(), over(style.controlTrack(), window),
                                   over(style.groupBackground(), window)}) {
            EXPECT_GE(contrast(style.label(), ground), 4.5) << isDark;
        }
    }
}

using TextStyleTest = ToolkitTest;

TEST_F(TextStyleTest, HasTheNamedStyles)
{
    const auto &label =
        show("Item { property font title2: TextStyle.title2; property font body: TextStyle.body;"
             "property font headline: TextStyle.headline }");
    const auto font = [&](const char *name) { return label.property(name).value<QFont>(); };
    EXPECT_EQ(font("title2").pixelSize(), 17);
    EXPECT_EQ(font("body").pixelSize(), 13);
    EXPECT_EQ(font("headline").pixelSize(), 13);
    EXPECT_EQ(font("headline").weight(), QFont::DemiBold);
    EXPECT_EQ(font("body").family(), QStringLiteral("Inter"));
}

TEST_F(TextStyleTest, ALabelShowsMarkupAsItStands)
{
    const double plainWidth = show("Label { text: 'a' }").implicitWidth();
    EXPECT_GT(show("Label { text: '<b>a</b>' }").implicitWidth(), 3 * plainWidth);
}

} // namespace

} // namespace toolkit
