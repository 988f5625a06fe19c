#include "App/MainViewFonts.h"

#include "Toolkit/SystemStyle.h"

#include <QFontMetrics>

#include <array>

namespace stirra {

namespace {

struct Face
{
    int pixelSize;
    QFont::Weight weight;
};

constexpr std::array faces{
    Face{9, QFont::Normal}, Face{10, QFont::Normal}, Face{10, QFont::Medium},   Face{10, QFont::DemiBold},
    Face{10, QFont::Bold},  Face{12, QFont::Normal}, Face{11, QFont::DemiBold}, Face{12, QFont::Bold},
    Face{14, QFont::Bold},  Face{16, QFont::Bold},   Face{18, QFont::Bold},
};

} // namespace

QList<QFont> mainViewFonts()
{
    const toolkit::SystemStyle style;
    QList<QFont> fonts;
    for (const auto &face : faces) {
        fonts.append(style.font(face.pixelSize, face.weight));
    }
    return fonts;
}

void openFont(const QFont &font)
{
    (void)QFontMetrics(font).height();
}

} // namespace stirra
