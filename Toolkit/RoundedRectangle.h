// A rounded rectangle with a gradient along its diagonal, or in one colour, and a stroke.
#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>

namespace toolkit {

// The gradient runs from the top-leading to the bottom-trailing corner; `radius` and `strokeWidth` are in
// points, and the stroke stands inside. Its corners are smooth at every scale factor, which those of a plain
// Rectangle are not in the software scene graph; it keeps a picture of its size for that, so a large ground
// is better a Rectangle. Main thread.
class RoundedRectangle : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(qreal radius MEMBER radius_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor topLeadingColor MEMBER topLeadingColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor bottomTrailingColor MEMBER bottomTrailingColor_ NOTIFY appearanceChanged)
    // Both ends of the gradient at once.
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY appearanceChanged)
    Q_PROPERTY(QColor strokeColor MEMBER strokeColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(qreal strokeWidth MEMBER strokeWidth_ NOTIFY appearanceChanged)

public:
    explicit RoundedRectangle(QQuickItem *parent = nullptr);

    [[nodiscard]] QColor color() const { return topLeadingColor_; }
    void setColor(const QColor &color);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void appearanceChanged();

private:
    [[nodiscard]] QBrush fill() const;
    [[nodiscard]] QPen stroke() const;

    qreal radius_ = 0;
    QColor topLeadingColor_ = Qt::transparent;
    QColor bottomTrailingColor_ = Qt::transparent;
    QColor strokeColor_ = Qt::transparent;
    qreal strokeWidth_ = 0;
};

} // namespace toolkit
