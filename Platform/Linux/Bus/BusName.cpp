#include "Platform/Linux/Bus/BusName.h"

#include "Platform/Linux/Bus/BusObject.h"

#include <cstring>

namespace platform {

namespace {

constexpr auto busService = "org.freedesktop.DBus";
constexpr auto busPath = "/org/freedesktop/DBus";

std::string changesOf(const std::string &name)
{
    return std::string("type='signal',sender='") + busService + "',path='" + busPath + "',interface='" +
           busService + "',member='NameOwnerChanged',arg0='" + name + "'";
}

} // namespace

BusName::BusName(BusConnection &bus, const std::string &name)
    : changes_(bus.watch(changesOf(name), handle<&BusName::takeChange>, this))
{
    const auto call = bus.newCall({busService, busPath, busService, "NameHasOwner"});
    BusWriter(call.get()).add(name);
    question_ = bus.call(call.get(), handle<&BusName::takeAnswer>, this);
}

// Anybody may send us a signal of that name.
int BusName::takeChange(sd_bus_message *message)
{
    const char *sender = sd_bus_message_get_sender(message);
    BusReader change(message);
    change.passOver("ss");
    const bool isOwned = !change.text().empty();
    if (change.isGood() && sender && std::strcmp(sender, busService) == 0) {
        question_.reset(); // the answer is older
        setIsOwned(isOwned);
    }
    return 0;
}

int BusName::takeAnswer(sd_bus_message *message)
{
    BusReader answer(message);
    const bool isOwned = answer.flag();
    if (answer.isGood()) {
        setIsOwned(isOwned);
    }
    return 0;
}

void BusName::setIsOwned(bool isOwned)
{
    isOwned_ = isOwned;
    Q_EMIT ownerChanged();
}

} // namespace platform
