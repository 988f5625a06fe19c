#include "Platform/HardwareRegistry.h"

#include <atomic>

namespace platform {

namespace {

std::atomic<HardwareRegistry *> installedRegistry = nullptr;

HardwareRegistry &nativeRegistry()
{
    static const auto registry = makeNativeHardwareRegistry();
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
