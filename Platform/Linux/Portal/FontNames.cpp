#include "Platform/Linux/Portal/FontNames.h"

#include <QStringList>

namespace platform {

QString fontFamilyIn(const QString &description, const std::function<bool(const QString &)> &isFamily)
{
    auto words = description.section(QLatin1Char(','), 0, 0).simplified().split(QLatin1Char(' '));
    while (!words.isEmpty()) {
        auto family = words.join(QLatin1Char(' '));
        if (!family.isEmpty() && isFamily(family)) {
            return family;
        }
        words.removeLast();
    }
    return {};
}

} // namespace platform
