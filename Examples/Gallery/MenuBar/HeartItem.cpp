#include "Examples/Gallery/MenuBar/HeartItem.h"

#include "Examples/Gallery/MenuBar/PopoverPlace.h"
#include "Platform/MenuBarServices.h"
#include "Platform/Platform.h"
#include "SharedCore/MenuBarManager/MenuBarManager.h"
#include "SharedUI/AppLaunchContainer/LaunchWindowController.h"

#include <QGuiApplication>

namespace gallery {

HeartItem::HeartItem(QObject *parent)
    : QObject(parent)
    , frames_(sharedcore::generateHeartFrames())
{}

HeartItem::~HeartItem()
{
    icon_.stopAnimation();
}

void HeartItem::setShown(bool isShown)
{
    if (isShown == this->isShown()) {
        return;
    }
    icon_.stopAnimation();
    item_.reset();
    if (isShown) {
        show();
    }
    Q_EMIT changed();
}

void HeartItem::show()
{
    item_ = platform::MenuBarServices::current().makeStatusItem({"org.stirra.Gallery", "Gallery"});
    if (auto *button = item_->button()) {
        button->setImage(frames_.front());
        button->setClickHandler([self = QPointer(this)](const platform::StatusClick &click) {
            if (self) {
                Q_EMIT self->clicked({click.x, click.y}, QString::fromStdString(click.activationToken));
            }
        });
    }
    item_->setMenu({{.title = "Show Gallery", .action = [this] { openWindow(); }},
                    {.title = "Quit", .action = [] { QGuiApplication::quit(); }}});
    play();
}

void HeartItem::setBeating(bool isBeating)
{
    isBeating_ = isBeating;
    play();
    Q_EMIT changed();
}

void HeartItem::setBpm(double bpm)
{
    bpm_ = bpm;
    play();
    Q_EMIT changed();
}

void HeartItem::play()
{
    if (item_ && isBeating_) {
        icon_.startAnimation(item_, frames_, bpm_);
    } else {
        icon_.stopAnimation();
    }
}

void HeartItem::openPopover(QQuickWindow *window, const QPoint &place, const QString &token)
{
    if (placesWindows()) {
        window->setPosition(popoverPlace(place, window->size()));
    }
    platform::Platform::current().present(*window, token);
}

void HeartItem::openWindow()
{
    sharedui::LaunchWindowController::shared().bringToFront();
}

bool HeartItem::placesWindows()
{
    return platform::Platform::current().placesWindows();
}

} // namespace gallery
