#include "Platform/Permissions.h"

#include <utility>

namespace platform {

namespace {

Permissions *installedPermissions = nullptr;

Permissions &nativePermissions()
{
    static const auto permissions = makeNativePermissions();
    return *permissions;
}

} // namespace

Permissions &Permissions::current()
{
    return installedPermissions ? *installedPermissions : nativePermissions();
}

PermissionsInstallation::PermissionsInstallation(Permissions &permissions)
    : previous_(std::exchange(installedPermissions, &permissions))
{}

PermissionsInstallation::~PermissionsInstallation()
{
    installedPermissions = previous_;
}

} // namespace platform
