#include "Tests/Support/XRootMessages.h"

#include <algorithm>

namespace testsupport {

XRootMessages::XRootMessages(const QString &display)
    : client_(display)
{
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(client_.get(), client_.root(), XCB_CW_EVENT_MASK, &mask);
    client_.sync();
}

void XRootMessages::takeEvents()
{
    while (const auto event = XAnswer<xcb_generic_event_t>(xcb_poll_for_event(client_.get()))) {
        if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE) {
            messages_.push_back(reinterpret_cast<const xcb_client_message_event_t &>(*event)); // NOLINT
        }
    }
}

std::vector<XRootMessages::Message> XRootMessages::ofType(const QByteArray &type)
{
    takeEvents();
    const auto wanted = client_.atom(type);
    std::vector<Message> chosen;
    for (const auto &message : messages_) {
        if (message.type == wanted && message.format == 32) {
            auto &added = chosen.emplace_back();
            added.window = message.window;
            std::copy_n(std::begin(message.data.data32), added.data.size(), added.data.begin());
        }
    }
    return chosen;
}

QByteArrayList XRootMessages::startupTexts()
{
    takeEvents();
    const auto begin = client_.atom("_NET_STARTUP_INFO_BEGIN");
    const auto more = client_.atom("_NET_STARTUP_INFO");
    QByteArrayList texts;
    for (const auto &message : messages_) {
        if (message.type == begin) {
            texts.append(QByteArray());
        }
        if ((message.type == begin || message.type == more) && !texts.isEmpty()) {
            const auto *piece = reinterpret_cast<const char *>(std::begin(message.data.data8)); // NOLINT
            texts.last().append(piece, static_cast<qsizetype>(qstrnlen(piece, sizeof message.data)));
        }
    }
    return texts;
}

} // namespace testsupport
