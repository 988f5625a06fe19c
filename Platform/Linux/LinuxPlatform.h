// The services of a Linux desktop.
#pragma once

#include "Platform/FallbackInputPoster.h"
#include "Platform/Linux/Session/TerminationSignals.h"
#include "Platform/Linux/X11/XUnlistedWindows.h"
#include "Platform/Platform.h"
#include "Platform/Qt/QtScheduler.h"

#include <optional>

namespace platform {

class LinuxPlatform final : public Platform
{
public:
    ~LinuxPlatform() override;

    Scheduler &scheduler() override { return scheduler_; }
    InputPoster &inputPoster() override;
    Appearance &appearance() override;
    ApplicationLink &applicationLink() override;
    void present(QWindow &window, const QString &activationToken) override;
    void activate() override;
    void setActivationPolicy(ActivationPolicy policy) override;
    bool placesWindows() override;

private:
    QtScheduler scheduler_;
    ActivationPolicy activationPolicy_ = ActivationPolicy::regular;
    std::unique_ptr<XUnlistedWindows> unlistedWindows_; // while the policy is not the regular one
    std::optional<FallbackInputPoster> inputPoster_;
    std::unique_ptr<Appearance> appearance_;
    std::unique_ptr<ApplicationLink> applicationLink_;
    std::unique_ptr<TerminationSignals> terminationSignals_;
};

} // namespace platform
