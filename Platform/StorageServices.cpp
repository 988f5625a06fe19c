#include "Platform/StorageServices.h"

#include <atomic>

namespace platform {

namespace {

std::atomic<StorageServices *> installedServices = nullptr;

StorageServices &nativeServices()
{
    static const auto services = makeNativeStorage();
    return *services;
}

} // namespace

StorageServices &StorageServices::current()
{
    auto *installed = installedServices.load();
    return installed ? *installed : nativeServices();
}

StorageInstallation::StorageInstallation(StorageServices &services)
    : previous_(installedServices.exchange(&services))
{}

StorageInstallation::~StorageInstallation()
{
    installedServices = previous_;
}

} // namespace platform
