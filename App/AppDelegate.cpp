#include "App/AppDelegate.h"

#include "App/FirstTexts.h"
#include "Platform/Platform.h"
#include "Toolkit/WindowGeometry.h"
#include "Toolkit/WindowIcon.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickView>
#include <QScreen>

namespace stirra {

namespace {

constexpr QSize contentSize(480, 640);
constexpr QSize smallestSize(400, 520);

// Qt reads the views on a thread of its own. Meanwhile this one draws the letters, which takes as long: one
// text at each turn of the loop, since the other thread asks it for things in between.
void awaitLoaded(const QQmlComponent &component)
{
    auto texts = firstTexts();
    while (!texts.isEmpty()) {
        drawAside(texts.takeFirst());
        QCoreApplication::processEvents();
    }
    QEventLoop loop;
    QObject::connect(&component, &QQmlComponent::statusChanged, &loop, &QEventLoop::quit);
    if (component.isLoading()) {
        loop.exec();
    }
}

QUrl mainViewUrl()
{
    return {QStringLiteral("qrc:/qt/qml/Stirra/StirraMainView.qml")};
}

void prepareMainWindow(QQuickView &window)
{
    window.setTitle(QStringLiteral("Stirra"));
    window.setMinimumSize(smallestSize);
    window.setResizeMode(QQuickView::SizeRootObjectToView);
    QObject::connect(window.engine(), &QQmlEngine::quit, qApp, &QGuiApplication::quit, Qt::QueuedConnection);
}

} // namespace

AppDelegate::AppDelegate(QObject *parent)
    : QObject(parent)
    , preparedWindow_(std::make_unique<QQuickView>())
{
    prepareMainWindow(*preparedWindow_);
    preparedWindow_->setGeometry(
        toolkit::centredGeometry(preparedWindow_->screen()->availableGeometry(), contentSize, smallestSize));
    preparedWindow_->create(); // which waits for the display server; that must not wait for the reader
    auto *engine = preparedWindow_->engine();
    engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    mainView_ = new QQmlComponent(engine, mainViewUrl(), QQmlComponent::Asynchronous, preparedWindow_.get());
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching()
{
    awaitLoaded(*mainView_);
    preparedWindow_->setContent(mainViewUrl(), mainView_, mainView_->create());
    mainWindow_ = std::move(preparedWindow_);
    toolkit::setIconAfterFirstFrame(*mainWindow_, QStringLiteral(":/icons/org.stirra.Stirra.svg"));
    platform::Platform::current().appearance().awaitFirstAnswer();
    mainWindow_->show();
}

bool AppDelegate::applicationShouldHandleReopen(bool hasVisibleWindows, const QString &activationToken)
{
    if (!hasVisibleWindows && mainWindow_) {
        platform::Platform::current().present(*mainWindow_, activationToken);
    }
    return true;
}

void AppDelegate::applicationReopened(const QString &activationToken)
{
    const bool isVisible =
        mainWindow_ && mainWindow_->isVisible() && !(mainWindow_->windowStates() & Qt::WindowMinimized);
    if (applicationShouldHandleReopen(isVisible, activationToken) && isVisible) {
        platform::Platform::current().present(*mainWindow_, activationToken);
    }
}

} // namespace stirra
