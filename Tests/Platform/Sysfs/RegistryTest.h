// What the tests of the registry on a made-up machine share.
#pragma once

#include "Tests/Platform/Sysfs/Machine.h"

#include <gmock/gmock.h>

#include <unistd.h>

#include <array>

namespace platform {

class RegistryTest : public testing::Test
{
protected:
    [[nodiscard]] std::size_t countOf(std::string_view className)
    {
        const auto services = registry_.services(className);
        for (const auto service : services) {
            registry_.release(service);
        }
        return services.size();
    }

    // Of the first service of the class; nothing where there is none, or it does not tell.
    [[nodiscard]] std::optional<RegistryValue> property(std::string_view className, std::string_view key)
    {
        const ServiceHolder service(registry_, registry_.firstService(className));
        return registry_.property(service.get(), key);
    }

    // A connection to the first service of the class; 0 where there is none, or it cannot be opened.
    [[nodiscard]] RegistryConnection connectionTo(std::string_view className)
    {
        const ServiceHolder service(registry_, registry_.firstService(className));
        RegistryConnection connection = 0;
        const auto result = registry_.openUserClient(service.get(), 0, connection);
        EXPECT_EQ(result == registrySuccess, connection != 0);
        return connection;
    }

    Machine machine_;
    SysfsHardwareRegistry registry_{machine_.root()};
};

// While it exists the process may do what nobody in particular may; a user who is not root is that already.
class NobodysRights
{
public:
    NobodysRights()
        : user_(geteuid())
    {
        changed_ = user_ == 0 && seteuid(nobody) == 0;
    }
    NobodysRights(const NobodysRights &) = delete;
    NobodysRights &operator=(const NobodysRights &) = delete;
    ~NobodysRights()
    {
        if (changed_) {
            changed_ = seteuid(user_) != 0;
        }
    }

private:
    static constexpr uid_t nobody = 65534;

    const uid_t user_;
    bool changed_ = false;
};

} // namespace platform
