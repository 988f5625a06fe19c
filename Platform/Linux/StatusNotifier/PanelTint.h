// The colour that template images have in the panel.
#pragma once

#include "Platform/Appearance.h"

#include <QDBusConnection>
#include <QObject>

namespace platform {

// No panel says whether it is light or dark. It is taken to look as the desktop does, except GNOME's, whose
// bar is dark in both appearances; that desktop is told by its name on the bus. Main thread; follows both
// live.
class PanelTint final : public QObject
{
    Q_OBJECT

public:
    // REQUIRES: the appearance outlives it.
    PanelTint(const QDBusConnection &bus, const Appearance &appearance, QObject *parent = nullptr);

    // White on a dark panel, black on a light one, at the opacity of the primary label colour.
    [[nodiscard]] QColor ink() const;

Q_SIGNALS:
    void changed();

private:
    void setIsShellThere(bool isThere);

    const Appearance &appearance_;
    bool isShellThere_ = false;
};

} // namespace platform
