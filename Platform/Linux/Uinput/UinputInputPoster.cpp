#include "Platform/Linux/Uinput/UinputInputPoster.h"

#include "Platform/Linux/SilentKeyChoice.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace platform {

namespace {

constexpr std::string_view deviceName = "Stirra virtual input";
constexpr std::int64_t unitsPerPixel = 2;     // a pixel is a sixtieth of a notch, as on X11
constexpr std::int64_t fewestUnits = 60;      // libinput waits for more below it
constexpr std::int64_t mostUnits = 120 * 100; // a hundred notches

struct Bit
{
    unsigned long request;
    int code;
};

// A mouse, to those who sort devices (udev, libinput), has a left button and both axes.
constexpr std::array deviceBits{
    Bit{UI_SET_EVBIT, EV_KEY},       Bit{UI_SET_KEYBIT, BTN_LEFT},
    Bit{UI_SET_KEYBIT, KEY_F19},     Bit{UI_SET_KEYBIT, KEY_F24},
    Bit{UI_SET_KEYBIT, KEY_UNKNOWN}, Bit{UI_SET_EVBIT, EV_REL},
    Bit{UI_SET_RELBIT, REL_X},       Bit{UI_SET_RELBIT, REL_Y},
    Bit{UI_SET_RELBIT, REL_WHEEL},   Bit{UI_SET_RELBIT, REL_WHEEL_HI_RES},
    Bit{UI_SET_RELBIT, REL_HWHEEL},  Bit{UI_SET_RELBIT, REL_HWHEEL_HI_RES},
};

uinput_setup deviceSetup()
{
    uinput_setup setup{};
    setup.id.bustype = BUS_VIRTUAL;
    setup.id.version = 1;
    std::ranges::copy(deviceName, setup.name);
    return setup;
}

QString errorText(int error)
{
    return QString::fromLocal8Bit(std::strerror(error)); // NOLINT(concurrency-mt-unsafe): the one thread
}

Obstacle cannotOpen(int error)
{
    if (error == ENOENT || error == ENODEV || error == ENXIO) {
        return {QStringLiteral("The kernel offers no /dev/uinput."),
                QStringLiteral("Load its module: sudo modprobe uinput")};
    }
    if (error == EACCES || error == EPERM) {
        return {QStringLiteral("This user may not write to /dev/uinput."),
                QStringLiteral("Install Stirra's udev rule and log in again; the README tells how.")};
    }
    return {QStringLiteral("/dev/uinput cannot be opened: %1.").arg(errorText(error)),
            QStringLiteral("See the kernel's messages: sudo dmesg")};
}

Obstacle cannotMake(int error)
{
    return {QStringLiteral("The kernel does not make the input device: %1.").arg(errorText(error)),
            QStringLiteral("See the kernel's messages: sudo dmesg")};
}

} // namespace

std::unique_ptr<InputPoster> UinputInputPoster::create(Obstacle &why)
{
    return create(kernelUinputFile(), sessionSilentKeys(), why);
}

std::unique_ptr<InputPoster> UinputInputPoster::create(std::unique_ptr<UinputFile> file,
                                                       SilentKeySource silentKeys, Obstacle &why)
{
    std::unique_ptr<UinputInputPoster> poster(new UinputInputPoster(std::move(file), std::move(silentKeys)));
    const auto obstacle = poster->makeDevice();
    if (!poster->isOpen()) {
        why = obstacle;
        return nullptr;
    }
    return poster;
}

UinputInputPoster::UinputInputPoster(std::unique_ptr<UinputFile> file, SilentKeySource silentKeys)
    : file_(std::move(file))
    , silentKeys_(std::move(silentKeys))
{}

UinputInputPoster::~UinputInputPoster()
{
    if (isOpen_) {
        file_->control(UI_DEV_DESTROY, 0);
    }
}

Obstacle UinputInputPoster::makeDevice()
{
    if (const int error = file_->open(); error != 0) {
        return cannotOpen(error);
    }
    const int error = describeDevice();
    isOpen_ = error == 0;
    return isOpen_ ? Obstacle() : cannotMake(error);
}

int UinputInputPoster::describeDevice()
{
    for (const auto &[request, code] : deviceBits) {
        if (const int error = file_->control(request, code); error != 0) {
            return error;
        }
    }
    if (const int error = file_->setUp(deviceSetup()); error != 0) {
        return error;
    }
    return file_->control(UI_DEV_CREATE, 0);
}

std::optional<PointerLocation> UinputInputPoster::pointerLocation()
{
    return isOpen_ ? std::optional(pointer_.location()) : std::nullopt;
}

bool UinputInputPoster::post(const InputEvent &event)
{
    return isOpen_ && std::visit([this](const auto &kind) { return postEvent(kind); }, event);
}

bool UinputInputPoster::postEvent(const MouseMoved &event)
{
    const auto step = pointer_.stepTo(event.location);
    if (!step ||
        !report({{EV_REL, REL_X, static_cast<int>(step->dx)}, {EV_REL, REL_Y, static_cast<int>(step->dy)}})) {
        return false;
    }
    pointer_.advance(*step);
    return true;
}

bool UinputInputPoster::postEvent(const KeyEvent &event)
{
    if (event.isDown) {
        return heldKey_.press(event.virtualKeyCode, silentKeys_(event.virtualKeyCode));
    }
    const auto carrier = heldKey_.release(event.virtualKeyCode);
    return carrier && report({{EV_KEY, *carrier, 1}, {EV_SYN, SYN_REPORT, 0}, {EV_KEY, *carrier, 0}});
}

bool UinputInputPoster::postEvent(const ScrollPixels &event)
{
    if (event.dy == 0) {
        return true; // the kernel drops a movement by nothing
    }
    const auto distance =
        std::clamp(std::abs(std::int64_t{event.dy}) * unitsPerPixel, fewestUnits, mostUnits);
    return report({{EV_REL, REL_HWHEEL_HI_RES, static_cast<int>(event.dy > 0 ? distance : -distance)}});
}

bool UinputInputPoster::report(std::initializer_list<Value> values)
{
    std::vector<input_event> events;
    const auto append = [&events](const Value &value) {
        input_event event{};
        event.type = static_cast<std::uint16_t>(value.type);
        event.code = static_cast<std::uint16_t>(value.code);
        event.value = value.value;
        events.push_back(event);
    };
    std::ranges::for_each(values, append);
    append({EV_SYN, SYN_REPORT, 0});
    const int error = file_->write(events);
    isOpen_ = error == 0 || error == EAGAIN;
    return error == 0;
}

} // namespace platform
