#include "Toolkit/SpringMotion.h"

#include <cmath>
#include <numbers>

namespace toolkit {

namespace {

constexpr double nearlyCritical = 1e-4; // where both solutions become a division by nothing

} // namespace

SpringMotion::SpringMotion(double response, double dampingFraction, double offset, double velocity)
    : isSwinging_(dampingFraction < 1)
    , offset_(offset)
    , velocity_(velocity)
{
    const double natural = 2 * std::numbers::pi / response;
    const double difference = std::abs(1 - dampingFraction * dampingFraction);
    decay_ = dampingFraction * natural;
    frequency_ = natural * std::sqrt(std::fmax(difference, nearlyCritical));
}

SpringMotion::State SpringMotion::swinging(double seconds) const
{
    const double sine = std::sin(frequency_ * seconds);
    const double cosine = std::cos(frequency_ * seconds);
    const double envelope = std::exp(-decay_ * seconds);
    const double side = (velocity_ + decay_ * offset_) / frequency_;
    const double offset = envelope * (offset_ * cosine + side * sine);
    return {offset, envelope * frequency_ * (side * cosine - offset_ * sine) - decay_ * offset};
}

SpringMotion::State SpringMotion::creeping(double seconds) const
{
    const double slow = frequency_ - decay_;
    const double fast = -frequency_ - decay_;
    const double ofSlow = (velocity_ - fast * offset_) / (slow - fast);
    const double ofFast = offset_ - ofSlow;
    const double slowPart = ofSlow * std::exp(slow * seconds);
    const double fastPart = ofFast * std::exp(fast * seconds);
    return {slowPart + fastPart, slow * slowPart + fast * fastPart};
}

SpringMotion::State SpringMotion::at(double seconds) const
{
    return isSwinging_ ? swinging(seconds) : creeping(seconds);
}

double SpringMotion::offset(double seconds) const
{
    return at(seconds).offset;
}

double SpringMotion::velocity(double seconds) const
{
    return at(seconds).velocity;
}

} // namespace toolkit
