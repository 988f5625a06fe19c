#include "Platform/Linux/Listening/SessionOutput.h"
#include "Platform/Linux/Listening/SessionView.h"
#include "Platform/Linux/Wayland/Keymap.h"
#include "Platform/Linux/Wayland/SeatKeyboard.h"
#include "Platform/Linux/Wayland/TypingKeymap.h"
#include "Platform/Linux/Wayland/WaylandGlobals.h"

#include <xdg-output-unstable-v1-client-protocol.h>

#include <optional>
#include <vector>

namespace platform {

namespace {

constexpr std::chrono::milliseconds patience(200);

class CompositorView final : public SessionView
{
public:
    CompositorView()
    {
        if (!connection_.isOpen()) {
            return;
        }
        globals_.emplace(connection_);
        arrival_.reset(wl_display_sync(connection_.get()));
        wl_callback_add_listener(arrival_.get(), &arrivalListener, this);
        const auto deadline = WaylandConnection::Clock::now() + patience;
        // One for what is offered, one for the seat's capabilities, one for the keymap that is asked for
        // thereupon. What misses the deadline is taken in when it comes.
        static_cast<void>(connection_.roundTrip(deadline) && connection_.roundTrip(deadline) &&
                          connection_.roundTrip(deadline));
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
        const auto text = count > 0 ? userKeymapText() : QByteArray();
        const bool isFirst = keymapCount_ == neverAsked;
        keymapCount_ = count;
        return text.isEmpty() && isFirst ? defaultKeymapText() : text;
    }

    [[nodiscard]] QRectF desktop() override
    {
        connection_.drain();
        followOutputs();
        QRectF desktop;
        for (const auto &output : outputs_) {
            desktop |= output->area();
        }
        return desktop;
    }

private:
    static constexpr int neverAsked = -1;

    // Empty where the last one is a program's that types: what the user presses meanwhile is of their layout.
    [[nodiscard]] QByteArray userKeymapText() const
    {
        const auto text = keyboard_->keymapText();
        return TypingKeymap::isText(text) ? QByteArray() : text;
    }

    // All that is offered has arrived.
    void bind()
    {
        if (auto seat = globals_->bind<wl_seat>(wl_seat_interface, SeatKeyboard::newestVersion)) {
            keyboard_.emplace(std::move(seat));
        }
        logicalOutputs_ = globals_->bind<zxdg_output_manager_v1>(zxdg_output_manager_v1_interface,
                                                                 SessionOutput::newestLogicalVersion);
        isBound_ = true;
        followOutputs();
    }

    // Screens come and go.
    void followOutputs()
    {
        if (!isBound_) {
            return;
        }
        std::erase_if(outputs_, [this](const auto &output) { return !globals_->isOffered(output->get()); });
        while (auto output =
                   globals_->bindNext<wl_output>(wl_output_interface, SessionOutput::newestVersion)) {
            outputs_.push_back(std::make_unique<SessionOutput>(std::move(output), logicalOutputs_.get()));
        }
        connection_.flush();
    }

    static const wl_callback_listener arrivalListener;

    WaylandConnection connection_;
    std::optional<WaylandGlobals> globals_;
    WaylandObject<wl_callback> arrival_;
    bool isBound_ = false;
    std::optional<SeatKeyboard> keyboard_;
    WaylandObject<zxdg_output_manager_v1> logicalOutputs_;
    std::vector<std::unique_ptr<SessionOutput>> outputs_;
    int keymapCount_ = neverAsked;
};

const wl_callback_listener CompositorView::arrivalListener{
    [](void *self, wl_callback * /*callback*/, std::uint32_t /*serial*/) {
        static_cast<CompositorView *>(self)->bind();
    }};

} // namespace

std::unique_ptr<SessionView> openCompositorView()
{
    return std::make_unique<CompositorView>();
}

} // namespace platform
