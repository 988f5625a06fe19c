// A program of the family with the launch container for a view.

#include "SharedUI/AppLaunchContainer/FamilyApplication.h"
#include "SharedUI/AppLaunchContainer/LaunchWindowController.h"

#include <QQmlComponent>
#include <QQuickItem>

namespace {

std::unique_ptr<QQuickItem> shell(QQmlEngine &engine)
{
    QQmlComponent component(&engine);
    component.setData("import SharedUI\nimport Toolkit\n"
                      "AppLaunchContainer { appTitle: 'Settings'; Label { text: 'Content' } }",
                      QUrl());
    return std::unique_ptr<QQuickItem>(qobject_cast<QQuickItem *>(component.create()));
}

} // namespace

int main(int argc, char **argv)
{
    const platform::ApplicationNames names{QStringLiteral("launch-shell-program"),
                                           QStringLiteral("Launch shell"),
                                           QStringLiteral("org.stirra.LaunchShellProgram")};
    return sharedui::runFamilyApplication(argc, argv, names, [] {
        sharedui::LaunchWindowController::shared().present(QStringLiteral("Launch shell"), {480, 680}, shell);
    });
}
