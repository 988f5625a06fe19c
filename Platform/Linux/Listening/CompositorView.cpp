#include "Platform/Linux/Listening/SessionView.h"
#include "Platform/Linux/Wayland/Keymap.h"
#include "Platform/Linux/Wayland/SeatKeyboard.h"
#include "Platform/Linux/Wayland/WaylandGlobals.h"

#include <optional>
#include <vector>

namespace platform {

namespace {

constexpr std::chrono::milliseconds patience(200);
constexpr std::uint32_t outputVersion = 2; // the first with a scale

// A screen of the session.
class Output
{
public:
    explicit Output(WaylandObject<wl_output> output)
        : output_(std::move(output))
    {
        wl_output_add_listener(output_.get(), &listener, this);
    }
    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;

    // In the coordinates of the pointer.
    [[nodiscard]] QRectF area() const
    {
        const bool isOnItsSide = (transform_ & WL_OUTPUT_TRANSFORM_90) != 0;
        return {QPointF(place_), QSizeF(isOnItsSide ? size_.transposed() : size_) / scale_};
    }

private:
    static const wl_output_listener listener;

    WaylandObject<wl_output> output_;
    QPoint place_;
    QSize size_;
    std::int32_t transform_ = WL_OUTPUT_TRANSFORM_NORMAL;
    std::int32_t scale_ = 1;
};

const wl_output_listener Output::listener{
    .geometry =
        [](void *self, wl_output * /*output*/, std::int32_t x, std::int32_t y, std::int32_t /*width*/,
           std::int32_t /*height*/, std::int32_t /*subpixel*/, const char * /*make*/, const char * /*model*/,
           std::int32_t transform) {
            auto &output = *static_cast<Output *>(self);
            output.place_ = {x, y};
            output.transform_ = transform;
        },
    .mode =
        [](void *self, wl_output * /*output*/, std::uint32_t flags, std::int32_t width, std::int32_t height,
           std::int32_t /*refresh*/) {
            if ((flags & WL_OUTPUT_MODE_CURRENT) != 0) {
                static_cast<Output *>(self)->size_ = {width, height};
            }
        },
    .done = [](void * /*self*/, wl_output * /*output*/) {},
    .scale = [](void *self, wl_output * /*output*/,
                std::int32_t factor) { static_cast<Output *>(self)->scale_ = factor > 0 ? factor : 1; },
    .name = nullptr,
    .description = nullptr,
};

class CompositorView final : public SessionView
{
public:
    CompositorView()
    {
        if (!connection_.isOpen()) {
            return;
        }
        const auto deadline = WaylandConnection::Clock::now() + patience;
        globals_.emplace(connection_);
        if (!connection_.roundTrip(deadline)) {
            return;
        }
        bind();
        // One for the seat's capabilities, one for the keymap that is asked for thereupon.
        static_cast<void>(connection_.roundTrip(deadline) && connection_.roundTrip(deadline));
        connection_.watch();
    }

    [[nodiscard]] QByteArray changedKeymap() override
    {
        connection_.drain();
        connection_.flush();
        const auto count = keyboard_ ? keyboard_->keymapCount() : 0;
        if (count == keymapCount_) {
            return {};
        }
        const auto text = count > 0 ? keyboard_->keymapText() : QByteArray();
        const bool isFirst = keymapCount_ == neverAsked;
        keymapCount_ = count;
        return text.isEmpty() && isFirst ? defaultKeymapText() : text;
    }

    [[nodiscard]] QRectF desktop() override
    {
        connection_.drain();
        QRectF desktop;
        for (const auto &output : outputs_) {
            desktop |= output->area();
        }
        return desktop;
    }

private:
    static constexpr int neverAsked = -1;

    void bind()
    {
        if (auto seat = globals_->bind<wl_seat>(wl_seat_interface, SeatKeyboard::newestVersion)) {
            keyboard_.emplace(std::move(seat));
        }
        while (auto output = globals_->bindNext<wl_output>(wl_output_interface, outputVersion)) {
            outputs_.push_back(std::make_unique<Output>(std::move(output)));
        }
    }

    WaylandConnection connection_;
    std::optional<WaylandGlobals> globals_;
    std::optional<SeatKeyboard> keyboard_;
    std::vector<std::unique_ptr<Output>> outputs_;
    int keymapCount_ = neverAsked;
};

} // namespace

std::unique_ptr<SessionView> openCompositorView()
{
    return std::make_unique<CompositorView>();
}

} // namespace platform
