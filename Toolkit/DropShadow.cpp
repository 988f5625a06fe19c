#include "Toolkit/DropShadow.h"

#include "Toolkit/ShadowPicture.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <algorithm>
#include <memory>

namespace toolkit {

namespace {

constexpr qreal largestRadius = 200;

} // namespace

DropShadow::DropShadow(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &DropShadow::appearanceChanged, this, &DropShadow::redraw);
}

void DropShadow::redraw()
{
    isOutdated_ = true;
    update();
}

void DropShadow::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    if (newGeometry.size() != oldGeometry.size()) {
        redraw();
    }
    QQuickItem::geometryChange(newGeometry, oldGeometry);
}

void DropShadow::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemDevicePixelRatioHasChanged) {
        redraw();
    }
    QQuickItem::itemChange(change, value);
}

QSGNode *DropShadow::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData * /*data*/)
{
    std::unique_ptr<QSGImageNode> node(static_cast<QSGImageNode *>(oldNode));
    if (node && !isOutdated_) {
        return node.release();
    }
    const qreal radius = radius_ > 0 ? std::min(radius_, largestRadius) : 0;
    const ShadowShape shape{size(), std::max(cornerRadius_, 0.0), radius, offset_, color_};
    const auto image = shadowPicture(shape, window()->effectiveDevicePixelRatio());
    if (image.isNull()) {
        return nullptr;
    }
    if (!node) {
        node.reset(window()->createImageNode());
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear); // for views that are scaled
    }
    node->setTexture(window()->createTextureFromImage(image));
    node->setRect(shape.bounds());
    isOutdated_ = false;
    return node.release();
}

} // namespace toolkit
