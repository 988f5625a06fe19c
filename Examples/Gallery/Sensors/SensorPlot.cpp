#include "Examples/Gallery/Sensors/SensorPlot.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace gallery {

namespace {

using Seconds = std::chrono::duration<double>;

constexpr double lineWidth = 1.5;
constexpr std::chrono::seconds longestStep(1);

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

QPointF SensorPlot::place(const SensorHistory::Sample &sample, qsizetype channel) const
{
    const Seconds age = history_->samples().last().time - sample.time;
    const double span = std::max(1e-9, highest_ - lowest_);
    const double share = (sample.values.value(channel) - lowest_) / span;
    const double fromBelow = std::clamp(share, 0.0, 1.0) * (height() - 2 * lineWidth) + lineWidth;
    return {width() * (1 - age / SensorHistory::length), height() - fromBelow};
}

void SensorPlot::paintLine(QPainter &painter, qsizetype channel) const
{
    QPolygonF points;
    SensorHistory::Time last;
    for (const auto &sample : history_->samples()) {
        if (!points.isEmpty() && sample.time - last > longestStep) {
            painter.drawPolyline(std::exchange(points, {}));
        }
        points.append(place(sample, channel));
        last = sample.time;
    }
    painter.drawPolyline(points);
}

void SensorPlot::paint(QPainter *painter)
{
    for (qsizetype channel = 0; history_ && channel < colors_.size(); ++channel) {
        painter->setPen(QPen(colors_.at(channel), lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        paintLine(*painter, channel);
    }
}

} // namespace gallery
