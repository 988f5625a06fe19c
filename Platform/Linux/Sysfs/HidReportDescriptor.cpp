#include "Platform/Linux/Sysfs/HidReportDescriptor.h"

#include "Platform/Linux/Sysfs/HidItems.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace platform {

namespace {

constexpr std::size_t longestReport = std::size_t{16} * 1024 * 8; // in bits
constexpr std::size_t largestNumber = 256;                        // in bits, as in the kernel
constexpr std::size_t mostUsages = 12288;                         // before a field, as in the kernel
constexpr std::size_t mostUsagesKept = 65536;                     // of all fields together
constexpr std::size_t deepestStack = 64;

constexpr std::uint32_t constantFlag = 1U << 0U;
constexpr std::uint32_t variableFlag = 1U << 1U;

// What holds until it is changed.
struct Globals
{
    std::uint16_t usagePage = 0;
    std::int64_t minimum = 0;
    HidItem maximum;
    std::size_t bitSize = 0;
    std::size_t count = 0;
    std::uint8_t reportId = 0;

    // Has a sign where the minimum is below 0.
    [[nodiscard]] std::int64_t maximumNumber() const
    {
        return minimum < 0 ? maximum.signedValue() : static_cast<std::int64_t>(maximum.value);
    }
};

// What holds for the next main item. A usage of up to 16 bits has the page that holds when that comes.
struct Locals
{
    std::vector<HidItem> usages;
    std::optional<HidItem> rangeBegin;
    bool isInSet = false;          // between the delimiters of usages that stand for the same
    bool isSetRepresented = false; // by its first usage, the preferred one
};

// How many usages the field can speak of.
std::size_t distinctNumbers(const HidField &field)
{
    if (field.isConstant) {
        return 0;
    }
    return field.isVariable
               ? field.count
               : static_cast<std::size_t>(std::max<std::int64_t>(0, field.maximum - field.minimum + 1));
}

class Parser
{
public:
    // False where the item is not possible there.
    [[nodiscard]] bool take(const HidItem &item)
    {
        switch (item.kind) {
        case HidItemKind::main:
            return takeMain(item);
        case HidItemKind::global:
            return takeGlobal(item);
        case HidItemKind::local:
            return takeLocal(item);
        default:
            return true;
        }
    }

    [[nodiscard]] bool isFinished() const { return collections_.empty(); }
    [[nodiscard]] HidReportDescriptor &descriptor() { return descriptor_; }

private:
    bool takeMain(const HidItem &item);
    bool takeGlobal(const HidItem &item);
    bool takeLocal(const HidItem &item);

    bool addField(HidReportType type, std::uint32_t flags);
    bool beginCollection();
    bool endCollection();
    bool addUsage(const HidItem &usage);
    bool addRange(const HidItem &end);
    bool push();
    bool pop();
    bool setReportId(std::uint32_t id);

    [[nodiscard]] HidUsage usageOf(const HidItem &item) const;
    [[nodiscard]] std::vector<HidUsage> usagesOf(const HidField &field) const;

