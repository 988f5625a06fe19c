// What a class of persistent records publishes of its properties.
#pragma once

#include "Platform/ObjectSchema.h"
#include "SharedCore/Storage/PersistentProperty.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <variant>
#include <vector>

namespace sharedcore {

// The way to a property: its accessors.
template <class Model, class Value> struct PropertyPath
{
    using ValueType = Value;

    Value (Model::*get)() const;
    void (Model::*set)(Value);

    bool operator==(const PropertyPath &) const = default;
};

template <class Model, class... Values>
using KeyPathOf = std::variant<PropertyPath<Model, Values>..., PropertyPath<Model, std::optional<Values>>...>;

template <class Model>
using KeyPath = KeyPathOf<Model, std::string, std::int64_t, double, bool, foundation::Date>;

enum class PropertyAttribute { unique, indexed, transient };

template <class Model> struct PropertyMetadata
{
    template <class Value>
    PropertyMetadata(std::string_view propertyName, Value (Model::*get)() const, void (Model::*set)(Value))
        : name(propertyName)
        , keyPath(PropertyPath<Model, Value>{get, set})
    {}

    std::string_view name; // of the property, and of its column
    KeyPath<Model> keyPath;
    // What rows get that were saved before there was the property; the value of a new record where there is
    // none.
    std::optional<platform::ColumnValue> defaultValue;
    // For the readers of the schema.
    std::vector<PropertyAttribute> attributes;
};

// The place of the property with this reader among those of its class. REQUIRES: it is published.
template <class Model, class Value> std::size_t placeOf(Value (Model::*get)() const)
{
    std::size_t place = 0;
    for (const auto &property : Model::schemaMetadata()) {
        const auto *path = std::get_if<PropertyPath<Model, Value>>(&property.keyPath);
        if (path != nullptr && path->get == get) {
            break;
        }
        ++place;
    }
    return place;
}

// The table of a class: its published properties in their order.
template <class Model> platform::Entity entityOf()
{
    platform::Entity entity{std::string(Model::entityName), {}};
    auto initialValues = Model::initialValues();
    for (const auto &property : Model::schemaMetadata()) {
        const auto place = entity.columns.size();
        entity.columns.push_back(std::visit(
            [&]<class Value>(const PropertyPath<Model, Value> &) {
                using Traits = PropertyTraits<Value>;
                return platform::Column{std::string(property.name), Traits::columnType(), Traits::isOptional,
                                        property.defaultValue.value_or(initialValues[place])};
            },
            property.keyPath));
    }
    return entity;
}

// The schema of a store that keeps records of these classes. The version is the application's, 1 or more:
// it grows when the classes do.
template <class... Models> platform::ObjectSchema schemaOf(std::int32_t version = 1)
{
    return {version, {entityOf<Models>()...}};
}

} // namespace sharedcore
