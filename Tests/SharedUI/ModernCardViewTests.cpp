#include "Tests/SharedUI/SharedUITest.h"

#include "Tests/Support/Eventually.h"

#include <array>

namespace sharedui {

namespace {

using testsupport::eventually;

struct Default
{
    const char *name;
    QVariant value;
};

class ModernCardViewTest : public SharedUITest
{
protected:
    // A card of 120 × 80 points, in the middle of a window of one colour.
    QQuickItem &showCard(const QByteArray &fields = {}, const char *ground = "black")
    {
        view.setColor(QColor(QString::fromLatin1(ground)));
        return show("ModernCardView { x: 40; y: 60; " + fields +
                    " Item { objectName: 'inside'; implicitWidth: 88; implicitHeight: 48 } }");
    }

    [[nodiscard]] QImage pictureWith(const char *property, const QVariant &value)
    {
        shown().setProperty(property, value);
        return picture();
    }
};

TEST_F(ModernCardViewTest, HasItsDefaults)
{
    const auto &card = showCard();
    for (const auto &[name, value] : std::array{Default{"cornerRadius", 20.0}, Default{"blurRadius", 20.0},
                                                Default{"materialOpacity", 0.15}, Default{"showBorder", true},
                                                Default{"shadowRadius", 10.0}}) {
        EXPECT_EQ(card.property(name), value) << name;
    }
}

TEST_F(ModernCardViewTest, PadsItsContentOnAllSides)
{
    auto &card = showCard();
    EXPECT_EQ(card.size(), QSizeF(120, 80));
    const auto &content = item("inside");
    EXPECT_EQ(content.mapRectToItem(&card, content.boundingRect()), QRectF(16, 16, 88, 48));
}

TEST_F(ModernCardViewTest, LaysItsLayersInOrder)
{
    const auto &card = showCard();
    QStringList names;
    for (const auto *layer : card.childItems()) {
        names.append(layer->objectName());
    }
    EXPECT_EQ(names,
              QStringList({QStringLiteral("shadow"), QStringLiteral("material"), QStringLiteral("sheen"),
                           QStringLiteral("border"), QStringLiteral("holder")}));
}

TEST_F(ModernCardViewTest, ItsSheenRunsFromCornerToCorner)
{
    showCard("materialOpacity: 0; showBorder: false;");
    const auto image = picture();
    // White at 10 % and 5 % over black, where the card's outline crosses the diagonal.
    EXPECT_NEAR(colorAt(image, 48, 66).red(), 255 * 0.095, 2);
    EXPECT_NEAR(colorAt(image, 100, 100).red(), 255 * 0.075, 2);
    EXPECT_NEAR(colorAt(image, 152, 134).red(), 255 * 0.055, 2);
}

TEST_F(ModernCardViewTest, ItsMaterialIsAsOpaqueAsToldInBothAppearances)
{
    showCard("showBorder: false;");
    for (const bool isDark : {false, true}) {
        setDark(isDark);
        const int none = colorAt(pictureWith("materialOpacity", 0.0), 100, 100).red();
        const double material = isDark ? 0x14 / 255.0 : 0x99 / 255.0;
        for (const double opacity : {0.15, 1.0}) {
            const int some = colorAt(pictureWith("materialOpacity", opacity), 100, 100).red();
            EXPECT_NEAR(some - none, 255 * material * opacity * 0.925, 2) << isDark << ' ' << opacity;
        }
    }
}

TEST_F(ModernCardViewTest, IsOpaqueWhereTheUserWantsLessTransparency)
{
    platform.appearance().prefer({.reducesTransparency = true});
    showCard();
    const auto onBlack = colorAt(picture(), 100, 100);
    view.setColor(Qt::red);
    EXPECT_EQ(colorAt(picture(), 100, 100), onBlack);
}

TEST_F(ModernCardViewTest, ItsBorderStandsOnItsOutlineAndIsAGradient)
{
    showCard("materialOpacity: 0; shadowRadius: 0;");
    const auto with = picture();
    const auto without = pictureWith("showBorder", false);
    const auto added = [&](double x, double y) {
        return colorAt(with, x, y).red() - colorAt(without, x, y).red();
    };
    // At 1.5 the outline is in the middle of a pixel, which the border covers in part.
    const int least = view.devicePixelRatio() == 1.5 ? 15 : 20;
    EXPECT_GT(added(62, 59.9), least);
    EXPECT_GT(added(62, 60.1), least);
    EXPECT_EQ(added(62, 58.5), 0);
    EXPECT_EQ(added(62, 61.5), 0);
    EXPECT_GT(added(62, 60.1), added(138, 139.9) + 5);
    EXPECT_GT(added(138, 139.9), 5);
}

TEST_F(ModernCardViewTest, WithoutABorderItKeepsItsFillsAndItsShadow)
{
    showCard("showBorder: false;", "white");
    EXPECT_FALSE(item("border").isVisible());
    for (const auto *layer : {"shadow", "material", "sheen"}) {
        EXPECT_TRUE(item(layer).isVisible()) << layer;
    }
    EXPECT_LT(colorAt(picture(), 100, 146).red(), 250);
}

TEST_F(ModernCardViewTest, ItsShadowIsSoftBlackAndLower)
{
    showCard({}, "white");
    const auto image = picture();
    const auto depth = [&](double x, double y) { return 255 - colorAt(image, x, y).red(); };
    EXPECT_GT(depth(100, 142), depth(100, 57));
    EXPECT_GT(depth(100, 142), depth(100, 150));
    EXPECT_GT(depth(100, 150), depth(100, 160));
    EXPECT_EQ(depth(100, 180), 0);
    EXPECT_EQ(depth(34, 100), depth(165.5, 100));
    // Half of 15 % where the shadow's own edge is.
    EXPECT_NEAR(depth(100, 144), 255 * 0.15 / 2, 2);
}

TEST_F(ModernCardViewTest, IsNotDarkenedByItsShadow)
{
    showCard("materialOpacity: 0; showBorder: false;", "white");
    EXPECT_EQ(colorAt(picture(), 100, 100), QColor(Qt::white));
}

TEST_F(ModernCardViewTest, ItsBlurRadiusChangesNothing)
{
    auto &card = showCard();
    const auto before = picture();
    for (const double radius : {0.0, 1.0, 300.0, -5.0}) {
        EXPECT_EQ(pictureWith("blurRadius", radius), before);
        EXPECT_EQ(card.property("blurRadius").toDouble(), radius);
    }
}

TEST_F(ModernCardViewTest, EveryOtherFieldChangesItsPicture)
{
    showCard({}, "gray");
    auto last = picture();
    for (const auto &[name, value] : std::array{Default{"cornerRadius", 4.0}, Default{"materialOpacity", 0.9},
                                                Default{"showBorder", false}, Default{"shadowRadius", 3.0}}) {
        const auto now = pictureWith(name, value);
        EXPECT_NE(now, last) << name;
        last = now;
    }
}

TEST_F(ModernCardViewTest, BearsFieldsOfNoSense)
{
    showCard("cornerRadius: 900; shadowRadius: -1;", "white");
    EXPECT_FALSE(picture().isNull());
    EXPECT_FALSE(pictureWith("shadowRadius", 1e9).isNull());
    EXPECT_FALSE(pictureWith("shadowRadius", std::nan("")).isNull());
    EXPECT_FALSE(pictureWith("cornerRadius", -3.0).isNull());
}

TEST_F(ModernCardViewTest, CausesNoFrameAtRest)
{
    showCard();
    ASSERT_TRUE(eventually([this] { return frames > 0; }));
    testsupport::letPass(std::chrono::milliseconds(100));
    frames = 0;
    testsupport::letPass(std::chrono::milliseconds(300));
    EXPECT_EQ(frames, 0);
}

TEST_F(ModernCardViewTest, GivesItsContentTheRoomThatItHas)
{
    auto &card = show("ModernCardView { width: 180; height: 100; Rectangle { objectName: 'inside';"
                      "implicitHeight: 20; Layout.fillWidth: true } }");
    EXPECT_EQ(item("inside").width(), 180 - 2 * 16);
    card.setWidth(150);
    ASSERT_FALSE(picture().isNull());
    EXPECT_EQ(item("inside").width(), 150 - 2 * 16);
}

} // namespace

} // namespace sharedui
