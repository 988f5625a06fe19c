#include "Platform/InputListener.h"

#include "Platform/Trust.h"

#include <atomic>

namespace platform {

namespace {

std::atomic<InputListener *> installedListener = nullptr;

InputListener &nativeListener()
{
    static const auto listener = makeNativeInputListener();
    return *listener;
}

} // namespace

InputListener &InputListener::current()
{
    auto *installed = installedListener.load();
    return installed ? *installed : nativeListener();
}

InputListenerInstallation::InputListenerInstallation(InputListener &listener)
    : previous_(installedListener.exchange(&listener))
{}

InputListenerInstallation::~InputListenerInstallation()
{
    installedListener = previous_;
}

bool isTrusted()
{
    return InputListener::current().isTrusted();
}

} // namespace platform
