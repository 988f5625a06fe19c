#include "Platform/Linux/StatusNotifier/MenuProperties.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

// An underscore would mark the next letter as the one to press.
std::string labelOf(const StatusMenuItem &item)
{
    std::string label;
    for (const char letter : item.title) {
        label.append(letter == '_' ? 2 : 1, letter);
    }
    return label;
}

MenuProperty text(const char *name, std::string value)
{
    return {name, 's', std::move(value)};
}

} // namespace

MenuProperties rootProperties()
{
    return {text("children-display", "submenu")};
}

MenuProperties propertiesOf(const StatusMenuItem &item)
{
    if (item.title.empty()) {
        return {text("type", "separator")};
    }
    MenuProperties properties{text("label", labelOf(item)), {"enabled", 'b', {}, item.isEnabled ? 1 : 0}};
    if (item.isChecked) {
        properties.push_back(text("toggle-type", "checkmark"));
        properties.push_back({"toggle-state", 'i', {}, *item.isChecked ? 1 : 0});
    }
    return properties;
}

void addValue(BusWriter &writer, const MenuProperty &property)
{
    const std::array<char, 2> type{property.type, '\0'};
    writer.variant(type.data(), [&] {
        switch (property.type) {
        case 'b':
            writer.add(property.number != 0);
            break;
        case 'i':
            writer.add(property.number);
            break;
        default:
            writer.add(property.text);
        }
    });
}

void addProperties(BusWriter &writer, const MenuProperties &properties,
                   const std::vector<std::string_view> &names)
{
    const auto isWanted = [&names](const MenuProperty &property) {
        return names.empty() || std::find(names.begin(), names.end(), property.name) != names.end();
    };
    writer.array("{sv}", [&] {
        for (const auto &property : properties) {
            if (isWanted(property)) {
                writer.entry("sv", [&] {
                    writer.add(property.name);
                    addValue(writer, property);
                });
            }
        }
    });
}

} // namespace platform
