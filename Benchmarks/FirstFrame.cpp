#include "Benchmarks/FirstFrame.h"

#include "Benchmarks/Report.h"

#include <xcb/damage.h>

#include <poll.h>

#include <bit>

namespace benchmarks {

namespace {

using Event = testsupport::XAnswer<xcb_generic_event_t>;

constexpr std::uint8_t sentFlag = 0x80; // set in the type of events that a client sent

std::uint8_t typeOf(const xcb_generic_event_t &event)
{
    return event.response_type & static_cast<std::uint8_t>(~sentFlag);
}

} // namespace

FirstFrameWatch::FirstFrameWatch(const QString &display)
    : client_(display)
{
    auto *x = client_.get();
    const auto *extension = xcb_get_extension_data(x, &xcb_damage_id);
    if (!extension || !extension->present) {
        throw NotMeasured("the X server reports no damage");
    }
    damageEvent_ = static_cast<std::uint8_t>(extension->first_event + XCB_DAMAGE_NOTIFY);
    testsupport::xAnswer(xcb_damage_query_version_reply, x, xcb_damage_query_version(x, 1, 1));
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
    xcb_change_window_attributes(x, client_.root(), XCB_CW_EVENT_MASK, &events);
    client_.sync();
}

std::optional<FirstFrameWatch::Clock::time_point>
FirstFrameWatch::awaitFirstFrame(std::chrono::milliseconds timeout)
{
    const auto deadline = Clock::now() + timeout;
    damage_ = 0;
    firstFrame_.reset();
    while (!firstFrame_ && client_.isOpen() && Clock::now() < deadline) {
        waitForServer(deadline);
        while (const Event event{xcb_poll_for_event(client_.get())}) {
            handle(*event);
        }
        xcb_flush(client_.get());
    }
    return firstFrame_;
}

void FirstFrameWatch::waitForServer(Clock::time_point deadline) const
{
    pollfd server{xcb_get_file_descriptor(client_.get()), POLLIN, 0};
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    poll(&server, 1, static_cast<int>(std::max<std::int64_t>(left.count(), 0)));
}

void FirstFrameWatch::handle(const xcb_generic_event_t &event)
{
    if (typeOf(event) == XCB_MAP_REQUEST) {
        map(*std::bit_cast<const xcb_map_request_event_t *>(&event));
    } else if (typeOf(event) == XCB_CONFIGURE_REQUEST) {
        configure(*std::bit_cast<const xcb_configure_request_event_t *>(&event));
    } else if (typeOf(event) == damageEvent_ && !firstFrame_ &&
               std::bit_cast<const xcb_damage_notify_event_t *>(&event)->damage == damage_) {
        firstFrame_ = Clock::now();
    }
}

void FirstFrameWatch::map(const xcb_map_request_event_t &request)
{
    auto *x = client_.get();
    if (damage_ == 0) {
        damage_ = xcb_generate_id(x);
        xcb_damage_create(x, damage_, request.window, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    }
    xcb_map_window(x, request.window);
}

void FirstFrameWatch::configure(const xcb_configure_request_event_t &request)
{
    const xcb_configure_window_value_list_t values{
        request.x,       request.y,         request.width, request.height, request.border_width,
        request.sibling, request.stack_mode};
    xcb_configure_window_aux(client_.get(), request.window, request.value_mask, &values);
}

} // namespace benchmarks
