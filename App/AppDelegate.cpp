#include "App/AppDelegate.h"

#include "App/MainViewFonts.h"
#include "App/WindowIcon.h"
#include "Platform/Platform.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickView>
#include <QScreen>
#include <QTimer>

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

// Qt reads the views on a thread of its own. Meanwhile this one opens the fonts, which takes as long: one at
// each turn of the loop, since the other thread asks it for things in between.
void awaitLoaded(const QQmlComponent &component)
{
    QEventLoop loop;
    QObject::connect(&component, &QQmlComponent::statusChanged, &loop, &QEventLoop::quit);
    QTimer turns;
    QObject::connect(&turns, &QTimer::timeout, &turns, [&turns, fonts = mainViewFonts()]() mutable {
        if (fonts.isEmpty()) {
            turns.stop();
        } else {
            openFont(fonts.takeFirst());
        }
    });
    turns.start(0);
    if (component.isLoading()) {
        loop.exec();
    }
}

void loadMainView(QQuickView &window)
{
    window.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    const QUrl url(QStringLiteral("qrc:/qt/qml/Stirra/StirraMainView.qml"));
    auto *component = new QQmlComponent(window.engine(), url, QQmlComponent::Asynchronous, &window);
    awaitLoaded(*component);
    window.setContent(url, component, component->create());
}

std::unique_ptr<QQuickView> makeMainWindow()
{
    auto window = std::make_unique<QQuickView>();
    window->setTitle(QStringLiteral("Stirra"));
    window->setMinimumSize(smallestSize);
    window->setResizeMode(QQuickView::SizeRootObjectToView);
    QObject::connect(window->engine(), &QQmlEngine::quit, qApp, &QGuiApplication::quit, Qt::QueuedConnection);
    loadMainView(*window);
    centre(*window);
    return window;
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
{}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching()
{
    mainWindow_ = makeMainWindow();
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
