#include "Examples/Gallery/Sensors/SensorPlot.h"

#include <QPainter>

#include <algorithm>

namespace gallery {

namespace {

constexpr double lineWidth = 1.5;

} // namespace

SensorPlot::SensorPlot(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    connect(this, &SensorPlot::changed, this, [this] { update(); });
}

void SensorPlot::setHistory(SensorHistory *history)
{
    if (history_) {
        disconnect(history_, nullptr, this, nullptr);
    }
    history_ = history;
    if (history_) {
        connect(history_, &SensorHistory::changed, this, [this] { update(); });
    }
    Q_EMIT changed();
}

QPolygonF SensorPlot::line(qsizetype channel) const
{
    const auto &samples = history_->samples();
    const double step = width() / static_cast<double>(SensorHistory::capacity - 1);
    const double span = std::max(1e-9, highest_ - lowest_);
    QPolygonF points;
    for (qsizetype i = 0; i < samples.size(); ++i) {
        const double share = (samples.at(i).value(channel) - lowest_) / span;
        const double fromBelow = std::clamp(share, 0.0, 1.0) * (height() - 2 * lineWidth) + lineWidth;
        points.append({width() - step * static_cast<double>(samples.size() - 1 - i), height() - fromBelow});
    }
    return points;
}

void SensorPlot::paint(QPainter *painter)
{
    for (qsizetype channel = 0; history_ && channel < colors_.size(); ++channel) {
        painter->setPen(QPen(colors_.at(channel), lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPolyline(line(channel));
    }
}

} // namespace gallery
