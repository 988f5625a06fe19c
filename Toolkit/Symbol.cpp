#include "Toolkit/Symbol.h"

#include "Platform/Symbols/SymbolDrawing.h"

#include <QImage>
#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>
#include <memory>

namespace toolkit {

namespace {

constexpr qreal sidePerTextSize = 1.2;

// What a text's weight adds to the strokes of a symbol, in sixteenths of its side.
double strokeOf(int weight)
{
    if (weight < QFont::Medium) {
        return 0;
    }
    return weight < QFont::DemiBold ? 0.3 : 0.6;
}

// With a pixel of nothing around it, so that its outline stays soft where it is scaled or turned.
QImage framed(const QImage &image)
{
    return image.copy(image.rect().adjusted(-1, -1, 1, 1));
}

} // namespace

QImage symbolImage(const QString &name, int side, const QColor &color, int weight)
{
    if (side <= 0) {
        return {};
    }
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    return platform::drawSymbol(painter, name, QRectF(image.rect()), color, strokeOf(weight)) ? image
                                                                                              : QImage();
}

Symbol::Symbol(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    setSmooth(false);
    connect(this, &QQuickItem::smoothChanged, this, &Symbol::redraw);
    setSymbolSize(size_);
    const auto side = std::round(size_ * sidePerTextSize);
    setImplicitSize(side, side);
}

void Symbol::setName(const QString &name)
{
    if (name == name_) {
        return;
    }
    name_ = name;
    redraw();
    Q_EMIT nameChanged();
}

void Symbol::setSymbolSize(qreal size)
{
    if (size == size_) {
        return;
    }
    size_ = size;
    const auto side = std::round(size_ * sidePerTextSize);
    setImplicitSize(side, side);
    redraw();
    Q_EMIT sizeChanged();
}

void Symbol::setColor(const QColor &color)
{
    if (color == color_) {
        return;
    }
    color_ = color;
    redraw();
    Q_EMIT colorChanged();
}

void Symbol::setWeight(int weight)
{
    if (weight == weight_) {
        return;
    }
    weight_ = weight;
    redraw();
    Q_EMIT weightChanged();
}

void Symbol::redraw()
{
    isOutdated_ = true;
    update();
}

void Symbol::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemDevicePixelRatioHasChanged) {
        redraw();
    } else if (change == ItemSceneChange) {
        followWindow(value.window);
    }
    QQuickItem::itemChange(change, value);
}

// What moves a symbol is often a parent of it, which tells it nothing.
void Symbol::followWindow(QQuickWindow *window)
{
    disconnect(frames_);
    if (window) {
        const auto settle = [this] {
            if (isVisible() && offGrid() != offGrid_) {
                update();
            }
        };
        frames_ = connect(window, &QQuickWindow::afterAnimating, this, settle);
    }
}

QPointF Symbol::offGrid() const
{
    if (smooth()) {
        return {};
    }
    const qreal ratio = window()->effectiveDevicePixelRatio();
    const auto place = mapToScene({0, 0}) * ratio;
    return (place - place.toPoint()) / ratio;
}

// The whole picture, pixel for pixel, where it is not smooth.
QRectF Symbol::pictureRect(const QSize &pixels) const
{
    if (!smooth()) {
        return {-offGrid_, QSizeF(pixels) / window()->effectiveDevicePixelRatio()};
    }
    const qreal frame = width() / (pixels.width() - 2);
    return boundingRect().adjusted(-frame, -frame, frame, frame);
}

QSGNode *Symbol::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData * /*data*/)
{
    std::unique_ptr<QSGImageNode> node(static_cast<QSGImageNode *>(oldNode));
    if (!node || isOutdated_) {
        const auto side = static_cast<int>(std::round(width() * window()->effectiveDevicePixelRatio()));
        const auto image = symbolImage(name_, side, color_, weight_);
        if (image.isNull()) {
            return nullptr;
        }
        if (!node) {
            node.reset(window()->createImageNode());
            node->setOwnsTexture(true);
        }
        node->setTexture(window()->createTextureFromImage(smooth() ? framed(image) : image));
        isOutdated_ = false;
    }
    node->setFiltering(smooth() ? QSGTexture::Linear : QSGTexture::Nearest);
    offGrid_ = offGrid();
    node->setRect(pictureRect(node->texture()->textureSize()));
    return node.release();
}

} // namespace toolkit
