#include "Toolkit/SystemStyle.h"

#include "Platform/Platform.h"

#include <QFontDatabase>

namespace toolkit {

namespace {

const platform::AppearanceValues &wanted()
{
    return platform::Platform::current().appearance().values();
}

QFont fontOf(const QString &family, int pixelSize, int weight)
{
    QFont font(family);
    font.setPixelSize(pixelSize);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

QColor over(const QColor &top, const QColor &ground)
{
    const float alpha = top.alphaF();
    const auto mix = [alpha](float upper, float lower) { return upper * alpha + lower * (1 - alpha); };
    return QColor::fromRgbF(mix(top.redF(), ground.redF()), mix(top.greenF(), ground.greenF()),
                            mix(top.blueF(), ground.blueF()));
}

} // namespace

SystemStyle::SystemStyle(QObject *parent)
    : QObject(parent)
{
    connect(&platform::Platform::current().appearance(), &platform::Appearance::changed, this,
            &SystemStyle::changed);
}

QColor SystemStyle::choose(QRgb light, QRgb dark) const
{
    return QColor::fromRgba(isDark() ? dark : light);
}

bool SystemStyle::isDark() const
{
    return wanted().isDark;
}

bool SystemStyle::reducesMotion() const
{
    return wanted().reducesMotion;
}

bool SystemStyle::reducesTransparency() const
{
    return wanted().reducesTransparency;
}

QColor SystemStyle::red() const
{
    return choose(0xFFFF3B30, 0xFFFF453A);
}

QColor SystemStyle::green() const
{
    return choose(0xFF34C759, 0xFF30D158);
}

QColor SystemStyle::yellow() const
{
    return choose(0xFFFFCC00, 0xFFFFD60A);
}

QColor SystemStyle::blue() const
{
    return choose(0xFF007AFF, 0xFF0A84FF);
}

QColor SystemStyle::cyan() const
{
    return choose(0xFF32ADE6, 0xFF64D2FF);
}

QColor SystemStyle::purple() const
{
    return choose(0xFFAF52DE, 0xFFBF5AF2);
}

QColor SystemStyle::gray() const
{
    return choose(0xFF8E8E93, 0xFF8E8E93);
}

QColor SystemStyle::accent() const
{
    return wanted().accent.value_or(blue());
}

QColor SystemStyle::label() const
{
    return choose(0xD9000000, 0xD9FFFFFF);
}

QColor SystemStyle::secondaryLabel() const
{
    return choose(0x99000000, 0x99FFFFFF);
}

QColor SystemStyle::separator() const
{
    return choose(0x1F000000, 0x24FFFFFF);
}

QColor SystemStyle::windowBackground() const
{
    return choose(0xFFECECEC, 0xFF232323);
}

QColor SystemStyle::controlTrack() const
{
    return choose(0x1A000000, 0x1FFFFFFF);
}

QColor SystemStyle::controlFace() const
{
    return choose(0xFFFFFFFF, 0xFF5E5E62);
}

QColor SystemStyle::textBackground() const
{
    return choose(0xFFFFFFFF, 0xFF1A1A1A);
}

QColor SystemStyle::groupBackground() const
{
    return choose(0x08000000, 0x0AFFFFFF);
}

QColor SystemStyle::material(const QColor &translucent) const
{
    return reducesTransparency() ? over(translucent, windowBackground()) : translucent;
}

QColor SystemStyle::ultraThinMaterial() const
{
    return material(choose(0x99FFFFFF, 0x14FFFFFF));
}

QColor SystemStyle::barMaterial() const
{
    return material(choose(0xB3FFFFFF, 0x0FFFFFFF));
}

QFont SystemStyle::font(int pixelSize, int weight) const
{
    return fontOf(fontFamily(), pixelSize, weight);
}

QFont SystemStyle::monospacedFont(int pixelSize, int weight) const
{
    return fontOf(monospacedFamily(), pixelSize, weight);
}

QString SystemStyle::fontFamily() const
{
    const auto family = wanted().fontFamily;
    return family.isEmpty() ? QStringLiteral("Inter") : family;
}

QString SystemStyle::monospacedFamily() const
{
    const auto family = wanted().fixedFontFamily;
    return family.isEmpty() ? QFontDatabase::systemFont(QFontDatabase::FixedFont).family() : family;
}

} // namespace toolkit
