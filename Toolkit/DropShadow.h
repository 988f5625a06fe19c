// The soft shadow of a rounded rectangle.
#pragma once

#include <QColor>
#include <QQuickItem>
#include <QtQmlIntegration>

namespace toolkit {

// Lies behind a shape of the item's own size and reaches beyond the item, by the offset and three radii. Only
// what is outside of the shape is drawn: a translucent shape is not darkened by its own shadow. Drawn once
// for each size, without shaders. Main thread.
class DropShadow : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

    // Of the shape, in points.
    Q_PROPERTY(qreal cornerRadius MEMBER cornerRadius_ NOTIFY appearanceChanged)
    // The standard deviation of the blur in points: 0, or what is no number, makes a sharp shadow, and more
    // than 200 counts as 200.
    Q_PROPERTY(qreal radius MEMBER radius_ NOTIFY appearanceChanged)
    // How far below the shape the shadow stands, in points.
    Q_PROPERTY(qreal offset MEMBER offset_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY appearanceChanged)

public:
    explicit DropShadow(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void appearanceChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    void redraw();

    qreal cornerRadius_ = 0;
    qreal radius_ = 0;
    qreal offset_ = 0;
    QColor color_ = Qt::black;
    bool isOutdated_ = true;
};

} // namespace toolkit
