// Template images drawn by Qt.
#pragma once

#include "Platform/TemplateImage.h"

#include <QString>

namespace platform {

// See MenuBarServices::drawSymbol(). The representations are for the scale factors 1, 1.5, 2 and 3. Any
// thread.
[[nodiscard]] TemplateImage drawSymbolTemplate(const QString &name, double side, const ImageSquare &place);

} // namespace platform
