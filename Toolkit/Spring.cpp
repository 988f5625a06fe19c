#include "Toolkit/Spring.h"

#include <algorithm>
#include <cmath>

namespace toolkit {

namespace {

constexpr qreal millisecondsPerSecond = 1000;
constexpr qreal shortestResponse = 0.001;
constexpr qreal leastDamping = 0.05;
// A thousandth of what a view is scaled by is less than a pixel of it.
constexpr qreal nearEnough = 0.0002;
constexpr qreal slowEnough = 0.002; // a second

} // namespace

void Spring::setTarget(qreal target)
{
    if (target == target_) {
        return;
    }
    const bool isMoving = state() == Running;
    const qreal velocity = isMoving ? motion_.velocity(currentTime() / millisecondsPerSecond) : 0;
    target_ = target;
    Q_EMIT targetChanged();
    if (isComplete_) {
        spring(velocity);
    }
}

void Spring::componentComplete()
{
    isComplete_ = true;
    setValue(target_);
}

void Spring::spring(qreal velocity)
{
    stop();
    motion_ = SpringMotion(response_ > 0 ? response_ : shortestResponse,
                           std::max(dampingFraction_, leastDamping), value_ - target_, velocity);
    start();
}

void Spring::updateCurrentTime(int milliseconds)
{
    if (state() != Running) {
        return;
    }
    const qreal seconds = milliseconds / millisecondsPerSecond;
    const qreal offset = motion_.offset(seconds);
    if (std::abs(offset) < nearEnough && std::abs(motion_.velocity(seconds)) < slowEnough) {
        rest();
    } else {
        setValue(target_ + offset);
    }
}

void Spring::rest()
{
    stop();
    setValue(target_);
}

void Spring::setValue(qreal value)
{
    if (value != value_) {
        value_ = value;
        Q_EMIT valueChanged();
    }
}

} // namespace toolkit
