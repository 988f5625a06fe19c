#include "Platform/Linux/StatusNotifier/PanelTint.h"

namespace platform {

namespace {

constexpr int inkOpacity = 0xD9;

} // namespace

PanelTint::PanelTint(const Appearance &appearance)
    : appearance_(appearance)
{
    connect(&appearance, &Appearance::desktopChanged, this, &PanelTint::changed);
}

void PanelTint::follow(BusConnection &bus)
{
    shell_ = std::make_unique<BusName>(bus, "org.gnome.Shell");
    connect(shell_.get(), &BusName::ownerChanged, this, [this] { setIsShellThere(shell_->isOwned()); });
}

QColor PanelTint::ink() const
{
    const int tone = isShellThere_ || appearance_.desktopValues().isDark ? 255 : 0;
    return {tone, tone, tone, inkOpacity};
}

void PanelTint::setIsShellThere(bool isThere)
{
    if (isThere != isShellThere_) {
        isShellThere_ = isThere;
        Q_EMIT changed();
    }
}

} // namespace platform