    HidReportDescriptor descriptor_;
    Globals globals_;
    Locals locals_;
    std::vector<Globals> stack_;
    std::vector<HidUsage> collections_;
    std::size_t usagesKept_ = 0;
    std::map<std::pair<HidReportType, std::uint8_t>, std::size_t> reportBits_;
};

bool Parser::takeMain(const HidItem &item)
{
    const bool isTaken = [this, &item] {
        switch (item.tag) {
        case HidTag::input:
            return addField(HidReportType::input, item.value);
        case HidTag::output:
            return addField(HidReportType::output, item.value);
        case HidTag::feature:
            return addField(HidReportType::feature, item.value);
        case HidTag::collection:
            return beginCollection();
        case HidTag::endCollection:
            return endCollection();
        default:
            return true;
        }
    }();
    locals_ = {};
    return isTaken;
}

bool Parser::takeGlobal(const HidItem &item)
{
    switch (item.tag) {
    case HidTag::usagePage:
        globals_.usagePage = static_cast<std::uint16_t>(item.value);
        return true;
    case HidTag::logicalMinimum:
        globals_.minimum = item.signedValue();
        return true;
    case HidTag::logicalMaximum:
        globals_.maximum = item;
        return true;
    case HidTag::reportSize:
        globals_.bitSize = item.value;
        return item.value <= largestNumber;
    case HidTag::reportCount:
        globals_.count = item.value;
        return item.value <= longestReport;
    case HidTag::reportId:
        return setReportId(item.value);
    case HidTag::push:
        return push();
    case HidTag::pop:
        return pop();
    default:
        return true;
    }
}

bool Parser::takeLocal(const HidItem &item)
{
    switch (item.tag) {
    case HidTag::usage:
        return addUsage(item);
    case HidTag::usageMinimum:
        locals_.rangeBegin = item;
        return true;
    case HidTag::usageMaximum:
        return addRange(item);
    case HidTag::delimiter:
        locals_.isInSet = item.value != 0;
        locals_.isSetRepresented = false;
        return true;
    default:
        return true;
    }
}

bool Parser::addField(HidReportType type, std::uint32_t flags)
{
    auto &bits = reportBits_[{type, globals_.reportId}];
    const auto size = globals_.bitSize * globals_.count;
    if (size > longestReport - bits) {
        return false;
    }
    HidField field{.type = type,
                   .reportId = globals_.reportId,
                   .bitOffset = bits,
                   .bitSize = globals_.bitSize,
                   .count = globals_.count,
                   .isConstant = (flags & constantFlag) != 0,
                   .isVariable = (flags & variableFlag) != 0,
                   .minimum = globals_.minimum,
                   .maximum = globals_.maximumNumber(),
                   .collection = collections_.empty() ? HidUsage() : collections_.back()};
    field.usages = usagesOf(field);
    usagesKept_ += field.usages.size();
    bits += size;
    descriptor_.fields.push_back(std::move(field));
    return true;
}

bool Parser::beginCollection()
{
    const auto usage = locals_.usages.empty() ? HidUsage() : usageOf(locals_.usages.front());
    if (collections_.empty() && !descriptor_.primaryUsage) {
        descriptor_.primaryUsage = usage;
    }
    collections_.push_back(usage);
    return collections_.size() <= deepestStack;
}

bool Parser::endCollection()
{
    if (collections_.empty()) {
        return false;
    }
    collections_.pop_back();
    return true;
}

bool Parser::addUsage(const HidItem &usage)
{
    if (locals_.isInSet && std::exchange(locals_.isSetRepresented, true)) {
        return true;
    }
    locals_.usages.push_back(usage);
    return locals_.usages.size() <= mostUsages;
}

bool Parser::addRange(const HidItem &end)
{
    auto usage = std::exchange(locals_.rangeBegin, std::nullopt).value_or(end);
    if (usage.value > end.value) {
        return false;
    }
    const auto count = std::min(mostUsages - locals_.usages.size(), std::size_t{end.value} - usage.value + 1);
    for (std::size_t added = 0; added < count; ++added) {
        locals_.usages.push_back(usage);
        ++usage.value;
    }
    return true;
}

bool Parser::push()
{
    stack_.push_back(globals_);
    return stack_.size() <= deepestStack;
}

bool Parser::pop()
{
    if (stack_.empty()) {
        return false;
    }
    globals_ = stack_.back();
    stack_.pop_back();
    return true;
}

bool Parser::setReportId(std::uint32_t id)
{
    globals_.reportId = static_cast<std::uint8_t>(id);
    descriptor_.hasReportIds = true;
    return id > 0 && id <= UINT8_MAX;
}

HidUsage Parser::usageOf(const HidItem &item) const
{
    const bool hasPage = item.size > sizeof(std::uint16_t);
    return {static_cast<std::uint16_t>(hasPage ? item.value >> 16U : globals_.usagePage),
            static_cast<std::uint16_t>(item.value)};
}

std::vector<HidUsage> Parser::usagesOf(const HidField &field) const
{
    std::vector<HidUsage> usages;
    const auto count =
        std::min({locals_.usages.size(), distinctNumbers(field), mostUsagesKept - usagesKept_});
    std::transform(locals_.usages.begin(), locals_.usages.begin() + static_cast<std::ptrdiff_t>(count),
                   std::back_inserter(usages), [this](const HidItem &item) { return usageOf(item); });
    return usages;
}

} // namespace

std::optional<HidReportDescriptor> parsedReportDescriptor(std::span<const std::byte> bytes)
{
    Parser parser;
    HidItems items(bytes);
    while (const auto item = items.next()) {
        if (!parser.take(*item)) {
            return std::nullopt;
        }
    }
    const bool isWhole = items.isAtEnd() && parser.isFinished();
    return isWhole ? std::optional(std::move(parser.descriptor())) : std::nullopt;
}

} // namespace platform
