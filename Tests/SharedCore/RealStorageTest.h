// A gateway to the system's own storage, with a user's folder of the test's.
#pragma once

#include "Platform/StorageServices.h"
#include "Tests/SharedCore/StorageTest.h"
#include "Tests/Support/TemporaryFolder.h"

#include <cstdlib>

namespace sharedcore {

class RealStorageTest : public testing::Test
{
protected:
    RealStorageTest() { setenv("XDG_DATA_HOME", dataFolder().c_str(), 1); }

    [[nodiscard]] std::filesystem::path dataFolder() const { return temporary_.path() / "data"; }

private:
    testsupport::TemporaryFolder temporary_;
};

// As a program has it that has just been started.
class RealStorage
{
public:
    StorageManager *operator->() { return &manager_; }

private:
    std::unique_ptr<platform::StorageServices> services_ = platform::makeNativeStorage();
    OwnStorageManager manager_{*services_};
};

} // namespace sharedcore
