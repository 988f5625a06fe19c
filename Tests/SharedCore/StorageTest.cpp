#include "Tests/SharedCore/StorageTest.h"

namespace sharedcore {

namespace {

struct InstalledStorage
{
    fakes::FakeStorage storage;
    platform::StorageInstallation installation{storage};
};

// Begins before main(), and outlives the shared instance.
InstalledStorage &installed()
{
    static InstalledStorage services;
    return services;
}

const auto &installedFromTheStart = installed();

} // namespace

fakes::FakeStorage &sharedStorage()
{
    auto &storage = installed().storage;
    storage.applicationDefaults().values.clear();
    storage.applicationDefaults().isReadable = true;
    storage.applicationDefaults().isWritable = true;
    static_cast<void>(installedFromTheStart);
    return storage;
}

} // namespace sharedcore
