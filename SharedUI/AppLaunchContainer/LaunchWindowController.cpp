#include "SharedUI/AppLaunchContainer/LaunchWindowController.h"

#include "Foundation/FatalError.h"
#include "Platform/Platform.h"
#include "SharedCore/Storage/StorageManager.h"
#include "SharedUI/AppLaunchContainer/FrameAutosave.h"
#include "SharedUI/AppLaunchContainer/LaunchWindow.h"
#include "Toolkit/WindowIcon.h"

#include <QEvent>
#include <QFile>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QThread>

#include <utility>

namespace sharedui {

namespace {

using platform::Platform;

// What a failed check is reported as. Fixed, so that a report leads to its check whatever moves in this file.
constexpr auto source = "SharedUI/AppLaunchContainer";
constexpr int lineOfPresent = 125;
constexpr int lineOfPresentDeferred = 158;
constexpr int lineOfBringToFront = 166;

void assertMainThread(int line)
{
    const auto *application = QCoreApplication::instance();
    if (!application || application->thread() != QThread::currentThread()) {
        foundation::assertionFailure(source, line);
    }
}

// An application has its icon among its resources, under the name of its desktop entry.
QString iconDrawing()
{
    return QStringLiteral(":/icons/%1.svg").arg(QGuiApplication::desktopFileName());
}

std::unique_ptr<QQmlEngine> makeEngine()
{
    auto engine = std::make_unique<QQmlEngine>();
    engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    QObject::connect(engine.get(), &QQmlEngine::quit, qApp, &QGuiApplication::quit, Qt::QueuedConnection);
    return engine;
}

std::unique_ptr<LaunchWindowController> &sharedController()
{
    static auto *controller = new std::unique_ptr<LaunchWindowController>; // not ended after the application
    return *controller;
}

} // namespace

LaunchWindowController &LaunchWindowController::shared()
{
    auto &controller = sharedController();
    if (!controller) {
        controller.reset(new LaunchWindowController(sharedcore::StorageManager::shared()));
    }
    return *controller;
}

void LaunchWindowController::endShared()
{
    sharedController().reset();
}

LaunchWindowController::LaunchWindowController(sharedcore::StorageManager &storage)
    : storage_(storage)
{}

LaunchWindowController::~LaunchWindowController() = default;

void LaunchWindowController::present(const QString &appName, QSize idealSize, const RootBuilder &root)
{
    assertMainThread(lineOfPresent);
    auto &platform = Platform::current();
    platform.setActivationPolicy(platform::ActivationPolicy::regular);
    platform.activate();
    if (!window_) {
        makeWindow(appName, idealSize, root);
    }
    platform.present(*window_, {});
}

void LaunchWindowController::presentDeferred(const QString &appName, QSize idealSize, const RootBuilder &root)
{
    assertMainThread(lineOfPresentDeferred);
    const auto present = [=, this] { this->present(appName, idealSize, root); };
    QMetaObject::invokeMethod(this, present, Qt::QueuedConnection); // which is forgotten when this ends
}

void LaunchWindowController::bringToFront(const QString &activationToken)
{
    assertMainThread(lineOfBringToFront);
    auto &platform = Platform::current();
    platform.activate();
    if (window_) {
        platform.present(*window_, activationToken);
    }
}

void LaunchWindowController::windowWillClose(QWindow & /*window*/) {}

bool LaunchWindowController::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() == QEvent::Close) {
        windowWillClose(*window_);
    }
    return false;
}

void LaunchWindowController::makeWindow(const QString &appName, QSize idealSize, const RootBuilder &root)
{
    engine_ = makeEngine();
    auto window = std::make_unique<LaunchWindow>(root(*engine_));
    window->setTitle(appName);
    autosave_ = std::make_unique<FrameAutosave>(*window, appName + QStringLiteral(".mainWindow"), storage_);
    autosave_->restore(idealSize);
    window->installEventFilter(this);
    if (QFile::exists(iconDrawing())) {
        toolkit::setIconAfterFirstFrame(*window, iconDrawing());
    }
    Platform::current().appearance().awaitFirstAnswer();
    window_ = std::move(window);
}

} // namespace sharedui
