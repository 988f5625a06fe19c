#include "Platform/Platform.h"

#include "Foundation/FatalError.h"

#include <utility>

namespace platform {

namespace {

Platform *installedPlatform = nullptr;

} // namespace

Platform &Platform::current()
{
    if (!installedPlatform) {
        foundation::fatalError("no platform is installed");
    }
    return *installedPlatform;
}

PlatformInstallation::PlatformInstallation(Platform &platform)
    : previous_(std::exchange(installedPlatform, &platform))
{}

PlatformInstallation::~PlatformInstallation()
{
    installedPlatform = previous_;
}

} // namespace platform
