// Whether somebody has a name on the bus.
#pragma once

#include "Platform/Linux/Bus/BusConnection.h"

namespace platform {

// Followed live, from the answer to the first question on. Main thread.
class BusName final : public QObject
{
    Q_OBJECT

public:
    // REQUIRES: the connection outlives it; the name is written as it stands, without quotes.
    BusName(BusConnection &bus, const std::string &name);

    [[nodiscard]] bool isOwned() const { return isOwned_; }

Q_SIGNALS:
    // The first answer has come, whatever it is; and from then on: somebody has it, nobody has it any more,
    // or somebody else has it now.
    void ownerChanged();

private:
    int takeChange(sd_bus_message *message);
    int takeAnswer(sd_bus_message *message);
    void setIsOwned(bool isOwned);

    bool isOwned_ = false;
    BusSlot changes_;
    BusSlot question_;
};

} // namespace platform
