// The operating system's services, with a scheduler or a poster in the place of its own.
#pragma once

#include "Platform/Platform.h"

namespace benchmarks {

// Is the current platform for as long as it lives. REQUIRES: what it is made of outlives it.
class MixedPlatform final : public platform::Platform
{
public:
    MixedPlatform(platform::Platform &native, platform::Scheduler &scheduler,
                  platform::InputPoster &inputPoster)
        : native_(native)
        , scheduler_(scheduler)
        , inputPoster_(inputPoster)
    {}

    platform::Scheduler &scheduler() override { return scheduler_; }
    platform::InputPoster &inputPoster() override { return inputPoster_; }
    platform::Appearance &appearance() override { return native_.appearance(); }
    platform::ApplicationLink &applicationLink() override { return native_.applicationLink(); }
    void present(QWindow &window, const QString &token) override { native_.present(window, token); }
    void activate() override { native_.activate(); }
    void setActivationPolicy(platform::ActivationPolicy policy) override
    {
        native_.setActivationPolicy(policy);
    }
    bool placesWindows() override { return native_.placesWindows(); }

private:
    platform::Platform &native_;
    platform::Scheduler &scheduler_;
    platform::InputPoster &inputPoster_;
    platform::PlatformInstallation installation_{*this};
};

} // namespace benchmarks
