#include "Tests/Support/XClient.h"

namespace testsupport {

namespace {

constexpr std::uint32_t longestProperty = 1U << 16; // in units of four bytes

} // namespace

XClient::XClient(const QString &display)
    : connection_(xcb_connect(display.toLatin1().constData(), nullptr))
{
    if (isOpen()) {
        screen_ = xcb_setup_roots_iterator(xcb_get_setup(get())).data;
    }
}

xcb_atom_t XClient::atom(const QByteArray &name) const
{
    const auto cookie = xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const auto reply = xAnswer(xcb_intern_atom_reply, get(), cookie);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

XAnswer<xcb_get_property_reply_t> XClient::property(xcb_window_t window, const QByteArray &name) const
{
    return xAnswer(
        xcb_get_property_reply, get(),
        xcb_get_property(get(), 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty));
}

std::vector<std::uint32_t> XClient::cardinals(xcb_window_t window, const QByteArray &name) const
{
    const auto reply = property(window, name);
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto *values = static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

QByteArray XClient::bytes(xcb_window_t window, const QByteArray &name) const
{
    const auto reply = property(window, name);
    if (!reply) {
        return {};
    }
    return {static_cast<const char *>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

void XClient::tellWindowManager(xcb_window_t window, const QByteArray &type,
                                const std::array<std::uint32_t, 5> &data) const
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(type);
    std::copy(data.begin(), data.end(), std::begin(message.data.data32));
    xcb_send_event(get(), 0, root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&message)); // NOLINT: what the request takes
    sync();
}

void XClient::sync() const
{
    xAnswer(xcb_get_input_focus_reply, get(), xcb_get_input_focus(get()));
}

} // namespace testsupport
