// What a panel is told of a menu's items.
#pragma once

#include "Platform/Linux/Bus/BusValues.h"
#include "Platform/StatusItem.h"

namespace platform {

struct MenuProperty
{
    const char *name;
    char type;        // 's', 'b' or 'i', as the bus has them
    std::string text; // of an 's'
    std::int32_t number = 0;
};
using MenuProperties = std::vector<MenuProperty>;

[[nodiscard]] MenuProperties rootProperties();
[[nodiscard]] MenuProperties propertiesOf(const StatusMenuItem &item);

// As a variant.
void addValue(BusWriter &writer, const MenuProperty &property);
// As a dictionary of those that are named, of all where none are.
void addProperties(BusWriter &writer, const MenuProperties &properties,
                   const std::vector<std::string_view> &names);

} // namespace platform
