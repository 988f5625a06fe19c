#include "Platform/Linux/Sysfs/LightScale.h"
#include "Tests/Platform/Sysfs/RegistryTest.h"

namespace platform {

namespace {

using testing::ElementsAre;
using Channels = std::array<std::uint64_t, 2>;

constexpr auto className = "AppleLMUController";
constexpr auto applesmcFile = "devices/platform/applesmc.768/light";

class LightServicesTest : public RegistryTest
{
protected:
    // Ones where the call fails.
    [[nodiscard]] Channels channels(RegistryConnection connection, std::uint32_t selector = 0)
    {
        Channels output{1, 1};
        const auto result = registry_.callScalarMethod(connection, selector, {}, output);
        EXPECT_EQ(result == registrySuccess, output != (Channels{1, 1}));
        return output;
    }

    [[nodiscard]] Channels read() { return channels(connectionTo(className)); }

    [[nodiscard]] Channels readIio(const std::map<std::string, std::string> &attributes)
    {
        machine_.addIio(0, attributes);
        const auto result = read();
        machine_.remove("sys/bus");
        return result;
    }
};

constexpr Channels failed{1, 1};

} // namespace

TEST_F(LightServicesTest, HasNoneWithoutASensor)
{
    machine_.addIio(0, {{"in_accel_x_raw", "1"}, {"name", "accel_3d"}});
    EXPECT_EQ(countOf(className), 0U);
    EXPECT_EQ(connectionTo(className), 0U);
}

TEST_F(LightServicesTest, ReadsBothChannelsOfTheSystemController)
{
    machine_.write(applesmcFile, "(51,255)");
    EXPECT_THAT(read(), ElementsAre(10'000'000, brightestLight));
}

TEST_F(LightServicesTest, ReadsTheOneChannelThatNewerMachinesHave)
{
    machine_.write(applesmcFile, "(51,0)");
    EXPECT_THAT(read(), ElementsAre(10'000'000, 10'000'000));
}

TEST_F(LightServicesTest, ReadsDarkness)
{
    machine_.write(applesmcFile, "(0,0)");
    EXPECT_THAT(read(), ElementsAre(0, 0));
}

TEST_F(LightServicesTest, BringsLuxToTheScaleOfTheController)
{
    const auto light = lightOfLux(278.2);
    EXPECT_THAT(readIio({{"in_illuminance_input", "278.2"}}), ElementsAre(light, light));
    EXPECT_THAT(readIio({{"in_illuminance_raw", "2682"},
                         {"in_illuminance_offset", "100"},
                         {"in_illuminance_scale", "0.1"}}),
                ElementsAre(light, light));
    EXPECT_THAT(readIio({{"in_illuminance0_raw", "2782"}, {"in_illuminance0_scale", "0.1"}}),
                ElementsAre(light, light));
    EXPECT_THAT(readIio({{"in_illuminance0_raw", "2782"}, {"in_illuminance_scale", "0.1"}}),
                ElementsAre(light, light));
    EXPECT_THAT(readIio({{"in_illuminance_raw", "50000"}}), ElementsAre(brightestLight, brightestLight));
    EXPECT_THAT(readIio({{"in_illuminance_raw", "-3"}}), ElementsAre(0, 0));
}

TEST_F(LightServicesTest, FailsWhereAnAttributeSaysNoNumber)
{
    EXPECT_EQ(readIio({{"in_illuminance_input", "bright"}}), failed);
    EXPECT_EQ(readIio({{"in_illuminance_raw", ""}}), failed);
    EXPECT_EQ(readIio({{"in_illuminance_raw", "3"}, {"in_illuminance_scale", "x"}}), failed);
    EXPECT_EQ(readIio({{"in_illuminance_raw", "3"}, {"in_illuminance_offset", "nan"}}), failed);
    EXPECT_EQ(readIio({{"in_illuminance_raw", "1e300"}, {"in_illuminance_scale", "1e300"}}), failed);
    machine_.write(applesmcFile, "(1,2,3)");
    EXPECT_EQ(read(), failed);
}

TEST_F(LightServicesTest, TakesTheSystemControllerBeforeOthersAndThoseByNumber)
{
    machine_.addIio(10, {{"in_illuminance_raw", "10"}});
    machine_.addIio(9, {{"in_illuminance_raw", "9000"}});
    EXPECT_THAT(read(), ElementsAre(brightestLight, brightestLight));
    EXPECT_EQ(countOf(className), 2U);
    machine_.write(applesmcFile, "(51,51)");
    EXPECT_THAT(read(), ElementsAre(10'000'000, 10'000'000));
    EXPECT_EQ(countOf(className), 3U);
}

TEST_F(LightServicesTest, FailsWhileTheSensorIsAway)
{
    machine_.write(applesmcFile, "(51,51)");
    const auto connection = connectionTo(className);
    machine_.remove("sys/devices");
    EXPECT_EQ(channels(connection), failed);
    machine_.write(applesmcFile, "(51,51)");
    EXPECT_THAT(channels(connection), ElementsAre(10'000'000, 10'000'000));
}

TEST_F(LightServicesTest, OpensNothingThatMayNotBeRead)
{
    const auto file = machine_.write(applesmcFile, "(51,51)");
    std::filesystem::permissions(file, std::filesystem::perms::none);
    const NobodysRights rights;
    EXPECT_EQ(countOf(className), 1U);
    EXPECT_EQ(connectionTo(className), 0U);
}

TEST_F(LightServicesTest, ConnectsToNothingThatDoesNotAnswer)
{
    machine_.write(std::string(applesmcFile) + "/in the place of the attribute",
                   ""); // a folder opens, but says nothing
    EXPECT_EQ(countOf(className), 1U);
    EXPECT_EQ(connectionTo(className), 0U);
}

TEST_F(LightServicesTest, HasNoOtherMethod)
{
    machine_.write(applesmcFile, "(51,51)");
    const auto connection = connectionTo(className);
    EXPECT_EQ(channels(connection, 1), failed);
    std::array<std::uint64_t, 3> three{7, 7, 7};
    EXPECT_NE(registry_.callScalarMethod(connection, 0, {}, three), registrySuccess);
    EXPECT_THAT(three, ElementsAre(7, 7, 7));
    std::array<std::byte, 40> reply{};
    EXPECT_NE(registry_.callStructMethod(connection, 0, {}, reply), registrySuccess);
}

TEST_F(LightServicesTest, KnowsNoConnectionThatIsClosed)
{
    machine_.write(applesmcFile, "(51,51)");
    const auto connection = connectionTo(className);
    registry_.closeUserClient(connection);
    registry_.closeUserClient(connection);
    EXPECT_EQ(channels(connection), failed);
    EXPECT_EQ(channels(0), failed);
}

} // namespace platform
