// What programs tell the window manager and the pagers of a display.
#pragma once

#include "Tests/Support/XClient.h"

#include <QByteArrayList>

#include <array>

namespace testsupport {

// Listens to the client messages on the root window from the moment it is made. One thread at a time.
class XRootMessages
{
public:
    struct Message
    {
        xcb_window_t window = XCB_WINDOW_NONE;
        std::array<std::uint32_t, 5> data{};
    };

    explicit XRootMessages(const QString &display);

    // The messages of this type, "_NET_ACTIVE_WINDOW" for instance, oldest first. Never waits.
    [[nodiscard]] std::vector<Message> ofType(const QByteArray &type);
    // The texts that were sent by the startup notification protocol, such as "remove: ID=1".
    [[nodiscard]] QByteArrayList startupTexts();

private:
    void takeEvents();

    XClient client_;
    std::vector<xcb_client_message_event_t> messages_;
};

} // namespace testsupport
