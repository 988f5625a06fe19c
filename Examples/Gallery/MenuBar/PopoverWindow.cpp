#include "Examples/Gallery/MenuBar/PopoverWindow.h"

#include "Examples/Gallery/MenuBar/PopoverPlace.h"
#include "Platform/MenuBarServices.h"
#include "Platform/Platform.h"

#include <QGuiApplication>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace gallery {

namespace {

constexpr QMargins shadow(60, 50, 60, 70); // how far that of MenuPopoverContainer reaches

// Another program may hold the pointer still: the panel, for as long as its icon is pressed. The toolkit
// takes that refusal for a success, so it is asked for again and again. Most let go at once; one that does
// not must not leave the popover without its input for good.
constexpr int quickGrabs = 40;
constexpr platform::Seconds untilNextQuickGrab{0.05};
constexpr platform::Seconds untilNextGrab{0.5};

// No pop-up to the toolkit, which leaves those out of what assistive technology sees.
Qt::WindowFlags flagsOf(bool isHanging)
{
    return isHanging
               ? Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint | Qt::NoDropShadowWindowHint
               : Qt::Dialog;
}

} // namespace

PopoverWindow::PopoverWindow()
    : isHanging_(platform::Platform::current().placesWindows())
{
    setFlags(flagsOf(isHanging_));
    const auto takeColour = [this] { setColor(hasShadow_ ? Qt::transparent : style_.windowBackground()); };
    connect(&style_, &toolkit::SystemStyle::changed, this, takeColour);
    connect(this, &PopoverWindow::hasShadowChanged, this, takeColour);
    takeColour();
    connect(this, &QWindow::activeChanged, this, [this] {
        if (!isHanging_ && !isActive()) {
            close();
        }
    });
}

void PopoverWindow::setContent(QQuickItem *content)
{
    if (content == content_) {
        return;
    }
    content_ = content;
    content_->setParentItem(contentItem());
    content_->setFocus(true);
    connect(content_, &QQuickItem::widthChanged, this, &PopoverWindow::fit);
    connect(content_, &QQuickItem::heightChanged, this, &PopoverWindow::fit);
    fit();
    Q_EMIT contentChanged();
}

QMargins PopoverWindow::room() const
{
    return hasShadow_ ? shadow : QMargins();
}

void PopoverWindow::fit()
{
    const auto area = QRect({}, content_->size().toSize()).marginsAdded(room());
    content_->setPosition(-area.topLeft());
    resize(area.size());
}

void PopoverWindow::setShadow(bool hasShadow)
{
    if (hasShadow == hasShadow_) {
        return;
    }
    hasShadow_ = hasShadow;
    destroy(); // whether it is translucent is decided when the system's window is made
    fit();
    Q_EMIT hasShadowChanged();
}

void PopoverWindow::open(const QPoint &place, const QString &activationToken)
{
    if (!isHanging_) {
        platform::Platform::current().present(*this, activationToken);
        return;
    }
    setShadow(platform::MenuBarServices::current().blendsWindows());
    setPosition(popoverPlace(place, content_->size().toSize()) - QPoint(room().left(), room().top()));
    show();
    raise();
}

void PopoverWindow::exposeEvent(QExposeEvent *event)
{
    QQuickWindow::exposeEvent(event);
    if (isHanging_ && isExposed() && !std::exchange(hasInput_, true)) {
        ++openings_;
        takeInput(quickGrabs);
    }
}

void PopoverWindow::takeInput(int quickTimes)
{
    setKeyboardGrabEnabled(true);
    setMouseGrabEnabled(true);
    const auto again = [self = QPointer(this), opening = openings_, quickTimes] {
        if (self && self->hasInput_ && self->openings_ == opening) {
            self->takeInput(std::max(quickTimes - 1, 0));
        }
    };
    platform::Platform::current().scheduler().after(quickTimes > 0 ? untilNextQuickGrab : untilNextGrab,
                                                    again);
}

void PopoverWindow::hideEvent(QHideEvent *event)
{
    hasInput_ = false; // the system takes it from windows that go
    QQuickWindow::hideEvent(event);
}

bool PopoverWindow::event(QEvent *event)
{
    if (isHanging_ && event->type() == QEvent::MouseButtonPress) {
        const auto place = static_cast<QMouseEvent *>(event)->position();
        isPressedOutside_ = !content_->contains(content_->mapFromScene(place));
    }
    if (isPressedOutside_ && event->type() == QEvent::MouseButtonRelease) {
        isPressedOutside_ = false;
        close(); // and not before: panels would take the release of their icon for a click
        return true;
    }
    return QQuickWindow::event(event);
}

// Without the focus a window has no view that could refuse a key.
void PopoverWindow::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
    QQuickWindow::keyPressEvent(event);
    if (event->isAccepted()) {
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        event->accept();
        close();
    } else if (event->matches(QKeySequence::Quit)) {
        event->accept();
        QMetaObject::invokeMethod(qApp, &QGuiApplication::quit, Qt::QueuedConnection);
    }
}

} // namespace gallery
