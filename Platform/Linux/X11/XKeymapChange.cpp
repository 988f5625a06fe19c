// The half of XKeymap.h that changes keymaps.

#include "Platform/Linux/X11/XKeymap.h"

#include "Platform/Linux/X11/Xkb.h"

#include <algorithm>
#include <span>

namespace platform {

namespace {

using Bytes = std::vector<std::uint8_t>;

// One request of the keyboard extension, ready but for who sends it.
struct Change
{
    xcb_xkb_set_map_request_t head{};
    Bytes values;
};

template <class T> void append(Bytes &bytes, const T &value)
{
    const auto *first = reinterpret_cast<const std::uint8_t *>(&value); // NOLINT
    bytes.insert(bytes.end(), first, first + sizeof value);             // NOLINT
}

void append(Bytes &bytes, const Bytes &more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
}

void appendSymbols(Bytes &bytes, const XKeyMeaning &key)
{
    xcb_xkb_key_sym_map_t map{{}, key.groupInfo, key.width, static_cast<std::uint16_t>(key.symbols.size())};
    std::ranges::copy(key.types, std::begin(map.kt_index));
    append(bytes, map);
    for (const auto symbol : key.symbols) {
        append(bytes, symbol);
    }
}

void appendActions(Bytes &bytes, const XKeyMeaning &key)
{
    for (const auto &action : key.actions) {
        append(bytes, action);
    }
}

xcb_xkb_set_map_request_t headOf(XConnection &connection, std::uint16_t part, std::size_t size)
{
    const auto &setup = *xcb_get_setup(connection.get());
    const auto *extension = xcb_get_extension_data(connection.get(), &xcb_xkb_id);
    xcb_xkb_set_map_request_t head{};
    head.major_opcode = extension ? extension->major_opcode : std::uint8_t{0};
    head.minor_opcode = XCB_XKB_SET_MAP;
    head.length = static_cast<std::uint16_t>((sizeof head + size) / 4);
    head.deviceSpec = coreKeyboard;
    head.present = part;
    head.minKeyCode = setup.min_keycode;
    head.maxKeyCode = setup.max_keycode;
    return head;
}

Change symbolsChange(XConnection &connection, xcb_keycode_t first, std::span<const XKeyMeaning *const> row)
{
    Change change;
    std::size_t total = 0;
    for (const auto *key : row) {
        appendSymbols(change.values, *key);
        total += key->symbols.size();
    }
    change.head = headOf(connection, XCB_XKB_MAP_PART_KEY_SYMS, change.values.size());
    change.head.firstKeySym = first;
    change.head.nKeySyms = static_cast<std::uint8_t>(row.size());
    change.head.totalSyms = static_cast<std::uint16_t>(total);
    return change;
}

Change actionsChange(XConnection &connection, xcb_keycode_t first, std::span<const XKeyMeaning *const> row)
{
    Change change;
    Bytes actions;
    std::size_t total = 0;
    for (const auto *key : row) {
        change.values.push_back(static_cast<std::uint8_t>(key->actions.size()));
        appendActions(actions, *key);
        total += key->actions.size();
    }
    change.values.resize((change.values.size() + 3) / 4 * 4);
    append(change.values, actions);
    change.head = headOf(connection, XCB_XKB_MAP_PART_KEY_ACTIONS, change.values.size());
    change.head.firstKeyAction = first;
    change.head.nKeyActions = static_cast<std::uint8_t>(row.size());
    change.head.totalActions = static_cast<std::uint16_t>(total);
    return change;
}

// One for each row of codes without a gap.
std::vector<Change> changesOf(XConnection &connection, const XKeyMeanings &meanings, XKeyPart part)
{
    const auto changeOf = part == XKeyPart::symbols ? symbolsChange : actionsChange;
    std::vector<Change> changes;
    std::vector<const XKeyMeaning *> row;
    for (auto key = meanings.begin(); key != meanings.end(); ++key) {
        row.push_back(&key->second);
        const auto next = std::next(key);
        if (next == meanings.end() || next->first != key->first + 1) {
            changes.push_back(
                changeOf(connection, static_cast<xcb_keycode_t>(key->first + 1 - row.size()), row));
            row.clear();
        }
    }
    return changes;
}

} // namespace

void setKeyMeanings(XConnection &connection, const XKeyMeanings &meanings, XKeyPart part)
{
    for (const auto &[head, values] : changesOf(connection, meanings, part)) {
        xcb_xkb_set_map(connection.get(), head.deviceSpec, head.present, 0, head.minKeyCode, head.maxKeyCode,
                        0, 0, head.firstKeySym, head.nKeySyms, head.totalSyms, head.firstKeyAction,
                        head.nKeyActions, head.totalActions, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                        values.data());
    }
}

std::vector<std::uint8_t> keyMeaningRequests(XConnection &connection, const XKeyMeanings &meanings,
                                             XKeyPart part)
{
    Bytes bytes;
    for (const auto &[head, values] : changesOf(connection, meanings, part)) {
        append(bytes, head);
        append(bytes, values);
    }
    return bytes;
}

} // namespace platform
