#include "Platform/Linux/TextDrawing.h"

#include <QtGlobal>

#include <ft2build.h>
#include FT_MODULE_H

// Qt Gui's, exported for its plugins. Weak: one that does not have it any more is no reason not to start.
[[gnu::weak]] FT_Library
qt_getFreetype(); // NOLINT(readability-redundant-declaration,readability-identifier-naming)

namespace platform {

void drawStemsAsTheyAre()
{
    if (qt_getFreetype == nullptr || qEnvironmentVariableIsSet("FREETYPE_PROPERTIES")) {
        return;
    }
    const FT_Bool leavesStems = 1;
    FT_Property_Set(qt_getFreetype(), "cff", "no-stem-darkening", &leavesStems);
}

} // namespace platform
