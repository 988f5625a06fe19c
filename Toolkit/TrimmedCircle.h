// The outline of a circle, or a part of it, as a view.
#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>

namespace toolkit {

// Strokes the part from `trimFrom` to `trimTo` (0 to 1 of the way round, clockwise from three o'clock) of the
// circle that fits `diameter`, with round ends, in a gradient from the top-leading to the bottom-trailing
// corner of the circle's square. The line stands half outside of the diameter: the item is that much larger.
// The whole drawing, gradient and all, is turned by `turn` degrees clockwise. Main thread.
class TrimmedCircle : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(qreal diameter MEMBER diameter_ NOTIFY geometryChanged)
    Q_PROPERTY(qreal lineWidth MEMBER lineWidth_ NOTIFY geometryChanged)
    Q_PROPERTY(qreal trimFrom MEMBER trimFrom_ NOTIFY appearanceChanged)
    Q_PROPERTY(qreal trimTo MEMBER trimTo_ NOTIFY appearanceChanged)
    Q_PROPERTY(qreal turn MEMBER turn_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor topLeadingColor MEMBER topLeadingColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QColor bottomTrailingColor MEMBER bottomTrailingColor_ NOTIFY appearanceChanged)

public:
    explicit TrimmedCircle(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void geometryChanged();
    void appearanceChanged();

private:
    void resize();

    qreal diameter_ = 0;
    qreal lineWidth_ = 1;
    qreal trimFrom_ = 0;
    qreal trimTo_ = 1;
    qreal turn_ = 0;
    QColor topLeadingColor_ = Qt::black;
    QColor bottomTrailingColor_ = Qt::black;
};

} // namespace toolkit
