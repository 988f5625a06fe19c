#include "Platform/Linux/Uinput/UinputInputPoster.h"

#include "Tests/Platform/Uinput/RecordingUinputFile.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <limits>

namespace platform {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;
using Call = UinputRecord::Call;
using Event = UinputRecord::Event;

constexpr std::uint16_t leftCommand = 55;
constexpr std::uint64_t functionFlag = 0x800000;
const Event synchronise{EV_SYN, SYN_REPORT, 0};

class UinputInputPosterTest : public testing::Test
{
protected:
    std::unique_ptr<InputPoster> make()
    {
        return UinputInputPoster::create(
            std::make_unique<RecordingUinputFile>(record),
            [this](std::uint16_t /*virtualKeyCode*/) { return silentKey; }, why);
    }

    UinputRecord record;
    std::optional<std::uint16_t> silentKey = KEY_F24;
    Obstacle why;
};

} // namespace

TEST_F(UinputInputPosterTest, MakesOneDeviceWithAMousesAxesAndTheSilentKeys)
{
    const auto poster = make();
    ASSERT_NE(poster, nullptr);
    EXPECT_TRUE(poster->isReady());
    EXPECT_THAT(record.calls,
                ElementsAre(Call{UI_SET_EVBIT, EV_KEY}, Call{UI_SET_KEYBIT, BTN_LEFT},
                            Call{UI_SET_KEYBIT, KEY_F19}, Call{UI_SET_KEYBIT, KEY_F24},
                            Call{UI_SET_KEYBIT, KEY_UNKNOWN}, Call{UI_SET_EVBIT, EV_REL},
                            Call{UI_SET_RELBIT, REL_X}, Call{UI_SET_RELBIT, REL_Y},
                            Call{UI_SET_RELBIT, REL_WHEEL}, Call{UI_SET_RELBIT, REL_WHEEL_HI_RES},
                            Call{UI_SET_RELBIT, REL_HWHEEL}, Call{UI_SET_RELBIT, REL_HWHEEL_HI_RES},
                            Call{UI_DEV_SETUP, 0}, Call{UI_DEV_CREATE, 0}));
    EXPECT_EQ(record.name, "Stirra virtual input");
    EXPECT_EQ(record.bus, BUS_VIRTUAL);
    EXPECT_THAT(record.writes, IsEmpty());
}

TEST_F(UinputInputPosterTest, TakesTheDeviceAwayAtItsEnd)
{
    auto poster = make();
    ASSERT_NE(poster, nullptr);
    poster.reset();
    EXPECT_EQ(record.calls.back(), (Call{UI_DEV_DESTROY, 0}));
    EXPECT_TRUE(record.isClosed);
}

TEST_F(UinputInputPosterTest, WithoutTheFileItSaysWhichModuleMakesIt)
{
    record.openError = ENOENT;
    EXPECT_EQ(make(), nullptr);
    EXPECT_THAT(why.reason.toStdString(), testing::HasSubstr("no /dev/uinput"));
    EXPECT_THAT(why.remedy.toStdString(), testing::HasSubstr("modprobe uinput"));
    EXPECT_THAT(record.calls, IsEmpty());
}

TEST_F(UinputInputPosterTest, WithoutThePermissionItSaysWhatGrantsIt)
{
    record.openError = EACCES;
    EXPECT_EQ(make(), nullptr);
    EXPECT_THAT(why.reason.toStdString(), testing::HasSubstr("may not write"));
    EXPECT_THAT(why.remedy.toStdString(), testing::HasSubstr("udev rule"));
}

TEST_F(UinputInputPosterTest, AnyStepThatTheKernelRefusesLeavesNoDevice)
{
    ASSERT_NE(make(), nullptr);
    const auto stepCount = record.calls.size() - 1; // but for the last, which takes the device away
    for (std::size_t step = 0; step < stepCount; ++step) {
        record = {};
        record.failingCall = step;
        record.callError = EINVAL;
        why = {};
        EXPECT_EQ(make(), nullptr) << step;
        EXPECT_FALSE(why.reason.isEmpty()) << step;
        EXPECT_THAT(record.calls, SizeIs(step + 1));
        EXPECT_TRUE(record.isClosed) << step;
    }
}

TEST_F(UinputInputPosterTest, AStepAndItsReturnCancelOut)
{
    const auto poster = make();
    const auto start = poster->pointerLocation();
    ASSERT_TRUE(start);
    EXPECT_TRUE(poster->post(MouseMoved{{start->x + 1, start->y + 1}}));
    EXPECT_THAT(poster->pointerLocation(), Optional(PointerLocation{start->x + 1, start->y + 1}));
    EXPECT_TRUE(poster->post(MouseMoved{*start}));
    EXPECT_THAT(poster->pointerLocation(), start);
    EXPECT_THAT(record.writes,
                ElementsAre(ElementsAre(Event{EV_REL, REL_X, 1}, Event{EV_REL, REL_Y, 1}, synchronise),
                            ElementsAre(Event{EV_REL, REL_X, -1}, Event{EV_REL, REL_Y, -1}, synchronise)));
}

