// A platform without an operating system: every service is in the test's hands.
#pragma once

#include "Platform/Platform.h"
#include "Tests/Fakes/ManualScheduler.h"
#include "Tests/Fakes/RecordingInputPoster.h"

#include <QStringList>
#include <QWindow>

namespace fakes {

class FakeAppearance final : public platform::Appearance
{
public:
    using Appearance::Appearance;

    void set(const platform::AppearanceValues &values) { setValues(values); }
};

class FakeApplicationLink final : public platform::ApplicationLink
{
public:
    using ApplicationLink::ApplicationLink;

    bool claim() override { return isSole; }

    bool isSole = true;
};

// Is the current platform for as long as it lives.
class FakePlatform final : public platform::Platform
{
public:
    fakes::ManualScheduler &scheduler() override { return scheduler_; }
    fakes::RecordingInputPoster &inputPoster() override { return inputPoster_; }
    FakeAppearance &appearance() override { return appearance_; }
    FakeApplicationLink &applicationLink() override { return applicationLink_; }

    void present(QWindow &window, const QString &activationToken) override
    {
        presentedWith.append(activationToken);
        acts.append(QStringLiteral("present"));
        window.show();
    }
    void activate() override { acts.append(QStringLiteral("activate")); }
    void setActivationPolicy(platform::ActivationPolicy policy) override
    {
        acts.append(policy == platform::ActivationPolicy::regular ? QStringLiteral("regular")
                                                                  : QStringLiteral("accessory"));
    }
    bool placesWindows() override { return canPlaceWindows; }

    QStringList presentedWith; // the tokens of the calls
    QStringList acts;          // what was asked for windows and the application, in order
    bool canPlaceWindows = true;

private:
    ManualScheduler scheduler_;
    RecordingInputPoster inputPoster_;
    FakeAppearance appearance_;
    FakeApplicationLink applicationLink_;
    platform::PlatformInstallation installation_{*this};
};

} // namespace fakes
