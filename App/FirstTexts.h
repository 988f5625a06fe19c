// The texts that the main view shows at its launch, in their fonts.
#pragma once

#include <QFont>
#include <QList>
#include <QString>

namespace stirra {

struct FirstText
{
    QFont font;
    QString text;
};

// Every text of an inactive main view in the desktop's family. Where the desktop's font comes to be known
// later, only time is lost.
[[nodiscard]] QList<FirstText> firstTexts();

// Draws the text where nobody sees it. Matching and opening a font and drawing its letters for the first time
// is a third of the time to the first frame; later they are found as they are. Main thread, for use while it
// would wait.
void drawAside(const FirstText &text);

} // namespace stirra
