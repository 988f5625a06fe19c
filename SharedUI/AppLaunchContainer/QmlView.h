// Root views from QML.
#pragma once

#include "SharedUI/AppLaunchContainer/LaunchWindowController.h"

#include <QByteArray>

namespace sharedui {

// Makes the type of that QML module, as present() wants it: qmlView("StirraGallery", "GalleryView"). The
// program has to be linked with the module. Where the type cannot be made, or is not visible, the builder
// writes why to standard error and gives nothing.
[[nodiscard]] LaunchWindowController::RootBuilder qmlView(const QByteArray &module, const QByteArray &type);

} // namespace sharedui
