// A piece of text that was copied.
#pragma once

#include "SharedCore/Storage/PersistentModel.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace sharedcore {

// Its thread and its life are those of a PersistentModel. Each record is one of its own, also where another
// one has the same content.
class ClipboardItem final : public PersistentModel
{
public:
    static constexpr std::string_view entityName = "ClipboardItem";

    // A record of the present moment, not pinned. `appSource` is the application that the text comes from.
    ClipboardItem(std::string content, std::optional<std::string> appSource);
    // The record that the backing data is of. REQUIRES: it has this class's entity and properties.
    explicit ClipboardItem(BackingData backing);

    [[nodiscard]] std::string content() const;
    void setContent(std::string content);
    [[nodiscard]] foundation::Date timestamp() const;
    void setTimestamp(foundation::Date timestamp);
    [[nodiscard]] std::optional<std::string> appSource() const;
    void setAppSource(std::optional<std::string> appSource);
    [[nodiscard]] bool isPinned() const;
    void setIsPinned(bool isPinned);

    // The properties above in their order, without defaults and attributes.
    [[nodiscard]] static const std::array<PropertyMetadata<ClipboardItem>, 4> &schemaMetadata();
    [[nodiscard]] static std::vector<platform::ColumnValue>
    initialValues(std::string content = {}, std::optional<std::string> appSource = std::nullopt);
};

} // namespace sharedcore
