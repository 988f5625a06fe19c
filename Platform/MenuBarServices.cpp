#include "Platform/MenuBarServices.h"

#include <utility>

namespace platform {

namespace {

MenuBarServices *installedServices = nullptr;

MenuBarServices &nativeServices()
{
    static const auto services = makeNativeMenuBar();
    return *services;
}

} // namespace

MenuBarServices &MenuBarServices::current()
{
    return installedServices ? *installedServices : nativeServices();
}

MenuBarInstallation::MenuBarInstallation(MenuBarServices &services)
    : previous_(std::exchange(installedServices, &services))
{}

MenuBarInstallation::~MenuBarInstallation()
{
    installedServices = previous_;
}

} // namespace platform
