#include "Platform/Linux/X11/XKeyText.h"

#include "Platform/Linux/X11/Xkb.h"

#include <xkbcommon/xkbcommon-x11.h>

namespace platform {

namespace {

constexpr std::uint16_t wantedEvents =
    XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY | XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
constexpr std::uint16_t layoutParts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                                      XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_KEY_ACTIONS |
                                      XCB_XKB_MAP_PART_VIRTUAL_MODS | XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
// Not the pointer's buttons: they would wake the program for nothing.
constexpr std::uint16_t stateParts = XCB_XKB_STATE_PART_MODIFIER_BASE | XCB_XKB_STATE_PART_MODIFIER_LATCH |
                                     XCB_XKB_STATE_PART_MODIFIER_LOCK | XCB_XKB_STATE_PART_GROUP_BASE |
                                     XCB_XKB_STATE_PART_GROUP_LATCH | XCB_XKB_STATE_PART_GROUP_LOCK;

xcb_xkb_select_events_details_t wantedDetails()
{
    xcb_xkb_select_events_details_t details{};
    details.affectNewKeyboard = XCB_XKB_NKN_DETAIL_KEYCODES;
    details.newKeyboardDetails = XCB_XKB_NKN_DETAIL_KEYCODES;
    details.affectState = stateParts;
    details.stateDetails = stateParts;
    return details;
}

// The event and the reply name the parts alike.
template <class Source> KeyText::Components componentsOf(const Source &source)
{
    return {source.baseMods,
            source.latchedMods,
            source.lockedMods,
            static_cast<xkb_layout_index_t>(source.baseGroup),
            static_cast<xkb_layout_index_t>(source.latchedGroup),
            static_cast<xkb_layout_index_t>(source.lockedGroup)};
}

} // namespace

std::unique_ptr<XKeyText> XKeyText::create(const XConnection &connection)
{
    std::unique_ptr<XKeyText> keyboard(new XKeyText(connection));
    return keyboard->open() ? std::move(keyboard) : nullptr;
}

XKeyText::XKeyText(const XConnection &connection)
    : connection_(connection)
{}

// What changes meanwhile is told by an event, which is taken later.
bool XKeyText::open()
{
    return text_.context() &&
           xkb_x11_setup_xkb_extension(connection_.get(), XKB_X11_MIN_MAJOR_XKB_VERSION,
                                       XKB_X11_MIN_MINOR_XKB_VERSION, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS,
                                       nullptr, nullptr, &firstEvent_, nullptr) == 1 &&
           (device_ = xkb_x11_get_core_keyboard_device_id(connection_.get())) >= 0 && selectEvents() &&
           readLayout() && readState();
}

bool XKeyText::selectEvents()
{
    const auto details = wantedDetails();
    const auto cookie =
        xcb_xkb_select_events_aux_checked(connection_.get(), static_cast<xcb_xkb_device_spec_t>(device_),
                                          wantedEvents, 0, 0, layoutParts, layoutParts, &details);
    return !XReply<xcb_generic_error_t>(xcb_request_check(connection_.get(), cookie));
}

bool XKeyText::readLayout()
{
    XkbPointer<xkb_keymap> keymap(xkb_x11_keymap_new_from_device(text_.context(), connection_.get(), device_,
                                                                 XKB_KEYMAP_COMPILE_NO_FLAGS));
    const bool isRead = keymap != nullptr;
    text_.setKeymap(std::move(keymap));
    return isRead;
}

bool XKeyText::readState()
{
    auto *x = connection_.get();
    const auto state = xReply(xcb_xkb_get_state_reply, x,
                              xcb_xkb_get_state_unchecked(x, static_cast<xcb_xkb_device_spec_t>(device_)));
    if (state) {
        text_.setComponents(componentsOf(*state));
    }
    return state != nullptr;
}

void XKeyText::take(const xcb_generic_event_t &event)
{
    if ((event.response_type & 0x7F) != firstEvent_) {
        return;
    }
    // All events of the extension have one number, and say in their second byte what they are.
    switch (event.pad0) {
    case XCB_XKB_STATE_NOTIFY:
        text_.setComponents(
            componentsOf(reinterpret_cast<const xcb_xkb_state_notify_event_t &>(event))); // NOLINT
        break;
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
    case XCB_XKB_MAP_NOTIFY:
        isLayoutStale_ = true;
        break;
    default:
        break;
    }
}

KeyText::Press XKeyText::press(xcb_keycode_t key)
{
    if (isLayoutStale_) {
        isLayoutStale_ = !readLayout();
    }
    return text_.press(key);
}

} // namespace platform
