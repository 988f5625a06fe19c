// The fonts that the main view is written in.
#pragma once

#include <QFont>
#include <QList>

namespace stirra {

// Every size and weight of the desktop's family that the window shows at its launch.
[[nodiscard]] QList<QFont> mainViewFonts();

// Opens a font, so that texts find it open: reading fontconfig's files and matching each font is a third of
// the time to the first frame. Main thread, for use while it would wait.
void openFont(const QFont &font);

} // namespace stirra
