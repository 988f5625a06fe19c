#include "App/MainViewText.h"

#include "Foundation/CheckedArithmetic.h"

#include <QVariantMap>

namespace stirra {

namespace {

constexpr double secondsPerMinute = 60;

} // namespace

QString modeIcon(StirraEngine::Mode mode)
{
    switch (mode) {
    case StirraEngine::Mode::mouseJiggle:
        return QStringLiteral("cursorarrow.motionlines");
    case StirraEngine::Mode::keyPress:
        return QStringLiteral("keyboard");
    case StirraEngine::Mode::both:
        return QStringLiteral("cursorarrow.and.square.on.square.dashed");
    case StirraEngine::Mode::scroll:
        return QStringLiteral("scroll");
    }
    return {};
}

QString formatInterval(double seconds)
{
    if (seconds < secondsPerMinute) {
        return QString::number(foundation::checkedInteger(seconds)) + QLatin1Char('s');
    }
    return QString::number(foundation::checkedInteger(seconds / secondsPerMinute)) + QLatin1Char('m');
}

QVariantList MainViewText::modes()
{
    QVariantList list;
    for (const auto mode : StirraEngine::allModes) {
        list.append(QVariantMap{{QStringLiteral("mode"), static_cast<int>(mode)},
                                {QStringLiteral("name"), StirraEngine::rawValue(mode)},
                                {QStringLiteral("icon"), modeIcon(mode)}});
    }
    return list;
}

QList<double> MainViewText::intervals()
{
    return {15, 30, 60, 120, 300};
}

} // namespace stirra
