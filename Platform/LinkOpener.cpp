#include "Platform/LinkOpener.h"

#include <utility>

namespace platform {

namespace {

LinkOpener *installedOpener = nullptr;

LinkOpener &nativeOpener()
{
    static const auto opener = makeNativeLinkOpener();
    return *opener;
}

} // namespace

LinkOpener &LinkOpener::current()
{
    return installedOpener ? *installedOpener : nativeOpener();
}

LinkOpenerInstallation::LinkOpenerInstallation(LinkOpener &opener)
    : previous_(std::exchange(installedOpener, &opener))
{}

LinkOpenerInstallation::~LinkOpenerInstallation()
{
    installedOpener = previous_;
}

} // namespace platform
