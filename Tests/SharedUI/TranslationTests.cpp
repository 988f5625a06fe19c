#include "SharedUI/Translations.h"

#include "Tests/SharedUI/SettingsFormTest.h"

#include <QCoreApplication>
#include <QFile>
#include <QFont>
#include <QGlyphRun>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextLayout>
#include <QTranslator>

#include <ostream>

namespace sharedui {

namespace {

struct Language
{
    const char *locale;
    QStringList texts; // the tabs' titles, and those of the form, in their order
};

// In the names of tests.
void PrintTo(const Language *language, std::ostream *stream)
{
    *stream << language->locale;
}

const Language &german()
{
    static const Language language{
        "de_AT",
        {QStringLiteral("Steuerung"), QStringLiteral("Einstellungen"), QStringLiteral("Allgemein"),
         QStringLiteral("Bei der Anmeldung starten"), QStringLiteral("Symbol in der Menüleiste anzeigen"),
         QStringLiteral("Erscheinungsbild"), QStringLiteral("Farbschema"), QStringLiteral("System"),
         QStringLiteral("Hell"), QStringLiteral("Dunkel"), QStringLiteral("Bewegung reduzieren"),
         QStringLiteral("Transparenz reduzieren")}};
    return language;
}
const Language &french()
{
    static const Language language{
        "fr_CA",
        {QStringLiteral("Commandes"), QStringLiteral("Réglages"), QStringLiteral("Général"),
         QStringLiteral("Lancer à l’ouverture de session"),
         QStringLiteral("Afficher l’icône dans la barre des menus"), QStringLiteral("Apparence"),
         QStringLiteral("Thème"), QStringLiteral("Système"), QStringLiteral("Clair"),
         QStringLiteral("Sombre"), QStringLiteral("Réduire les animations"),
         QStringLiteral("Réduire la transparence")}};
    return language;
}
const Language &spanish()
{
    static const Language language{
        "es_MX",
        {QStringLiteral("Control"), QStringLiteral("Ajustes"), QStringLiteral("General"),
         QStringLiteral("Abrir al iniciar sesión"), QStringLiteral("Mostrar el icono en la barra de menús"),
         QStringLiteral("Aspecto"), QStringLiteral("Tema"), QStringLiteral("Sistema"),
         QStringLiteral("Claro"), QStringLiteral("Oscuro"), QStringLiteral("Reducir el movimiento"),
         QStringLiteral("Reducir la transparencia")}};
    return language;
}
const Language &japanese()
{
    static const Language language{"ja_JP",
                                   {QStringLiteral("コントロール"), QStringLiteral("設定"),
                                    QStringLiteral("一般"), QStringLiteral("ログイン時に起動"),
                                    QStringLiteral("メニューバーにアイコンを表示"), QStringLiteral("外観"),
                                    QStringLiteral("テーマ"), QStringLiteral("システム"),
                                    QStringLiteral("ライト"), QStringLiteral("ダーク"),
                                    QStringLiteral("動きを減らす"), QStringLiteral("透明度を下げる")}};
    return language;
}
const Language &english()
{
    static const Language language{"en_GB",
                                   {QStringLiteral("Control"), QStringLiteral("Settings"),
                                    QStringLiteral("General"), QStringLiteral("Launch at login"),
                                    QStringLiteral("Show menu bar icon"), QStringLiteral("Appearance"),
                                    QStringLiteral("Theme"), QStringLiteral("System"),
                                    QStringLiteral("Light"), QStringLiteral("Dark"),
                                    QStringLiteral("Reduce motion"), QStringLiteral("Reduce transparency")}};
    return language;
}

class TranslationTest : public SettingsFormTest, public testing::WithParamInterface<const Language *>
{
protected:
    TranslationTest()
    {
        const QLocale locale(QString::fromLatin1(GetParam()->locale));
        const bool isInstalled = installTranslations(*QCoreApplication::instance(), locale);
        EXPECT_EQ(isInstalled, GetParam() != &english());
    }
    ~TranslationTest() override { qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator *>()); }

