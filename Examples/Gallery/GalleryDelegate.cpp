#include "Examples/Gallery/GalleryDelegate.h"

#include "Examples/Gallery/MenuBar/Heart.h"
#include "SharedCore/MenuBarManager/MenuBarManager.h"
#include "SharedUI/AppLaunchContainer/LaunchWindowController.h"
#include "SharedUI/AppLaunchContainer/QmlView.h"
#include "SharedUI/Translations.h"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQuickItem>

#include <utility>

namespace gallery {

using sharedui::LaunchWindowController;

GalleryDelegate::GalleryDelegate()
    : isInMenuBarOnly_(QCoreApplication::arguments().contains(QStringLiteral("--menu-bar")))
{
    engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
    QObject::connect(&engine_, &QQmlEngine::quit, qApp, &QGuiApplication::quit, Qt::QueuedConnection);
}

GalleryDelegate::~GalleryDelegate()
{
    LaunchWindowController::endShared(); // its views are of the engine that ends here
}

void GalleryDelegate::applicationDidFinishLaunching()
{
    sharedui::installTranslations(*QCoreApplication::instance());
    if (isInMenuBarOnly_) {
        sharedcore::configureAsMenuBarOnlyApp();
    } else {
        showWindow({});
    }
    makeMenu();
}

void GalleryDelegate::applicationReopened(const QString &activationToken)
{
    showWindow(activationToken);
}

void GalleryDelegate::makeMenu()
{
    QQmlComponent component(&engine_,
                            QUrl(QStringLiteral("qrc:/qt/qml/StirraGallery/MenuBar/HeartMenu.qml")));
    menu_.reset(component.createWithInitialProperties({{QStringLiteral("isWanted"), isInMenuBarOnly_}}));
    const auto type = qmlTypeId("StirraGallery", 1, 0, "Heart");
    QObject::connect(engine_.singletonInstance<Heart *>(type), &Heart::galleryWanted, menu_.get(),
                     [this] { showWindow({}); });
}

void GalleryDelegate::showWindow(const QString &activationToken)
{
    auto &controller = LaunchWindowController::shared();
    if (std::exchange(isPresented_, true)) {
        controller.bringToFront(activationToken);
        return;
    }
    const auto view = sharedui::qmlView("StirraGallery", "GalleryView");
    controller.present(QStringLiteral("Gallery"), [&](QQmlEngine & /*engine*/) { return view(engine_); });
    if (isInMenuBarOnly_) {
        sharedcore::configureAsMenuBarOnlyApp(); // presenting lists a program
        controller.bringToFront(activationToken);
    }
}

} // namespace gallery
