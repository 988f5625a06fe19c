// example [light|dark|system]: stores the theme where one is named, and shows the one that is stored.

#include "Platform/Application.h"
#include "Platform/Platform.h"
#include "SharedCore/Storage/AppPreferences.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickView>
#include <QStringList>
#include <QUrl>

#include <memory>
#include <string>

namespace {

using sharedcore::AppPreferences;

class ExampleDelegate : public platform::ApplicationDelegate
{
public:
    void applicationDidFinishLaunching() override
    {
        storeTheme(QGuiApplication::arguments().value(1).toStdString());
        const auto stored = AppPreferences::rawValue(AppPreferences::load().theme);
        show(QString::fromUtf8(stored.data(), static_cast<qsizetype>(stored.size())));
    }

    void applicationReopened(const QString &activationToken) override
    {
        platform::Platform::current().present(window_, activationToken);
    }

private:
    static void storeTheme(const std::string &name)
    {
        if (const auto theme = AppPreferences::themeFromRawValue(name)) {
            auto preferences = AppPreferences::load();
            preferences.theme = *theme;
            preferences.save();
        }
    }

    void show(const QString &theme)
    {
        QGuiApplication::setQuitOnLastWindowClosed(true);
        window_.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
        window_.setInitialProperties({{QStringLiteral("theme"), theme}});
        window_.setSource(QUrl(QStringLiteral("qrc:/qt/qml/Example/PreferredTheme.qml")));
        window_.setTitle(QStringLiteral("Theme: ") + theme);
        window_.show();
    }

    QQuickView window_;
};

} // namespace

int main(int argc, char **argv)
{
    const platform::ApplicationNames names{QStringLiteral("stirra-example"), QStringLiteral("Example"),
                                           QStringLiteral("org.stirra.Example")};
    return platform::runApplication(argc, argv, names, [] { return std::make_unique<ExampleDelegate>(); });
}
