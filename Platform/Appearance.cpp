#include "Platform/Appearance.h"

namespace platform {

void Appearance::setValues(const AppearanceValues &values)
{
    if (values == values_) {
        return;
    }
    values_ = values;
    Q_EMIT changed();
}

} // namespace platform
