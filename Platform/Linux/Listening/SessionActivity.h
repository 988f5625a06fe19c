// Whether the user's session is the one at its seat, whose input the devices have.
#pragma once

#include <systemd/sd-login.h>

#include <QByteArray>
#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <optional>

namespace platform {

// Follows what the login manager tells of the session that XDG_SESSION_ID names: another user's may take the
// seat, and give it back. A session that ends is not active any more. Where there is no login manager, or it
// does not know the session, it counts as active for good. Asks files alone, and waits for nobody. One
// thread, which has a Qt event loop.
class SessionActivity
{
public:
    // `changed` comes from the event loop.
    explicit SessionActivity(std::function<void()> changed);
    SessionActivity(const SessionActivity &) = delete;
    SessionActivity &operator=(const SessionActivity &) = delete;

    [[nodiscard]] bool isActive() const { return isActive_; }

private:
    struct DropMonitor
    {
        void operator()(sd_login_monitor *monitor) const { sd_login_monitor_unref(monitor); }
    };

    void follow();

    std::function<void()> changed_;
    QByteArray session_;
    bool isActive_ = true;
    std::unique_ptr<sd_login_monitor, DropMonitor> monitor_;
    std::optional<QSocketNotifier> notifier_;
};

} // namespace platform
