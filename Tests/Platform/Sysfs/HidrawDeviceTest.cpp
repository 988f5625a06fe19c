#include "Platform/Linux/Sysfs/HidrawDevice.h"

#include "Tests/Platform/Sysfs/Descriptors.h"
#include "Tests/Platform/Sysfs/RegistryTest.h"
#include "Tests/Support/Eventually.h"

#include <QCoreApplication>

namespace platform {

namespace {

using testing::ElementsAre;
using testsupport::accelerometerReport;
using testsupport::eventually;
using testsupport::ReportPipe;

constexpr auto className = "AppleSPUHIDDevice";

class HidrawDeviceTest : public RegistryTest
{
protected:
    // The accelerometer's device, from the registry.
    [[nodiscard]] std::unique_ptr<HidDevice> device()
    {
        const ServiceHolder service(registry_, registry_.firstService(className));
        return registry_.createHidDevice(service.get());
    }

    void listenTo(HidDevice &device)
    {
        device.registerInputReportCallback(buffer_, [this](const InputReport &report) {
            results_.push_back(report.result);
            sizes_.push_back(report.bytes.size());
            ids_.push_back(report.reportId);
        });
        device.scheduleWithMainLoop();
    }

    [[nodiscard]] bool eventuallyCame(std::size_t count)
    {
        return eventually([this, count] { return sizes_.size() >= count; });
    }

