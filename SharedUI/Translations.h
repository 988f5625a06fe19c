// The languages of the shared views.
#pragma once

#include <QLocale>
#include <QStringList>

class QCoreApplication;

namespace sharedui {

// The views' texts come in the first of the locale's languages that there are texts in: English, German,
// French, Spanish, Japanese; in English where there is none. Once, on the main thread, before the first view
// is made. True where a translation was installed, which is the application's from then on.
bool installTranslations(QCoreApplication &application, const QLocale &locale = QLocale::system());

// The translation file in the resources that is right for a user who reads these languages ("de-AT", "en"),
// the preferred ones first; empty for English, which the texts are written in.
[[nodiscard]] QString translationFor(const QStringList &languages);

} // namespace sharedui
