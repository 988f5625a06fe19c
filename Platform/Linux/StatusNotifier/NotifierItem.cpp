#include "Platform/Linux/StatusNotifier/NotifierItem.h"

#include "Platform/Linux/Bus/BusObject.h"
#include "Platform/Linux/StatusNotifier/MenuService.h"

#include <array>
#include <cstring>
#include <utility>

namespace platform {

namespace {

constexpr auto itemPath = "/StatusNotifierItem";
constexpr auto interface = "org.kde.StatusNotifierItem";
constexpr auto pixmapsType = "a(iiay)";

// As it travels: alpha, red, green, blue, not premultiplied.
using Pixel = std::array<std::uint8_t, 4>;

// For each coverage.
std::array<Pixel, 256> pixelsOf(const QColor &ink)
{
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    std::array<Pixel, 256> pixels;
    for (std::size_t coverage = 0; coverage < pixels.size(); ++coverage) {
        const int alpha = static_cast<int>(coverage) * ink.alpha() / 255;
        pixels.at(coverage) = {byte(alpha), byte(ink.red()), byte(ink.green()), byte(ink.blue())};
    }
    return pixels;
}

void addPixels(BusWriter &value, const std::vector<std::uint8_t> &coverages,
               const std::array<Pixel, 256> &pixels)
{
    auto *place = value.addBytes(coverages.size() * sizeof(Pixel));
    if (!place) {
        return;
    }
    for (const auto coverage : coverages) {
        std::memcpy(place, &pixels[coverage], sizeof(Pixel));
        place += sizeof(Pixel);
    }
}

constexpr std::array table{
    sd_bus_vtable SD_BUS_VTABLE_START(0),
    sd_bus_vtable SD_BUS_PROPERTY("Category", "s", serveProperty<&NotifierItem::category>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("Id", "s", serveProperty<&NotifierItem::id>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("Title", "s", serveProperty<&NotifierItem::title>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("Status", "s", serveProperty<&NotifierItem::status>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("WindowId", "i", serveProperty<&NotifierItem::windowId>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("IconThemePath", "s", serveProperty<&NotifierItem::noText>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("Menu", "o", serveProperty<&NotifierItem::menu>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("ItemIsMenu", "b", serveProperty<&NotifierItem::itemIsMenu>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("IconName", "s", serveProperty<&NotifierItem::noText>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("IconPixmap", pixmapsType, serveProperty<&NotifierItem::iconPixmap>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("OverlayIconName", "s", serveProperty<&NotifierItem::noText>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("OverlayIconPixmap", pixmapsType, serveProperty<&NotifierItem::noPixmap>, 0,
                                  0),
    sd_bus_vtable SD_BUS_PROPERTY("AttentionIconName", "s", serveProperty<&NotifierItem::noText>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("AttentionIconPixmap", pixmapsType, serveProperty<&NotifierItem::noPixmap>,
                                  0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("AttentionMovieName", "s", serveProperty<&NotifierItem::noText>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("ToolTip", "(sa(iiay)ss)", serveProperty<&NotifierItem::toolTip>, 0, 0),
    sd_bus_vtable SD_BUS_METHOD("Activate", "ii", "", serve<&NotifierItem::activate>, 0),
    sd_bus_vtable SD_BUS_METHOD("ContextMenu", "ii", "", serve<&NotifierItem::ignore>, 0),
    sd_bus_vtable SD_BUS_METHOD("SecondaryActivate", "ii", "", serve<&NotifierItem::ignore>, 0),
    sd_bus_vtable SD_BUS_METHOD("Scroll", "is", "", serve<&NotifierItem::ignore>, 0),
    sd_bus_vtable SD_BUS_METHOD("ProvideXdgActivationToken", "s", "",
                                serve<&NotifierItem::takeActivationToken>, 0),
    sd_bus_vtable SD_BUS_SIGNAL("NewTitle", "", 0),
    sd_bus_vtable SD_BUS_SIGNAL("NewIcon", "", 0),
    sd_bus_vtable SD_BUS_SIGNAL("NewAttentionIcon", "", 0),
    sd_bus_vtable SD_BUS_SIGNAL("NewOverlayIcon", "", 0),
    sd_bus_vtable SD_BUS_SIGNAL("NewToolTip", "", 0),
    sd_bus_vtable SD_BUS_SIGNAL("NewStatus", "s", 0),
    sd_bus_vtable SD_BUS_VTABLE_END,
};

} // namespace

NotifierItem::NotifierItem(StatusItemIdentity identity)
    : identity_(std::move(identity))
{}

BusSlot NotifierItem::exportOn(BusConnection &bus)
{
    return bus.exportObject(itemPath, interface, table.data(), this);
}

void NotifierItem::announceIcon(BusConnection &bus)
{
    bus.send(bus.newSignal(itemPath, interface, "NewIcon").get());
}

void NotifierItem::menu(BusWriter &value) const
{
    value.addPath(hasMenu_ ? menuPath : noMenuPath);
}

void NotifierItem::iconPixmap(BusWriter &value) const
{
    const auto pixels = pixelsOf(ink_);
    value.array("(iiay)", [&] {
        for (const auto &picture : image_.representations) {
            value.structure("iiay", [&] {
                value.add(picture.width).add(picture.height);
                addPixels(value, picture.coverage, pixels);
            });
        }
    });
}

void NotifierItem::noPixmap(BusWriter &value) const
{
    value.array("(iiay)", [] {});
}

void NotifierItem::toolTip(BusWriter &value) const
{
    value.structure("sa(iiay)ss", [&] {
        value.add("");
        noPixmap(value);
        value.add(identity_.title).add("");
    });
}

void NotifierItem::activate(BusReader &arguments, BusWriter & /*answer*/)
{
    const int x = arguments.number();
    const int y = arguments.number();
    const StatusClick click{x, y, std::exchange(token_, {})};
    const auto call = [this, click] {
        if (const auto handler = clickHandler_) {
            handler(click);
        }
    };
    QMetaObject::invokeMethod(this, call, Qt::QueuedConnection);
}

void NotifierItem::ignore(BusReader & /*arguments*/, BusWriter & /*answer*/) {}

void NotifierItem::takeActivationToken(BusReader &arguments, BusWriter & /*answer*/)
{
    token_ = arguments.text();
}

} // namespace platform
