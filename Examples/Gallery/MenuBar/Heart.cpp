#include "Examples/Gallery/MenuBar/Heart.h"

#include "Platform/MenuBarServices.h"
#include "SharedCore/MenuBarManager/MenuBarManager.h"

#include <QGuiApplication>
#include <QPointer>

namespace gallery {

Heart::Heart(QObject *parent)
    : QObject(parent)
    , frames_(sharedcore::generateHeartFrames())
{}

Heart::~Heart()
{
    icon_.stopAnimation();
}

void Heart::setShown(bool isShown)
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

void Heart::show()
{
    item_ = platform::MenuBarServices::current().makeStatusItem({"org.stirra.Gallery", "Gallery"});
    const QPointer self(this);
    if (auto *button = item_->button()) {
        button->setImage(frames_.front());
        button->setClickHandler([self](const platform::StatusClick &click) {
            if (self) {
                Q_EMIT self->clicked({click.x, click.y}, QString::fromStdString(click.activationToken));
            }
        });
    }
    const auto showGallery = [self] {
        if (self) {
            Q_EMIT self->galleryWanted();
        }
    };
    item_->setMenu({{.title = "Show Gallery", .action = showGallery},
                    {.title = "Quit", .action = [] { QGuiApplication::quit(); }}});
    play();
}

void Heart::setBeating(bool isBeating)
{
    isBeating_ = isBeating;
    play();
    Q_EMIT changed();
}

void Heart::setBpm(double bpm)
{
    bpm_ = bpm;
    play();
    Q_EMIT changed();
}

void Heart::play()
{
    if (item_ && isBeating_) {
        icon_.startAnimation(item_, frames_, bpm_);
    } else {
        icon_.stopAnimation();
    }
}

} // namespace gallery
