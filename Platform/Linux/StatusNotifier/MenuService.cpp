#include "Platform/Linux/StatusNotifier/MenuService.h"

#include "Platform/Linux/Bus/BusObject.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <numeric>

namespace platform {

namespace {

constexpr auto interface = "com.canonical.dbusmenu";
constexpr int rootId = 0;

constexpr std::array table{
    sd_bus_vtable SD_BUS_VTABLE_START(0),
    sd_bus_vtable SD_BUS_PROPERTY("Version", "u", serveProperty<&MenuService::version>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("TextDirection", "s", serveProperty<&MenuService::textDirection>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("Status", "s", serveProperty<&MenuService::status>, 0, 0),
    sd_bus_vtable SD_BUS_PROPERTY("IconThemePath", "as", serveProperty<&MenuService::iconThemePath>, 0, 0),
    sd_bus_vtable SD_BUS_METHOD("GetLayout", "iias", "u(ia{sv}av)", serve<&MenuService::getLayout>, 0),
    sd_bus_vtable SD_BUS_METHOD("GetGroupProperties", "aias", "a(ia{sv})",
                                serve<&MenuService::getGroupProperties>, 0),
    sd_bus_vtable SD_BUS_METHOD("GetProperty", "is", "v", serve<&MenuService::getProperty>, 0),
    sd_bus_vtable SD_BUS_METHOD("Event", "isvu", "", serve<&MenuService::handleEvent>, 0),
    sd_bus_vtable SD_BUS_METHOD("EventGroup", "a(isvu)", "ai", serve<&MenuService::handleEvents>, 0),
    sd_bus_vtable SD_BUS_METHOD("AboutToShow", "i", "b", serve<&MenuService::aboutToShow>, 0),
    sd_bus_vtable SD_BUS_METHOD("AboutToShowGroup", "ai", "aiai", serve<&MenuService::aboutToShowGroup>, 0),
    sd_bus_vtable SD_BUS_SIGNAL("ItemsPropertiesUpdated", "a(ia{sv})a(ias)", 0),
    sd_bus_vtable SD_BUS_SIGNAL("LayoutUpdated", "ui", 0),
    sd_bus_vtable SD_BUS_SIGNAL("ItemActivationRequested", "iu", 0),
    sd_bus_vtable SD_BUS_VTABLE_END,
};

} // namespace

BusSlot MenuService::exportOn(BusConnection &bus)
{
    return bus.exportObject(menuPath, interface, table.data(), this);
}

void MenuService::announceLayout(BusConnection &bus) const
{
    const auto signal = bus.newSignal(menuPath, interface, "LayoutUpdated");
    BusWriter(signal.get()).add(revision_).add(rootId);
    bus.send(signal.get());
}

void MenuService::setItems(std::vector<StatusMenuItem> items)
{
    firstId_ += static_cast<int>(items_.size());
    items_ = std::move(items);
    ++revision_;
}

void MenuService::textDirection(BusWriter &value) const
{
    value.add(QGuiApplication::layoutDirection() == Qt::RightToLeft ? "rtl" : "ltr");
}

void MenuService::iconThemePath(BusWriter &value) const
{
    value.array("s", [] {});
}

void MenuService::getLayout(BusReader &arguments, BusWriter &answer)
{
    const int parentId = arguments.number();
    const int depth = arguments.number();
    const auto names = arguments.texts();
    answer.add(revision_);
    addNode(answer, parentId, names, parentId == rootId && depth != 0);
}

void MenuService::getGroupProperties(BusReader &arguments, BusWriter &answer)
{
    auto ids = arguments.numbers();
    const auto names = arguments.texts();
    if (ids.empty()) {
        ids = itemIds();
    }
    answer.array("(ia{sv})", [&] {
        for (const int id : ids) {
            if (has(id)) {
                answer.structure("ia{sv}", [&] {
                    answer.add(id);
                    addProperties(answer, propertiesOf(id), names);
                });
            }
        }
    });
}

void MenuService::getProperty(BusReader &arguments, BusWriter &answer)
{
    const int id = arguments.number();
    const auto name = arguments.text();
    const auto properties = propertiesOf(id);
    const auto found = std::find_if(properties.begin(), properties.end(),
                                    [name](const auto &property) { return property.name == name; });
    addValue(answer, found == properties.end() ? MenuProperty{"", 's', {}} : *found);
}

void MenuService::handleEvent(BusReader &arguments, BusWriter & /*answer*/)
{
    static_cast<void>(takeEvent(arguments));
}

void MenuService::handleEvents(BusReader &arguments, BusWriter &answer)
{
    std::vector<int> errors;
    arguments.structures("isvu", [&] {
        if (const int id = takeEvent(arguments); !has(id)) {
            errors.push_back(id);
        }
    });
    answer.add(errors);
}

void MenuService::aboutToShow(BusReader & /*arguments*/, BusWriter &answer)
{
    answer.add(false);
}

void MenuService::aboutToShowGroup(BusReader &arguments, BusWriter &answer)
{
    auto errors = arguments.numbers();
    std::erase_if(errors, [this](int id) { return has(id); });
    answer.add(std::vector<int>()).add(errors);
}

bool MenuService::has(int id) const
{
    return id == rootId || find(id);
}

const StatusMenuItem *MenuService::find(int id) const
{
    if (id < firstId_) {
        return nullptr; // any number may come from the bus, so that the difference could be none
    }
    const auto index = static_cast<std::size_t>(id - firstId_);
    return index < items_.size() ? &items_[index] : nullptr;
}

std::vector<int> MenuService::itemIds() const
{
    std::vector<int> ids(items_.size());
    std::iota(ids.begin(), ids.end(), firstId_);
    return ids;
}

MenuProperties MenuService::propertiesOf(int id) const
{
    if (id == rootId) {
        return rootProperties();
    }
    const auto *item = find(id);
    return item ? platform::propertiesOf(*item) : MenuProperties();
}

void MenuService::addNode(BusWriter &answer, int id, const Names &names, bool hasChildren) const
{
    answer.structure("ia{sv}av", [&] {
        answer.add(id);
        addProperties(answer, propertiesOf(id), names);
        answer.array("v", [&] {
            for (const int child : hasChildren ? itemIds() : std::vector<int>()) {
                answer.variant("(ia{sv}av)", [&] { addNode(answer, child, names, false); });
            }
        });
    });
}

int MenuService::takeEvent(BusReader &arguments)
{
    const int id = arguments.number();
    if (arguments.text() == "clicked") {
        QMetaObject::invokeMethod(
            this, [this, id] { run(id); }, Qt::QueuedConnection);
    }
    arguments.passOver("vu"); // a value that goes with it, and the time
    return id;
}

void MenuService::run(int id)
{
    const auto *item = find(id);
    if (item && item->isEnabled && item->action) {
        const auto action = item->action; // which may replace the items
        action();
    }
}

} // namespace platform
