#include "Platform/TextTyper.h"

#include <atomic>

namespace platform {

namespace {

std::atomic<TypingServices *> installedServices = nullptr;

TypingServices &nativeServices()
{
    static const auto services = makeNativeTyping();
    return *services;
}

} // namespace

TypingServices &TypingServices::current()
{
    auto *installed = installedServices.load();
    return installed ? *installed : nativeServices();
}

TypingInstallation::TypingInstallation(TypingServices &services)
    : previous_(installedServices.exchange(&services))
{}

TypingInstallation::~TypingInstallation()
{
    installedServices = previous_;
}

} // namespace platform
