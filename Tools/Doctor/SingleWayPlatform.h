// A platform that posts through one way only.
#pragma once

#include "Platform/FallbackInputPoster.h"
#include "Platform/Platform.h"

namespace doctor {

// All else is another platform's. Is the current platform for as long as it lives. REQUIRES: the other
// outlives it.
class SingleWayPlatform final : public platform::Platform
{
public:
    SingleWayPlatform(platform::Platform &other, platform::FallbackInputPoster::Candidate way)
        : other_(other)
        , inputPoster_({std::move(way)})
    {}

    platform::Scheduler &scheduler() override { return other_.scheduler(); }
    platform::InputPoster &inputPoster() override { return inputPoster_; }
    platform::Appearance &appearance() override { return other_.appearance(); }
    platform::ApplicationLink &applicationLink() override { return other_.applicationLink(); }
    void present(QWindow &window, const QString &activationToken) override
    {
        other_.present(window, activationToken);
    }
    void activate() override { other_.activate(); }
    void setActivationPolicy(platform::ActivationPolicy policy) override
    {
        other_.setActivationPolicy(policy);
    }
    bool placesWindows() override { return other_.placesWindows(); }

private:
    platform::Platform &other_;
    platform::FallbackInputPoster inputPoster_;
    platform::PlatformInstallation installation_{*this};
};

} // namespace doctor