    // The container at its smallest, with the settings in front.
    QList<QQuickItem *> shownTexts()
    {
        view.resize(420, 560);
        show("AppLaunchContainer { width: 420; height: 560; appTitle: 'Control'; Item {} }");
        item("tabs").setProperty("currentIndex", 1);
        return texts();
    }

    static int missingGlyphs(const QString &text, const QFont &font)
    {
        QTextLayout layout(text, font);
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        int count = 0;
        for (const auto &run : layout.glyphRuns()) {
            count += static_cast<int>(run.glyphIndexes().count(0));
        }
        return count;
    }
};

TEST_P(TranslationTest, ShowsAllTextsButTheTitleInItsLanguage)
{
    QStringList seen;
    for (const auto *text : shownTexts()) {
        seen.append(text->property("text").toString());
    }
    EXPECT_EQ(seen.takeFirst(), QStringLiteral("Control"));
    EXPECT_EQ(seen, GetParam()->texts) << seen.join(QStringLiteral(", ")).toStdString();
}

TEST_P(TranslationTest, FitsIntoTheSmallestWindowWithALineForEachText)
{
    for (const auto *text : shownTexts()) {
        const auto name = text->property("text").toString().toStdString();
        EXPECT_FALSE(text->property("truncated").toBool()) << name;
        EXPECT_EQ(text->property("lineCount").toInt(), 1) << name;
        EXPECT_LE(text->property("contentWidth").toDouble(), text->width() + 0.5) << name;
        EXPECT_EQ(missingGlyphs(text->property("text").toString(), text->property("font").value<QFont>()), 0)
            << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, TranslationTest,
                         testing::Values(&english(), &german(), &french(), &spanish(), &japanese()),
                         [](const auto &language) { return std::string(language.param->locale, 2); });

TEST(TranslationsTest, AreTheFirstLanguageOfTheUsersThatThereIs)
{
    const auto forLanguages = [](const char *names) {
        return translationFor(QString::fromLatin1(names).split(QLatin1Char(' ')));
    };
    EXPECT_EQ(forLanguages("de-AT de"), QStringLiteral(":/i18n/sharedui_de.qm"));
    EXPECT_EQ(forLanguages("nl fr de"), QStringLiteral(":/i18n/sharedui_fr.qm"));
    EXPECT_EQ(forLanguages("ja-Jpan-JP"), QStringLiteral(":/i18n/sharedui_ja.qm"));
    EXPECT_EQ(forLanguages("en-GB de"), QString());
    EXPECT_EQ(forLanguages("nl"), QString());
    EXPECT_EQ(forLanguages("C"), QString());
    EXPECT_EQ(translationFor({}), QString());
}

// What Qt's own tool makes of the views is what the files have, and every text of it is finished.
TEST(TranslationsTest, AreUpToDateAndComplete)
{
    const QTemporaryDir folder;
    for (const auto *language : {"de", "es", "fr", "ja"}) {
        const auto name = QStringLiteral("/sharedui_%1.ts").arg(QString::fromLatin1(language));
        const auto copy = folder.path() + name;
        ASSERT_TRUE(QFile::copy(QStringLiteral(STIRRA_SHARED_UI "/Translations") + name, copy));
        QProcess lupdate;
        lupdate.start(QStringLiteral(STIRRA_LUPDATE),
                      {QStringLiteral(STIRRA_SHARED_UI), QStringLiteral("-locations"), QStringLiteral("none"),
                       QStringLiteral("-ts"), copy});
        ASSERT_TRUE(lupdate.waitForFinished(60'000));
        ASSERT_EQ(lupdate.exitCode(), 0) << lupdate.readAllStandardError().toStdString();
        QFile file(copy);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const auto content = file.readAll();
        EXPECT_EQ(content.count("<message"), english().texts.size() + 1); // a popover's close button
        EXPECT_EQ(content.count("<translation>"), content.count("<message"));
        EXPECT_EQ(content.count("type="), 0) << content.toStdString();
        EXPECT_EQ(content.count("<translation></translation>"), 0) << content.toStdString();
    }
}

} // namespace

} // namespace sharedui
