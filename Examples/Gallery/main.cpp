#include "SharedUI/AppLaunchContainer/FamilyApplication.h"
#include "SharedUI/AppLaunchContainer/LaunchWindowController.h"
#include "SharedUI/AppLaunchContainer/QmlView.h"

int main(int argc, char **argv)
{
    const platform::ApplicationNames names{QStringLiteral("stirra-gallery"), QStringLiteral("Gallery"),
                                           QStringLiteral("org.stirra.Gallery")};
    return sharedui::runFamilyApplication(argc, argv, names, [] {
        sharedui::LaunchWindowController::shared().present(QStringLiteral("Gallery"),
                                                           sharedui::qmlView("StirraGallery", "GalleryView"));
    });
}