    std::filesystem::path node_ = machine_.addHidraw(3, accelerometerDescriptor);
    std::array<std::byte, 4096> buffer_{};
    std::vector<RegistryResult> results_;
    std::vector<std::size_t> sizes_;
    std::vector<std::uint32_t> ids_;
};

std::vector<std::byte> ofSize(std::size_t size)
{
    return std::vector<std::byte>(size, std::byte(7));
}

} // namespace

TEST_F(HidrawDeviceTest, BringsReportsOneByOne)
{
    const auto device = this->device();
    ASSERT_EQ(device->open(), registrySuccess);
    listenTo(*device);
    const ReportPipe pipe(node_);
    EXPECT_TRUE(pipe.write(ofSize(22)));
    EXPECT_TRUE(pipe.write(ofSize(1)));
    EXPECT_TRUE(pipe.write(ofSize(23)));
    ASSERT_TRUE(eventuallyCame(3));
    EXPECT_THAT(sizes_, ElementsAre(22, 1, 23));
    EXPECT_THAT(ids_, ElementsAre(0, 0, 0));
    EXPECT_THAT(results_, testing::Each(registrySuccess));
}

TEST_F(HidrawDeviceTest, TellsTheNumberOfANumberedReport)
{
    machine_.remove("sys/class");
    machine_.remove("dev");
    node_ = machine_.addHidraw(0, receiverDescriptor);
    const auto device = this->device();
    ASSERT_EQ(device->open(), registrySuccess);
    listenTo(*device);
    EXPECT_TRUE(ReportPipe(node_).write(ofSize(22)));
    ASSERT_TRUE(eventuallyCame(1));
    EXPECT_EQ(ids_.front(), 7U);
}

TEST_F(HidrawDeviceTest, BringsAStreamWhole)
{
    const auto device = this->device();
    ASSERT_EQ(device->open(), registrySuccess);
    listenTo(*device);
    const ReportPipe pipe(node_);
    std::size_t sent = 0;
    EXPECT_TRUE(eventually([&] {
        for (int burst = 0; burst < 10; ++burst) {
            sent += pipe.write(ofSize(22)) ? 1U : 0U;
        }
        return sent >= 300;
    }));
    EXPECT_TRUE(eventuallyCame(sent));
    EXPECT_EQ(sizes_.size(), sent);
    // And what comes after a pause.
    EXPECT_TRUE(pipe.write(ofSize(22)));
    EXPECT_TRUE(eventuallyCame(sent + 1));
}

TEST_F(HidrawDeviceTest, TakesABoundedNumberAtOnceOfAnEndlessStream)
{
    const auto device = this->device();
    ASSERT_EQ(device->open(), registrySuccess);
    listenTo(*device);
    const ReportPipe pipe(node_);
    std::size_t most = 0;
    int turns = 0;
    EXPECT_TRUE(eventually([&] {
        while (pipe.write(ofSize(22))) {
        }
        const auto before = sizes_.size();
        QCoreApplication::processEvents();
        most = std::max(most, sizes_.size() - before);
        return ++turns == 100;
    }));
    EXPECT_GT(sizes_.size(), 128U);
    EXPECT_LE(most, 64U);
}

TEST_F(HidrawDeviceTest, CutsALongReportOffAtTheBuffer)
{
    const auto device = this->device();
    ASSERT_EQ(device->open(), registrySuccess);
    device->registerInputReportCallback(std::span(buffer_).first(30), [this](const InputReport &report) {
        sizes_.push_back(report.bytes.size());
    });
    device->scheduleWithMainLoop();
    const ReportPipe pipe(node_);
    EXPECT_TRUE(pipe.write(ofSize(4000)));
    EXPECT_TRUE(pipe.write(ofSize(22)));
    ASSERT_TRUE(eventuallyCame(2));
    EXPECT_THAT(sizes_, ElementsAre(30, 22));
}

TEST_F(HidrawDeviceTest, SaysOnceThatItIsGone)
{
    const auto device = this->device();
    ASSERT_EQ(device->open(), registrySuccess);
    listenTo(*device);
    EXPECT_TRUE(ReportPipe(node_).write(ofSize(22)));
    ASSERT_TRUE(eventuallyCame(2));
    testsupport::letPass(std::chrono::milliseconds(50));
    EXPECT_THAT(sizes_, ElementsAre(22, 0));
    EXPECT_EQ(results_[0], registrySuccess);
    EXPECT_NE(results_[1], registrySuccess);
    device->close();
}

TEST_F(HidrawDeviceTest, SaysThatItIsGoneInTheMiddleOfAStream)
{
    const auto device = this->device();
    ASSERT_EQ(device->open(), registrySuccess);
    listenTo(*device);
    {
        const ReportPipe pipe(node_);
        EXPECT_TRUE(eventually([&] { return !pipe.write(ofSize(22)) || sizes_.size() > 100; }));
    }
    EXPECT_TRUE(eventually([this] { return !results_.empty() && results_.back() != registrySuccess; }));
}

TEST_F(HidrawDeviceTest, SaysOnceThatReadingFails)
{
    // The kernel's file of a device that was unplugged fails whenever it is read, and is always ready for
    // that. So does a folder.
    const auto device = this->device();
    machine_.remove("dev");
    std::filesystem::create_directories(node_);
    ASSERT_EQ(device->open(), registrySuccess);
    listenTo(*device);
    ASSERT_TRUE(eventuallyCame(1));
    testsupport::letPass(std::chrono::milliseconds(50));
    EXPECT_THAT(results_, ElementsAre(EISDIR));
    EXPECT_THAT(sizes_, ElementsAre(0));
}

TEST_F(HidrawDeviceTest, IsSilentUntilAllIsThere)
{
    const auto device = this->device();
    device->scheduleWithMainLoop();
    ASSERT_EQ(device->open(), registrySuccess);
    const ReportPipe pipe(node_);
    EXPECT_TRUE(pipe.write(ofSize(22)));
    testsupport::letPass(std::chrono::milliseconds(20));
    listenTo(*device);
    ASSERT_TRUE(eventuallyCame(1));
    device->unscheduleFromMainLoop();
    EXPECT_TRUE(pipe.write(ofSize(22)));
    testsupport::letPass(std::chrono::milliseconds(20));
    EXPECT_EQ(sizes_.size(), 1U);
    device->registerInputReportCallback(buffer_, {});
    device->scheduleWithMainLoop();
    testsupport::letPass(std::chrono::milliseconds(20));
    device->close();
    EXPECT_EQ(sizes_.size(), 1U);
}

TEST_F(HidrawDeviceTest, MayBeClosedByItsCallback)
{
    const auto device = this->device();
    ASSERT_EQ(device->open(), registrySuccess);
    device->registerInputReportCallback(buffer_, [&](const InputReport &report) {
        sizes_.push_back(report.bytes.size());
        device->close();
    });
    device->scheduleWithMainLoop();
    const ReportPipe pipe(node_);
    EXPECT_TRUE(pipe.write(ofSize(22)));
    EXPECT_TRUE(pipe.write(ofSize(22)));
    ASSERT_TRUE(eventuallyCame(1));
    testsupport::letPass(std::chrono::milliseconds(20));
    EXPECT_EQ(sizes_.size(), 1U);
}

TEST_F(HidrawDeviceTest, OpensNothingThatMayNotBeRead)
{
    const auto device = this->device();
    std::filesystem::permissions(node_, std::filesystem::perms::none);
    {
        const NobodysRights rights;
        EXPECT_EQ(device->open(), EACCES);
    }
    machine_.remove("dev");
    EXPECT_EQ(device->open(), ENOENT);
    listenTo(*device);
    device->close();
}

} // namespace platform
