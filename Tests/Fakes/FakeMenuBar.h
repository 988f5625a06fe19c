// A panel in the test's hands.
#pragma once

#include "Platform/MenuBarServices.h"
#include "Tests/Fakes/ManualScheduler.h"

namespace fakes {

// Keeps what it is given; a test says whether it has a button.
class FakeStatusItem final : public platform::StatusItem, public platform::StatusButton
{
public:
    platform::StatusButton *button() override { return hasButton ? this : nullptr; }
    void setMenu(std::vector<platform::StatusMenuItem> items) override { menu = std::move(items); }
    void setImage(const platform::TemplateImage &image) override { shown.push_back(image); }
    void setClickHandler(std::function<void(const platform::StatusClick &)> handler) override
    {
        clickHandler = std::move(handler);
    }

    bool hasButton = true;
    std::vector<platform::TemplateImage> shown; // oldest first
    std::vector<platform::StatusMenuItem> menu;
    std::function<void(const platform::StatusClick &)> clickHandler;
};

// The current services for as long as it lives.
class FakeMenuBar final : public platform::MenuBarServices
{
public:
    struct DrawnSymbol
    {
        std::string name;
        platform::ImageSquare place;
    };

    bool becomeAccessory() override
    {
        isAccessory = hasApplication;
        return hasApplication;
    }

    std::shared_ptr<platform::StatusItem>
    makeStatusItem(const platform::StatusItemIdentity & /*identity*/) override
    {
        return std::make_shared<FakeStatusItem>();
    }

    platform::TemplateImage drawSymbol(std::string_view name, double side,
                                       const platform::ImageSquare &place) override
    {
        drawn.push_back({std::string(name), place});
        return {side, side, {}};
    }

    bool blendsWindows() override { return false; }
    ManualScheduler &scheduler() override { return scheduler_; }

    bool hasApplication = true;
    bool isAccessory = false;
    std::vector<DrawnSymbol> drawn;

private:
    ManualScheduler scheduler_;
    platform::MenuBarInstallation installation_{*this};
};

} // namespace fakes
