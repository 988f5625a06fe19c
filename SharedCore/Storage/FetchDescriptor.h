// Which records of a class are wanted, and in what order.
#pragma once

#include "Platform/ObjectQuery.h"
#include "SharedCore/Storage/PropertyMetadata.h"

#include <cstddef>
#include <type_traits>
#include <utility>

namespace sharedcore {

using platform::Comparison;

enum class SortOrder { forward, reverse };

// All records of the class, about in the order in which they were made, unless more is said:
//
//     FetchDescriptor<ClipboardItem>()
//         .where(&ClipboardItem::isPinned, Comparison::equal, true)
//         .sortedBy(&ClipboardItem::timestamp, SortOrder::reverse)
//         .limitedTo(50)
//
// Properties are named by their readers.
template <class Model> class FetchDescriptor
{
public:
    // Only those whose property compares so with the value. Said more than once, all have to hold.
    template <class Value>
    FetchDescriptor &where(Value (Model::*property)() const, Comparison comparison,
                           std::type_identity_t<Value> value)
    {
        query_.conditions.push_back({placeOf(property), comparison, toColumn(std::move(value))});
        return *this;
    }

    // Said more than once, the later ones order what is equal by the earlier ones.
    template <class Value>
    FetchDescriptor &sortedBy(Value (Model::*property)() const, SortOrder order = SortOrder::forward)
    {
        query_.orderings.push_back({placeOf(property), order == SortOrder::reverse});
        return *this;
    }

    // At most so many of the first.
    FetchDescriptor &limitedTo(std::size_t count)
    {
        query_.limit = count;
        return *this;
    }

    // For the context, which knows the place of the class among those of its store.
    [[nodiscard]] const platform::ObjectQuery &query() const { return query_; }

private:
    platform::ObjectQuery query_;
};

} // namespace sharedcore
