#include "Platform/Linux/Idle/IdleClocks.h"
#include "Platform/Linux/Wayland/WaylandGlobals.h"

#include <ext-idle-notify-v1-client-protocol.h>
#include <kde-idle-client-protocol.h>

#include <optional>

namespace platform {

namespace {

constexpr std::chrono::milliseconds patience(500);
constexpr std::uint32_t timeout = 1000; // milliseconds

// Is told when nothing happened for a second, and when something does after that.
class CompositorIdleClock final : public IdleClock
{
public:
    // Whether the compositor has such a clock.
    [[nodiscard]] bool open()
    {
        if (!connection_.isOpen()) {
            return false;
        }
        const auto deadline = WaylandConnection::Clock::now() + patience;
        globals_.emplace(connection_);
        if (!connection_.roundTrip(deadline)) {
            return false;
        }
        seat_ = globals_->bind<wl_seat>(wl_seat_interface, 1);
        if (!seat_ || !(askExt() || askKde())) {
            return false;
        }
        connection_.watch();
        return connection_.flush();
    }

    [[nodiscard]] QString name() const override { return name_; }

    [[nodiscard]] bool isIdle() override
    {
        connection_.drain();
        return isIdle_ && connection_.isOpen();
    }

private:
    bool askExt()
    {
        const auto notifier = globals_->bind<ext_idle_notifier_v1>(ext_idle_notifier_v1_interface, 1);
        if (!notifier) {
            return false;
        }
        static constexpr ext_idle_notification_v1_listener listener{
            .idled = [](void *clock, ext_idle_notification_v1 * /*notification*/) { set(clock, true); },
            .resumed = [](void *clock, ext_idle_notification_v1 * /*notification*/) { set(clock, false); },
        };
        notification_.reset(ext_idle_notifier_v1_get_idle_notification(notifier.get(), timeout, seat_.get()));
        ext_idle_notification_v1_add_listener(notification_.get(), &listener, this);
        name_ = QString::fromLatin1(ext_idle_notifier_v1_interface.name);
        return true;
    }

    bool askKde()
    {
        const auto idle = globals_->bind<org_kde_kwin_idle>(org_kde_kwin_idle_interface, 1);
        if (!idle) {
            return false;
        }
        static constexpr org_kde_kwin_idle_timeout_listener listener{
            .idle = [](void *clock, org_kde_kwin_idle_timeout * /*timeout*/) { set(clock, true); },
            .resumed = [](void *clock, org_kde_kwin_idle_timeout * /*timeout*/) { set(clock, false); },
        };
        timeout_.reset(org_kde_kwin_idle_get_idle_timeout(idle.get(), seat_.get(), timeout));
        org_kde_kwin_idle_timeout_add_listener(timeout_.get(), &listener, this);
        name_ = QString::fromLatin1(org_kde_kwin_idle_interface.name);
        return true;
    }

    static void set(void *clock, bool isIdle) { static_cast<CompositorIdleClock *>(clock)->isIdle_ = isIdle; }

    WaylandConnection connection_;
    std::optional<WaylandGlobals> globals_;
    WaylandObject<wl_seat> seat_;
    WaylandObject<ext_idle_notification_v1> notification_;
    WaylandObject<org_kde_kwin_idle_timeout> timeout_;
    QString name_;
    bool isIdle_ = false;
};

} // namespace

std::unique_ptr<IdleClock> openCompositorClock()
{
    auto clock = std::make_unique<CompositorIdleClock>();
    return clock->open() ? std::move(clock) : nullptr;
}

} // namespace platform
