#include "SharedUI/Translations.h"

#include <QCoreApplication>
#include <QFile>
#include <QTranslator>

#include <memory>

namespace sharedui {

QString translationFor(const QStringList &languages)
{
    for (const auto &name : languages) {
        const auto language = QLocale(name).language();
        const auto file = QStringLiteral(":/i18n/sharedui_%1.qm").arg(QLocale::languageToCode(language));
        if (language == QLocale::English || QFile::exists(file)) {
            return language == QLocale::English ? QString() : file;
        }
    }
    return {};
}

bool installTranslations(QCoreApplication &application, const QLocale &locale)
{
    const auto file = translationFor(locale.uiLanguages());
    auto translator = std::make_unique<QTranslator>(&application);
    if (file.isEmpty() || !translator->load(file) || !QCoreApplication::installTranslator(translator.get())) {
        return false;
    }
    static_cast<void>(translator.release()); // to its parent
    return true;
}

} // namespace sharedui
