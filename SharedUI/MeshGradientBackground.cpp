#include "SharedUI/MeshGradientBackground.h"

#include "Foundation/ReferenceDate.h"
#include "Platform/Platform.h"

#include <QEvent>
#include <QSGImageNode>

#include <cmath>

namespace sharedui {

namespace {

constexpr platform::Seconds shortestInterval{0.016};

} // namespace

MeshGradientBackground::MeshGradientBackground(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    setClip(true);
    connect(&style_, &toolkit::SystemStyle::changed, this, &MeshGradientBackground::colorsChanged);
    connect(&style_, &toolkit::SystemStyle::changed, this, &MeshGradientBackground::updateClock);
    connect(this, &MeshGradientBackground::colorsChanged, this, [this] { update(); });
    connect(this, &MeshGradientBackground::speedChanged, this, [this] { update(); });
}

MeshGradientBackground::~MeshGradientBackground()
{
    if (clock_) {
        clock_->invalidate();
    }
}

QList<QColor> MeshGradientBackground::colors() const
{
    return colors_.value_or(QList{style_.purple(), style_.blue(), style_.cyan(), style_.green()});
}

void MeshGradientBackground::setColors(const QList<QColor> &colors)
{
    colors_ = colors;
    Q_EMIT colorsChanged();
}

void MeshGradientBackground::resetColors()
{
    colors_.reset();
    Q_EMIT colorsChanged();
}

void MeshGradientBackground::setSpeed(double speed)
{
    if (speed != speed_) {
        speed_ = speed;
        updateClock();
        Q_EMIT speedChanged();
    }
}

void MeshGradientBackground::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    updateClock();
    update();
}

void MeshGradientBackground::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemSceneChange) {
        watch(value.window);
    } else if (change == ItemVisibleHasChanged) {
        updateClock();
    }
    QQuickItem::itemChange(change, value);
}

void MeshGradientBackground::watch(QQuickWindow *window)
{
    if (watched_) {
        watched_->removeEventFilter(this);
    }
    watched_ = window;
    if (watched_) {
        watched_->installEventFilter(this);
    }
    updateClock();
}

bool MeshGradientBackground::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Expose) {
        updateClock();
    }
    return QQuickItem::eventFilter(watched, event);
}

bool MeshGradientBackground::isMoving() const
{
    const bool isShown = isVisible() && watched_ && watched_->isExposed();
    return isShown && !size().isEmpty() && !style_.reducesMotion() && speed_ != 0 && std::isfinite(speed_);
}

void MeshGradientBackground::updateClock()
{
    if (isMoving() == (clock_ != nullptr)) {
        return;
    }
    if (clock_) {
        clock_->invalidate();
        clock_.reset();
    } else {
        clock_ = platform::Platform::current().scheduler().repeat(shortestInterval, [this] { update(); });
    }
}

double MeshGradientBackground::time() const
{
    const auto now =
        std::chrono::floor<std::chrono::microseconds>(platform::Platform::current().scheduler().now());
    const double product = foundation::secondsSinceReferenceDate(now) * speed_;
    return std::isfinite(product) ? product : 0;
}

QSGNode *MeshGradientBackground::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData * /*data*/)
{
    std::unique_ptr<QSGImageNode> node(static_cast<QSGImageNode *>(oldNode));
    if (size().isEmpty()) {
        return nullptr;
    }
    if (!node) {
        node.reset(window()->createImageNode());
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
    }
    const auto &image = picture_.draw(size(), time(), colors());
    node->setTexture(window()->createTextureFromImage(image, QQuickWindow::TextureIsOpaque));
    node->setRect(picture_.frame());
    return node.release();
}

} // namespace sharedui
