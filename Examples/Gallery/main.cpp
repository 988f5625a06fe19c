#include "SharedUI/AppLaunchContainer/FamilyApplication.h"
#include "SharedUI/AppLaunchContainer/LaunchWindowController.h"
#include "SharedUI/AppLaunchContainer/QmlView.h"
#include "SharedUI/Translations.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    const platform::ApplicationNames names{QStringLiteral("stirra-gallery"), QStringLiteral("Gallery"),
                                           QStringLiteral("org.stirra.Gallery")};
    return sharedui::runFamilyApplication(argc, argv, names, [] {
        sharedui::installTranslations(*QCoreApplication::instance());
        sharedui::LaunchWindowController::shared().present(QStringLiteral("Gallery"),
                                                           sharedui::qmlView("StirraGallery", "GalleryView"));
    });
}
