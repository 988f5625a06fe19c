#include "Platform/Linux/X11/XButtons.h"

namespace platform {

namespace {

constexpr std::size_t left = 1;
constexpr std::size_t right = 3;
constexpr std::size_t firstWheel = 4;
constexpr std::size_t lastWheel = 7;

} // namespace

XButtons::XButtons(const XConnection &connection)
    : connection_(connection)
{
    readMeanings();
    readHeld();
}

void XButtons::readMeanings()
{
    auto *x = connection_.get();
    const auto reply = xReply(xcb_get_pointer_mapping_reply, x, xcb_get_pointer_mapping_unchecked(x));
    if (reply) {
        const auto *map = xcb_get_pointer_mapping_map(reply.get());
        meanings_.assign(map, map + xcb_get_pointer_mapping_map_length(reply.get()));
    }
    areMeaningsStale_ = false;
}

void XButtons::readHeld()
{
    auto *x = connection_.get();
    const auto reply =
        xReply(xcb_query_pointer_reply, x, xcb_query_pointer_unchecked(x, connection_.rootWindow()));
    const unsigned mask = reply ? reply->mask : 0;
    for (std::size_t button = 1; button < firstWheel; ++button) {
        held_.set(button, ((mask >> (button - 1)) & XCB_BUTTON_MASK_1) != 0);
    }
}

void XButtons::take(const xcb_generic_event_t &event)
{
    const auto &mapping = reinterpret_cast<const xcb_mapping_notify_event_t &>(event); // NOLINT
    if ((event.response_type & 0x7F) == XCB_MAPPING_NOTIFY && mapping.request == XCB_MAPPING_POINTER) {
        areMeaningsStale_ = true;
    }
}

// Raw events name the button as the device does.
std::uint8_t XButtons::meaningOf(std::uint32_t button)
{
    if (areMeaningsStale_) {
        readMeanings();
    }
    const bool isKnown = button >= 1 && button <= meanings_.size();
    return isKnown ? meanings_[button - 1] : static_cast<std::uint8_t>(button);
}

HeldButtons XButtons::held() const
{
    auto others = held_;
    others.reset(0); // a button that means nothing
    others.reset(left);
    others.reset(right);
    for (auto wheel = firstWheel; wheel <= lastWheel; ++wheel) {
        others.reset(wheel);
    }
    return {held_[left], held_[right], others.any()};
}

} // namespace platform
