// The motion of a damped spring.
#pragma once

namespace toolkit {

// How a value that is `offset` away from its rest, and moves at `velocity` a second, gets there. `response`
// is the period in seconds that the spring would have without damping, above 0; `dampingFraction` is the
// share of the critical damping: below 1 it swings beyond its rest, from 1 on it does not. The exact solution
// of x'' + 2·d·w·x' + w²·x = 0 with w = 2π / response, so that it does not matter in which steps it is asked.
class SpringMotion
{
public:
    SpringMotion() = default;
    SpringMotion(double response, double dampingFraction, double offset, double velocity);

    // After so many seconds (0 or more).
    [[nodiscard]] double offset(double seconds) const;
    [[nodiscard]] double velocity(double seconds) const;

private:
    struct State
    {
        double offset;
        double velocity;
    };
    [[nodiscard]] State swinging(double seconds) const;
    [[nodiscard]] State creeping(double seconds) const;
    [[nodiscard]] State at(double seconds) const;

    double decay_ = 1;     // d·w, per second
    double frequency_ = 0; // of the swing, or of the two ways to creep, in radians a second
    bool isSwinging_ = false;
    double offset_ = 0;
    double velocity_ = 0;
};

} // namespace toolkit
