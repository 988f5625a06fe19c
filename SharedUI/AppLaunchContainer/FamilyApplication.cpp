#include "SharedUI/AppLaunchContainer/FamilyApplication.h"

#include "SharedUI/AppLaunchContainer/LaunchWindowController.h"
#include "SharedUI/Translations.h"

#include <QCoreApplication>

namespace sharedui {

namespace {

class FamilyDelegate final : public platform::ApplicationDelegate
{
public:
    explicit FamilyDelegate(const std::function<void()> &launch)
        : launch_(launch)
    {}
    ~FamilyDelegate() override { LaunchWindowController::endShared(); }

    void applicationDidFinishLaunching() override
    {
        installTranslations(*QCoreApplication::instance());
        launch_();
    }
    void applicationReopened(const QString &activationToken) override
    {
        LaunchWindowController::shared().bringToFront(activationToken);
    }

private:
    const std::function<void()> &launch_; // the caller's, who waits for the end
};

} // namespace

int runFamilyApplication(int argc, char **argv, const platform::ApplicationNames &names,
                         const std::function<void()> &launch)
{
    return platform::runApplication(argc, argv, names,
                                    [&launch] { return std::make_unique<FamilyDelegate>(launch); });
}

} // namespace sharedui
