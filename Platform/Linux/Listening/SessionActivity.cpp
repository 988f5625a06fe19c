#include "Platform/Linux/Listening/SessionActivity.h"

#include <utility>

namespace platform {

SessionActivity::SessionActivity(std::function<void()> changed)
    : changed_(std::move(changed))
    , session_(qgetenv("XDG_SESSION_ID"))
{
    sd_login_monitor *monitor = nullptr;
    if (session_.isEmpty() || sd_login_monitor_new("session", &monitor) < 0) {
        return;
    }
    monitor_.reset(monitor);
    // Asked once it is watched, so that no change is missed.
    const int answer = sd_session_is_active(session_.constData());
    if (answer < 0) {
        return;
    }
    isActive_ = answer > 0;
    notifier_.emplace(sd_login_monitor_get_fd(monitor_.get()), QSocketNotifier::Read);
    QObject::connect(&*notifier_, &QSocketNotifier::activated, &*notifier_, [this] { follow(); });
}

void SessionActivity::follow()
{
    sd_login_monitor_flush(monitor_.get());
    const bool isActive = sd_session_is_active(session_.constData()) > 0;
    if (std::exchange(isActive_, isActive) != isActive) {
        changed_();
    }
}

} // namespace platform
