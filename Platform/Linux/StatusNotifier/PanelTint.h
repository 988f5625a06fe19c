// The colour that template images have in the panel.
#pragma once

#include "Platform/Appearance.h"
#include "Platform/Linux/Bus/BusName.h"

namespace platform {

// No panel says whether it is light or dark. It is taken to look as the desktop does, except GNOME's, whose
// bar is dark in both appearances; that desktop is told by its name on the bus. Main thread; follows both
// live.
class PanelTint final : public QObject
{
    Q_OBJECT

public:
    // REQUIRES: the appearance outlives it.
    explicit PanelTint(const Appearance &appearance);

    // Asks there from now on. REQUIRES: the connection lives until it is left.
    void follow(BusConnection &bus);
    // What was heard last stays true.
    void leave() { shell_.reset(); }

    // White on a dark panel, black on a light one, at the opacity of the primary label colour.
    [[nodiscard]] QColor ink() const;

Q_SIGNALS:
    void changed();

private:
    void setIsShellThere(bool isThere);

    const Appearance &appearance_;
    std::unique_ptr<BusName> shell_;
    bool isShellThere_ = false;
};

} // namespace platform
