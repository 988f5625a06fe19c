// A rounded rectangle with a gradient, or in one colour, and a stroke.
#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>

namespace toolkit {

// The gradient runs from the top-leading to the bottom-trailing corner, or from the top to the bottom;
// `radius` and `strokeWidth` are in points, and the stroke stands inside. Its corners are smooth at every
// scale factor, which those of a plain Rectangle are not in the software scene graph; it keeps a picture of
// its size for that, so a large ground is better a Rectangle. Main thread.
class RoundedRectangle : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(qreal radius MEMBER radius_ NOTIFY appearanceChanged)
    // The room that is left on all sides of the shape, in points: half a stroke's width for one on a line.
    Q_PROPERTY(qreal margin MEMBER margin_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor topLeadingColor MEMBER topLeadingColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor bottomTrailingColor MEMBER bottomTrailingColor_ NOTIFY appearanceChanged)
    // From the top to the bottom and not along the diagonal.
    Q_PROPERTY(bool isVertical MEMBER isVertical_ NOTIFY appearanceChanged)
    // Both ends of the gradient at once.
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY appearanceChanged)
    // The stroke's gradient runs as that of the fill.
    Q_PROPERTY(QColor strokeTopLeadingColor MEMBER strokeTopLeadingColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor strokeBottomTrailingColor MEMBER strokeBottomTrailingColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor strokeColor READ strokeColor WRITE setStrokeColor NOTIFY appearanceChanged)
    Q_PROPERTY(qreal strokeWidth MEMBER strokeWidth_ NOTIFY appearanceChanged)

public:
    explicit RoundedRectangle(QQuickItem *parent = nullptr);

    [[nodiscard]] QColor color() const { return topLeadingColor_; }
    void setColor(const QColor &color);
    [[nodiscard]] QColor strokeColor() const { return strokeTopLeadingColor_; }
    void setStrokeColor(const QColor &color);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void appearanceChanged();

private:
    void paintShape(QPainter &painter) const;
    [[nodiscard]] QBrush brush(const QColor &from, const QColor &to) const;
    [[nodiscard]] QPen stroke() const;
    [[nodiscard]] bool hasGradient() const;

    qreal radius_ = 0;
    qreal margin_ = 0;
    QColor topLeadingColor_ = Qt::transparent;
    QColor bottomTrailingColor_ = Qt::transparent;
    bool isVertical_ = false;
    QColor strokeTopLeadingColor_ = Qt::transparent;
    QColor strokeBottomTrailingColor_ = Qt::transparent;
    qreal strokeWidth_ = 0;
};

} // namespace toolkit
