#include "App/FirstTexts.h"

#include "App/MainViewText.h"
#include "Toolkit/SystemStyle.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <array>

namespace stirra {

namespace {

struct FaceTexts
{
    int pixelSize;
    QFont::Weight weight;
    const char *text;
};

// Texts of one face are drawn as one. What a choice is called comes from its list.
constexpr std::array fixedTexts{
    FaceTexts{9, QFont::Normal, "Anti-sleep utility Actions Uptime Interval"},
    FaceTexts{10, QFont::Normal, "Every 30s, Stirra simulates:"},
    FaceTexts{10, QFont::Medium, "None yet"},
    FaceTexts{10, QFont::Bold, "30s"},
    FaceTexts{11, QFont::DemiBold, "Start"},
    FaceTexts{12, QFont::Normal, "Click Start to begin"},
    FaceTexts{12, QFont::Bold, "Mode Interval"},
    FaceTexts{14, QFont::Bold, "Stirra"},
    FaceTexts{16, QFont::Bold, "0 0s 30s"},
    FaceTexts{18, QFont::Bold, "Inactive"},
};

QString modeNames()
{
    QString names;
    for (const auto mode : StirraEngine::allModes) {
        names += StirraEngine::rawValue(mode);
    }
    return names;
}

QString intervalNames()
{
    QString names;
    for (const auto interval : MainViewText::intervals()) {
        names += formatInterval(interval);
    }
    return names;
}

} // namespace

QList<FirstText> firstTexts()
{
    const toolkit::SystemStyle style;
    QList<FirstText> texts;
    for (const auto &[pixelSize, weight, text] : fixedTexts) {
        texts.append({style.font(pixelSize, weight), QString::fromLatin1(text)});
    }
    texts.append({style.font(10, QFont::DemiBold), modeNames()});
    texts.append({style.font(10, QFont::Medium), intervalNames()});
    return texts;
}

void drawAside(const FirstText &text)
{
    QImage image(1, 1, QImage::Format_RGB32);
    image.setDevicePixelRatio(qGuiApp->devicePixelRatio());
    QPainter painter(&image);
    painter.setFont(text.font);
    painter.drawText(0, 0, text.text);
}

} // namespace stirra
