// What the classes of persistent records have in common.
#pragma once

#include "SharedCore/Storage/BackingData.h"
#include "SharedCore/Storage/ObservationRegistrar.h"
#include "SharedCore/Storage/PersistentProperty.h"
#include "SharedCore/Storage/PropertyMetadata.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace sharedcore {

class ModelContext;

// A record with an identity, whose properties are read from and written to its backing data, and can be
// observed. It stands alone until it is inserted into a context; from then on its values are saved with the
// context. A record that was deleted, or whose context is gone, stands alone again and keeps its values.
//
// Belongs to the thread of its context. Held by shared pointers where it is to be inserted.
//
// A class of records derives from it and has
//  - `entityName`, a text of static storage: the name of its table;
//  - `schemaMetadata()`, a static list of PropertyMetadata in the order of the values;
//  - `initialValues()`, static: the values of a new record, in the same order;
//  - a constructor from BackingData, for the rows that a store gives;
//  - for each property a reader and a writer, through value() and setValue().
class PersistentModel : public std::enable_shared_from_this<PersistentModel>
{
public:
    PersistentModel(const PersistentModel &) = delete;
    PersistentModel &operator=(const PersistentModel &) = delete;
    virtual ~PersistentModel();

    [[nodiscard]] const PersistentIdentifier &persistentIdentifier() const { return backing_.identifier(); }
    // The context that the record was inserted into or fetched by; nothing while it stands alone.
    [[nodiscard]] ModelContext *modelContext() const { return context_; }
    // True once its deletion was saved, by its context or by somebody else.
    [[nodiscard]] bool isDeleted() const { return isDeleted_; }
    // True while a property of a saved record differs from what was saved.
    [[nodiscard]] bool hasChanges() const { return backing_.hasChanges(); }

    // The same record, be it in another context.
    friend bool operator==(const PersistentModel &left, const PersistentModel &right)
    {
        return left.persistentIdentifier() == right.persistentIdentifier();
    }

protected:
    explicit PersistentModel(BackingData backing);

    template <class Value> [[nodiscard]] Value value(std::size_t place) const
    {
        registrar_.access(place);
        return PropertyTraits<Value>::fromColumn(backing_.values()[place]);
    }

    template <class Value> void setValue(std::size_t place, Value value)
    {
        write(place, toColumn(std::move(value)));
    }

    [[nodiscard]] const ObservationRegistrar &registrar() const { return registrar_; }

private:
    friend class ModelContext;
    template <class Model, class Value>
    friend Observation observe(const Model &model, Value (Model::*property)() const,
                               const PropertyObserver &observer);

    void write(std::size_t place, platform::ColumnValue value);
    // Below: observers are told, the context is not.
    void assign(std::size_t place, platform::ColumnValue value);
    // Takes over what the store has, but for properties with changes of their own.
    void refresh(const std::vector<platform::ColumnValue> &stored);
    // Goes back to what the store has.
    void restore();

    BackingData backing_;
    ObservationRegistrar registrar_;
    ModelContext *context_ = nullptr;
    bool isDeleted_ = false;
};

// Calls the observer around each change of the property, for as long as what it gives lives.
template <class Model, class Value>
[[nodiscard]] Observation observe(const Model &model, Value (Model::*property)() const,
                                  const PropertyObserver &observer)
{
    const PersistentModel &base = model;
    return base.registrar_.observe(placeOf(property), observer);
}

} // namespace sharedcore

template <std::derived_from<sharedcore::PersistentModel> Model> struct std::hash<Model>
{
    std::size_t operator()(const Model &model) const noexcept
    {
        return std::hash<sharedcore::PersistentIdentifier>()(model.persistentIdentifier());
    }
};
