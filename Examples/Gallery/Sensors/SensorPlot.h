// A small plot of the last samples.
#pragma once

#include <QColor>
#include <QList>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>

namespace gallery {

// One line for each value of a sample, the newest sample at the trailing edge, where `capacity` samples take
// the whole width. Values beyond `lowest` and `highest` stay at the edge. Main thread.
class SensorPlot : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QList<QList<double>> samples MEMBER samples_ NOTIFY changed)
    Q_PROPERTY(QList<QColor> colors MEMBER colors_ NOTIFY changed)
    Q_PROPERTY(double lowest MEMBER lowest_ NOTIFY changed)
    Q_PROPERTY(double highest MEMBER highest_ NOTIFY changed)
    Q_PROPERTY(int capacity MEMBER capacity_ NOTIFY changed)

public:
    explicit SensorPlot(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] QPolygonF line(qsizetype channel) const;

    QList<QList<double>> samples_;
    QList<QColor> colors_;
    double lowest_ = 0;
    double highest_ = 1;
    int capacity_ = 300;
};

} // namespace gallery
