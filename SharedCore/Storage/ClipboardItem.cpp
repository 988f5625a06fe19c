#include "SharedCore/Storage/ClipboardItem.h"

#include "SharedCore/Storage/RecordTime.h"

namespace sharedcore {

namespace {

enum Place : std::size_t { contentPlace, timestampPlace, appSourcePlace, isPinnedPlace };

} // namespace

ClipboardItem::ClipboardItem(std::string content, std::optional<std::string> appSource)
    : PersistentModel({entityName, initialValues(std::move(content), std::move(appSource))})
{}

ClipboardItem::ClipboardItem(BackingData backing)
    : PersistentModel(std::move(backing))
{}

std::string ClipboardItem::content() const
{
    return value<std::string>(contentPlace);
}

void ClipboardItem::setContent(std::string content)
{
    setValue(contentPlace, std::move(content));
}

foundation::Date ClipboardItem::timestamp() const
{
    return value<foundation::Date>(timestampPlace);
}

void ClipboardItem::setTimestamp(foundation::Date timestamp)
{
    setValue(timestampPlace, timestamp);
}

std::optional<std::string> ClipboardItem::appSource() const
{
    return value<std::optional<std::string>>(appSourcePlace);
}

void ClipboardItem::setAppSource(std::optional<std::string> appSource)
{
    setValue(appSourcePlace, std::move(appSource));
}

bool ClipboardItem::isPinned() const
{
    return value<bool>(isPinnedPlace);
}

void ClipboardItem::setIsPinned(bool isPinned)
{
    setValue(isPinnedPlace, isPinned);
}

const std::array<PropertyMetadata<ClipboardItem>, 4> &ClipboardItem::schemaMetadata()
{
    using Item = ClipboardItem;
    static const std::array<PropertyMetadata<Item>, 4> metadata{{
        {"content", &Item::content, &Item::setContent},
        {"timestamp", &Item::timestamp, &Item::setTimestamp},
        {"appSource", &Item::appSource, &Item::setAppSource},
        {"isPinned", &Item::isPinned, &Item::setIsPinned},
    }};
    return metadata;
}

std::vector<platform::ColumnValue> ClipboardItem::initialValues(std::string content,
                                                                std::optional<std::string> appSource)
{
    return {toColumn(std::move(content)), toColumn(recordTime()), toColumn(std::move(appSource)),
            toColumn(false)};
}

} // namespace sharedcore
