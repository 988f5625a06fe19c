#include "Tests/Platform/Sysfs/RegistryTest.h"

namespace platform {

namespace {

constexpr auto className = "AppleBacklightDisplay";

class HingeServicesTest : public RegistryTest
{
protected:
    // Less than nothing where there is no angle.
    [[nodiscard]] double angleOf(const std::map<std::string, std::string> &attributes)
    {
        machine_.addIio(0, attributes);
        const auto angle = property(className, "lid-angle");
        machine_.remove("sys/bus");
        return angle ? std::get<double>(*angle) : -1;
    }

    // Of the sensor that convertibles have: three angles in steps of a degree.
    [[nodiscard]] double hubAngleOf(const std::string &raw)
    {
        return angleOf({{"name", "hinge"},
                        {"in_angl0_label", "keyboard"},
                        {"in_angl0_raw", "1"},
                        {"in_angl1_label", "hinge"},
                        {"in_angl1_raw", raw},
                        {"in_angl2_label", "screen"},
                        {"in_angl2_raw", "2"},
                        {"in_angl_scale", "0.017453293"}});
    }
};

} // namespace

TEST_F(HingeServicesTest, ReadsTheHingeInRadians)
{
    EXPECT_NEAR(angleOf({{"in_angl0_label", "hinge"}, {"in_angl0_raw", "2"}}), 114.59, 0.01);
    EXPECT_NEAR(hubAngleOf("90"), 90, 1e-4);
    EXPECT_NEAR(angleOf({{"in_angl0_label", "hinge"},
                         {"in_angl0_raw", "1"},
                         {"in_angl0_scale", "0.5"},
                         {"in_angl0_offset", "1"},
                         {"in_angl_scale", "7"}}),
                57.30, 0.01);
    EXPECT_EQ(angleOf({{"in_angl0_label", "hinge"}, {"in_angl0_raw", "0"}}), 0);
}

TEST_F(HingeServicesTest, ReadsDegreesWhereTheDriverTellsThese)
{
    EXPECT_EQ(angleOf({{"name", "cros-ec-lid-angle.12.auto"}, {"in_angl_raw", "97"}}), 97);
    EXPECT_EQ(angleOf({{"name", "cros-ec-lid-angle"}, {"in_angl_raw", "500"}}), -1);
}

TEST_F(HingeServicesTest, ReadsALidThatIsFoldedRightRound)
{
    // A degree of this scale is 1e-8 of a degree too much.
    EXPECT_EQ(hubAngleOf("360"), 360);
    EXPECT_EQ(hubAngleOf("360.4"), 360);
    EXPECT_EQ(hubAngleOf("-0.4"), 0);
    EXPECT_EQ(hubAngleOf("0"), 0);
}

TEST_F(HingeServicesTest, LeavesOutWhatNoHingeCanHave)
{
    for (const auto *const raw : {"361", "360.6", "-0.6", "-1", "1e9", "nan", "inf", "", "open"}) {
        EXPECT_EQ(hubAngleOf(raw), -1) << raw;
    }
    EXPECT_NEAR(hubAngleOf("359"), 359, 1e-3);
}

TEST_F(HingeServicesTest, TakesNoOtherAngleForOne)
{
    machine_.addIio(0, {{"in_angl0_label", "screen"}, {"in_angl0_raw", "1"}});
    machine_.addIio(1, {{"name", "as5600"}, {"in_angl_raw", "1"}});
    machine_.addIio(2, {{"in_angl0_raw", "1"}});
    machine_.addIio(3, {{"in_angl0_label", "hinge"}});
    EXPECT_EQ(countOf(className), 0U);
    EXPECT_EQ(property(className, "lid-angle"), std::nullopt);
}

TEST_F(HingeServicesTest, TellsNothingElse)
{
    machine_.addIio(4, {{"in_angl0_label", "hinge"}, {"in_angl0_raw", "1"}});
    EXPECT_EQ(countOf(className), 1U);
    EXPECT_EQ(property(className, "brightness"), std::nullopt);
    EXPECT_EQ(connectionTo(className), 0U);
    const ServiceHolder hinge(registry_, registry_.firstService(className));
    EXPECT_NE(registry_.setProperty(hinge.get(), "lid-angle", 1), registrySuccess);
    EXPECT_EQ(registry_.createHidDevice(hinge.get()), nullptr);
    machine_.remove("sys/bus");
    EXPECT_EQ(registry_.property(hinge.get(), "lid-angle"), std::nullopt);
}

TEST_F(HingeServicesTest, KnowsNoServiceThatWasReleased)
{
    machine_.addIio(4, {{"in_angl0_label", "hinge"}, {"in_angl0_raw", "1"}});
    const auto hinge = registry_.firstService(className);
    registry_.release(hinge);
    registry_.release(hinge);
    EXPECT_EQ(registry_.property(hinge, "lid-angle"), std::nullopt);
    RegistryConnection connection = 7;
    EXPECT_NE(registry_.openUserClient(hinge, 0, connection), registrySuccess);
    EXPECT_EQ(connection, 0U);
    EXPECT_NE(registry_.setProperty(hinge, "lid-angle", 1), registrySuccess);
    EXPECT_EQ(registry_.createHidDevice(0), nullptr);
}

TEST_F(HingeServicesTest, TellsTheModel)
{
    EXPECT_EQ(registry_.modelName(), "");
    machine_.write("firmware/devicetree/base/model", std::string("A Board\0", 8));
    EXPECT_EQ(registry_.modelName(), "A Board");
    machine_.write("class/dmi/id/product_name", " ");
    EXPECT_EQ(registry_.modelName(), "A Board");
    machine_.write("class/dmi/id/product_name", "MacBookPro11,1");
    EXPECT_EQ(registry_.modelName(), "MacBookPro11,1");
}

} // namespace platform
