// A small plot of the last samples.
#pragma once

#include "Examples/Gallery/Sensors/SensorHistory.h"

#include <QColor>
#include <QList>
#include <QPointer>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>

namespace gallery {

// One line for each value of a sample, the newest sample at the trailing edge, those before it by their time:
// 30 s take the whole width. A line is broken where no sample came for more than a second. Values beyond
// `lowest` and `highest` stay at the edge. Main thread.
class SensorPlot : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(gallery::SensorHistory *history READ history WRITE setHistory NOTIFY changed)
    Q_PROPERTY(QList<QColor> colors MEMBER colors_ NOTIFY changed)
    Q_PROPERTY(double lowest MEMBER lowest_ NOTIFY changed)
    Q_PROPERTY(double highest MEMBER highest_ NOTIFY changed)

public:
    explicit SensorPlot(QQuickItem *parent = nullptr);

    [[nodiscard]] SensorHistory *history() const { return history_; }
    void setHistory(SensorHistory *history);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] QPointF place(const SensorHistory::Sample &sample, qsizetype channel) const;
    void paintLine(QPainter &painter, qsizetype channel) const;

    QPointer<SensorHistory> history_;
    QList<QColor> colors_;
    double lowest_ = 0;
    double highest_ = 1;
};

} // namespace gallery
