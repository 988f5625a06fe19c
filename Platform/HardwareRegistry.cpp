#include "Platform/HardwareRegistry.h"

#include <atomic>

namespace platform {

namespace {

std::atomic<HardwareRegistry *> installedRegistry = nullptr;

// It is never destroyed, so that a sensor may be closed as late as its object goes.
HardwareRegistry &nativeRegistry()
{
    static auto *const registry = makeNativeHardwareRegistry().release();
    return *registry;
}

} // namespace

HardwareRegistry &HardwareRegistry::current()
{
    auto *installed = installedRegistry.load();
    return installed ? *installed : nativeRegistry();
}

HardwareRegistryInstallation::HardwareRegistryInstallation(HardwareRegistry &registry)
    : previous_(installedRegistry.exchange(&registry))
{}

HardwareRegistryInstallation::~HardwareRegistryInstallation()
{
    installedRegistry = previous_;
}

} // namespace platform
