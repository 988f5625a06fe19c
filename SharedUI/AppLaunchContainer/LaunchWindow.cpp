#include "SharedUI/AppLaunchContainer/LaunchWindow.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlProperty>
#include <QQuickItem>

#include <algorithm>
#include <cmath>

namespace sharedui {

namespace {

constexpr QSize smallestSize(380, 520);
constexpr double largestMinimum = 32'767; // points; more than any display has

} // namespace

LaunchWindow::LaunchWindow(std::unique_ptr<QQuickItem> root)
    : root_(std::move(root))
{
    const auto takeColour = [this] { setColor(style_.windowBackground()); };
    connect(&style_, &toolkit::SystemStyle::changed, this, takeColour);
    takeColour();
    if (root_) {
        root_->setParentItem(contentItem());
        const auto fill = [this] { root_->setSize(size()); };
        connect(this, &QWindow::widthChanged, this, fill);
        connect(this, &QWindow::heightChanged, this, fill);
        followMinimum("minimumWidth");
        followMinimum("minimumHeight");
    }
    updateMinimumSize();
}

LaunchWindow::~LaunchWindow() = default;

void LaunchWindow::keyPressEvent(QKeyEvent *event)
{
    QQuickWindow::keyPressEvent(event);
    if (event->isAccepted()) {
        return;
    }
    if (event->matches(QKeySequence::Quit)) {
        event->accept();
        QMetaObject::invokeMethod(qApp, &QGuiApplication::quit, Qt::QueuedConnection);
    } else if (event->matches(QKeySequence::Close)) {
        event->accept();
        close();
    }
}

void LaunchWindow::followMinimum(const char *property)
{
    const QQmlProperty minimum(root_.get(), QString::fromLatin1(property));
    if (minimum.hasNotifySignal()) {
        minimum.connectNotifySignal(this, SLOT(updateMinimumSize()));
    }
}

void LaunchWindow::updateMinimumSize()
{
    setMinimumSize(QSize(rootMinimum("minimumWidth"), rootMinimum("minimumHeight")).expandedTo(smallestSize));
    resize(size().expandedTo(minimumSize()));
}

int LaunchWindow::rootMinimum(const char *property) const
{
    const double wanted = root_ ? root_->property(property).toDouble() : 0;
    return std::isnan(wanted) ? 0 : static_cast<int>(std::ceil(std::clamp(wanted, 0.0, largestMinimum)));
}

} // namespace sharedui