TEST_F(UinputInputPosterTest, APlaceThatNoPointerCanHaveIsRefused)
{
    const auto poster = make();
    for (const double bad : {std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity(), 32768.0, -1e300}) {
        EXPECT_FALSE(poster->post(MouseMoved{{bad, 0}})) << bad;
        EXPECT_FALSE(poster->post(MouseMoved{{0, bad}})) << bad;
    }
    EXPECT_THAT(record.writes, IsEmpty());
    EXPECT_THAT(poster->pointerLocation(), Optional(PointerLocation{0, 0}));
}

TEST_F(UinputInputPosterTest, AKeyGoesDownAndUpInOneWrite)
{
    const auto poster = make();
    EXPECT_TRUE(poster->post(KeyEvent{leftCommand, true, functionFlag}));
    EXPECT_THAT(record.writes, IsEmpty());
    EXPECT_TRUE(poster->post(KeyEvent{leftCommand, false, functionFlag}));
    EXPECT_THAT(record.writes, ElementsAre(ElementsAre(Event{EV_KEY, KEY_F24, 1}, synchronise,
                                                       Event{EV_KEY, KEY_F24, 0}, synchronise)));
}

TEST_F(UinputInputPosterTest, AKeyWithoutACarrierIsRefused)
{
    const auto poster = make();
    silentKey.reset();
    EXPECT_FALSE(poster->post(KeyEvent{leftCommand, true, functionFlag}));
    EXPECT_FALSE(poster->post(KeyEvent{leftCommand, false, functionFlag}));
    EXPECT_THAT(record.writes, IsEmpty());
}

TEST_F(UinputInputPosterTest, AScrollIsTheLeastThatProgramsGetToSeeAndComesBack)
{
    const auto poster = make();
    EXPECT_TRUE(poster->post(ScrollPixels{1}));
    EXPECT_TRUE(poster->post(ScrollPixels{-1}));
    EXPECT_THAT(record.writes, ElementsAre(ElementsAre(Event{EV_REL, REL_HWHEEL_HI_RES, 60}, synchronise),
                                           ElementsAre(Event{EV_REL, REL_HWHEEL_HI_RES, -60}, synchronise)));
}

TEST_F(UinputInputPosterTest, AScrollOfAnySizeStaysInBounds)
{
    const auto poster = make();
    using Range = std::numeric_limits<std::int32_t>;
    for (const auto pixels : {0, 40, Range::max(), Range::min()}) {
        EXPECT_TRUE(poster->post(ScrollPixels{pixels}));
    }
    EXPECT_THAT(record.writes, ElementsAre(Contains(Event{EV_REL, REL_HWHEEL_HI_RES, 80}),
                                           Contains(Event{EV_REL, REL_HWHEEL_HI_RES, 12000}),
                                           Contains(Event{EV_REL, REL_HWHEEL_HI_RES, -12000})));
}

TEST_F(UinputInputPosterTest, ADeviceThatIsGoneMakesItUseless)
{
    const auto poster = make();
    record.writeError = ENODEV;
    EXPECT_FALSE(poster->post(MouseMoved{{1, 1}}));
    EXPECT_FALSE(poster->isOpen());
    EXPECT_EQ(poster->pointerLocation(), std::nullopt);
    record.writeError = 0;
    EXPECT_FALSE(poster->post(MouseMoved{{1, 1}}));
    EXPECT_THAT(record.writes, IsEmpty());
}

TEST_F(UinputInputPosterTest, AFullQueueLosesTheEventAndNothingElse)
{
    const auto poster = make();
    record.writeError = EAGAIN;
    EXPECT_FALSE(poster->post(MouseMoved{{1, 1}}));
    EXPECT_TRUE(poster->isOpen());
    EXPECT_THAT(poster->pointerLocation(), Optional(PointerLocation{0, 0}));
    record.writeError = 0;
    EXPECT_TRUE(poster->post(MouseMoved{{1, 1}}));
    EXPECT_THAT(record.writes, SizeIs(1));
}

TEST(KernelUinputFileTest, BeforeItIsOpenTheKernelRefusesEverything)
{
    const auto file = kernelUinputFile();
    const input_event event{};
    EXPECT_EQ(file->control(UI_DEV_CREATE, 0), EBADF);
    EXPECT_EQ(file->setUp({}), EBADF);
    EXPECT_EQ(file->write({&event, 1}), EBADF);
}

} // namespace platform
