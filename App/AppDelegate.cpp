#include "App/AppDelegate.h"

#include "App/FirstTexts.h"
#include "App/WindowIcon.h"
#include "Platform/Platform.h"

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

// A screen that is smaller than the window gets as much of it as fits.
void centre(QWindow &window)
{
    const auto available = window.screen()->availableGeometry();
    QRect frame(QPoint(), contentSize.boundedTo(available.size()).expandedTo(smallestSize));
    frame.moveCenter(available.center());
    window.setGeometry(frame);
}

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

// The icon of programs that run without being installed; it is not worth a delay of the first frame.
void setIconAfterFirstFrame(QQuickView &window)
{
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &window, [&window] { window.setIcon(windowIcon()); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

} // namespace

AppDelegate::AppDelegate(QObject *parent)
    : QObject(parent)
    , preparedWindow_(std::make_unique<QQuickView>())
{
    prepareMainWindow(*preparedWindow_);
    centre(*preparedWindow_);
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
    setIconAfterFirstFrame(*mainWindow_);
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

} // namespace stirra
