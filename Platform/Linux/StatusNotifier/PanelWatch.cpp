#include "Platform/Linux/StatusNotifier/PanelWatch.h"

#include "Platform/Linux/Bus/BusObject.h"

#include <cerrno>

namespace platform {

namespace {

constexpr auto watcherName = "org.kde.StatusNotifierWatcher"; // its interface's, too
constexpr auto watcherPath = "/StatusNotifierWatcher";

std::string signalOf(const char *name)
{
    return std::string("type='signal',sender='") + watcherName + "',path='" + watcherPath + "',interface='" +
           watcherName + "',member='" + name + "'";
}

} // namespace

PanelWatch::PanelWatch(BusConnection &bus)
    : bus_(bus)
    , watcher_(bus, watcherName)
    , hostComes_(
          bus.watch(signalOf("StatusNotifierHostRegistered"), handle<&PanelWatch::takeHostChange>, this))
    , hostGoes_(
          bus.watch(signalOf("StatusNotifierHostUnregistered"), handle<&PanelWatch::takeHostChange>, this))
{
    connect(&bus, &BusConnection::ended, this, [this] { set(false, false); });
    connect(&watcher_, &BusName::ownerChanged, this, [this] {
        registration_.reset();
        hostQuestion_.reset();
        set(false, false);
        if (watcher_.isOwned()) {
            registerItem();
        }
    });
}

void PanelWatch::registerItem()
{
    isKnown_ = true;
    const auto call = bus_.newCall({watcherName, watcherPath, watcherName, "RegisterStatusNotifierItem"});
    BusWriter(call.get()).add(bus_.uniqueName());
    registration_ = bus_.call(call.get(), handle<&PanelWatch::takeRegistration>, this);
}

int PanelWatch::takeRegistration(sd_bus_message *answer)
{
    // A watcher that was too busy to answer in time may have taken it all the same.
    if (BusReader(answer).isGood() || sd_bus_message_get_errno(answer) == ETIMEDOUT) {
        set(true, hasHost_);
        askForHost();
    }
    return 0;
}

int PanelWatch::takeHostChange(sd_bus_message * /*signal*/)
{
    askForHost();
    return 0;
}

void PanelWatch::askForHost()
{
    const auto call = bus_.newCall({watcherName, watcherPath, "org.freedesktop.DBus.Properties", "Get"});
    BusWriter(call.get()).add(watcherName).add("IsStatusNotifierHostRegistered");
    hostQuestion_ = bus_.call(call.get(), handle<&PanelWatch::takeHost>, this);
}

int PanelWatch::takeHost(sd_bus_message *answer)
{
    BusReader reader(answer);
    bool hasHost = false;
    reader.variant("b", [&] { hasHost = reader.flag(); });
    set(hasWatcher_, hasHost || !reader.isGood());
    return 0;
}

void PanelWatch::set(bool hasWatcher, bool hasHost)
{
    const bool wasWatched = isWatched();
    hasWatcher_ = hasWatcher;
    hasHost_ = hasHost;
    if (isWatched() != wasWatched) {
        Q_EMIT changed();
    }
}

} // namespace platform
