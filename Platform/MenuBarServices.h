// The services of a program that lives in the desktop's panel. They are apart from Platform.h, in a library
// of their own: a program without an item there pays nothing for them.
#pragma once

#include "Platform/Scheduler.h"
#include "Platform/StatusItem.h"

#include <memory>
#include <string>
#include <string_view>

namespace platform {

struct StatusItemIdentity
{
    std::string id;    // the same at each run, such as the application's id
    std::string title; // what the user calls it, in UTF-8
};

// Main thread.
class MenuBarServices
{
public:
    MenuBarServices() = default;
    MenuBarServices(const MenuBarServices &) = delete;
    MenuBarServices &operator=(const MenuBarServices &) = delete;
    virtual ~MenuBarServices() = default;

    // Makes the application an accessory: its windows are in no list of running programs, and closing the
    // last one does not end it. False, and nothing done, where there is no application object.
    [[nodiscard]] virtual bool becomeAccessory() = 0;

    // An item without a picture at first. Where there is no session bus, one without a button.
    [[nodiscard]] virtual std::shared_ptr<StatusItem> makeStatusItem(const StatusItemIdentity &identity) = 0;

    // An image of `side` × `side` points with the system symbol of that name, which fills `place` and is
    // clipped at the image's edges. Where the system has no such symbol, it is blank. A side that is not
    // above 0, or above 1000, gives an image of that size without any representation.
    [[nodiscard]] virtual TemplateImage drawSymbol(std::string_view name, double side,
                                                   const ImageSquare &place) = 0;

    // Whether what is transparent in a window shows what is behind it. It may change while the program runs.
    [[nodiscard]] virtual bool blendsWindows() = 0;

    [[nodiscard]] virtual Scheduler &scheduler() = 0;

    // Those that are installed; where none are, the operating system's.
    [[nodiscard]] static MenuBarServices &current();
};

// Makes `services` the current ones for as long as the installation lives; those before come back after it.
class MenuBarInstallation
{
public:
    explicit MenuBarInstallation(MenuBarServices &services);
    MenuBarInstallation(const MenuBarInstallation &) = delete;
    MenuBarInstallation &operator=(const MenuBarInstallation &) = delete;
    ~MenuBarInstallation();

private:
    MenuBarServices *previous_;
};

// The services of the operating system. REQUIRES, for all but the drawing: a platform is installed that
// outlives what they make.
[[nodiscard]] std::unique_ptr<MenuBarServices> makeNativeMenuBar();

} // namespace platform
