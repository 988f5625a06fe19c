#include "Platform/Linux/X11/XKeymap.h"

#include "Platform/Linux/X11/Xkb.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace platform {

namespace {

constexpr std::uint16_t keymapParts = XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_KEY_ACTIONS |
                                      XCB_XKB_MAP_PART_KEY_BEHAVIORS | XCB_XKB_MAP_PART_MODIFIER_MAP |
                                      XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;

// The reply with where its parts begin.
struct Reply
{
    const xcb_xkb_get_map_reply_t &head;
    xcb_xkb_get_map_map_t parts{};

    explicit Reply(const xcb_xkb_get_map_reply_t &reply)
        : head(reply)
    {
        xcb_xkb_get_map_map_unpack(xcb_xkb_get_map_map(&head), head.nTypes, head.nKeySyms, head.nKeyActions,
                                   head.totalActions, head.totalKeyBehaviors, head.virtualMods,
                                   head.totalKeyExplicit, head.totalModMapKeys, head.totalVModMapKeys,
                                   head.present, &parts);
    }
};

void addSymbols(const Reply &reply, XKeyMeanings &keys)
{
    auto symbols = xcb_xkb_get_map_map_syms_rtrn_iterator(&reply.head, &reply.parts);
    for (unsigned code = reply.head.firstKeySym; symbols.rem > 0;
         xcb_xkb_key_sym_map_next(&symbols), ++code) {
        auto &key = keys[static_cast<xcb_keycode_t>(code)];
        std::ranges::copy(symbols.data->kt_index, key.types.begin());
        key.groupInfo = symbols.data->groupInfo;
        key.width = symbols.data->width;
        const std::span values(xcb_xkb_key_sym_map_syms(symbols.data), symbols.data->nSyms);
        key.symbols.assign(values.begin(), values.end());
    }
}

void addActions(const Reply &reply, XKeyMeanings &keys)
{
    const std::span counts(reply.parts.acts_rtrn_count, reply.head.nKeyActions);
    const std::span actions(reply.parts.acts_rtrn_acts, reply.head.totalActions);
    unsigned code = reply.head.firstKeyAction;
    std::size_t next = 0;
    for (const auto count : counts) {
        auto &key = keys[static_cast<xcb_keycode_t>(code++)];
        for (std::size_t i = 0; i < count && next < actions.size(); ++i, ++next) {
            std::memcpy(key.actions.emplace_back().data(), &actions[next], sizeof(XKeyMeaning::Action));
        }
    }
}

std::vector<xcb_keycode_t> specialKeys(const Reply &reply)
{
    std::vector<xcb_keycode_t> codes;
    for (const auto &key : std::span(reply.parts.behaviors_rtrn, reply.head.totalKeyBehaviors)) {
        codes.push_back(key.keycode);
    }
    for (const auto &key : std::span(reply.parts.modmap_rtrn, reply.head.totalModMapKeys)) {
        codes.push_back(key.keycode);
    }
    for (const auto &key : std::span(reply.parts.vmodmap_rtrn, reply.head.totalVModMapKeys)) {
        codes.push_back(key.keycode);
    }
    return codes;
}

} // namespace

std::optional<XKeymap> readKeymap(XConnection &connection, XKeyboard keyboard)
{
    const auto cookie = xcb_xkb_get_map_unchecked(connection.get(), keyboard, keymapParts, 0, 0, 0, 0, 0, 0,
                                                  0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    const auto answer = xReply(xcb_xkb_get_map_reply, connection.get(), cookie);
    if (!answer) {
        return std::nullopt;
    }
    const Reply reply(*answer);
    XKeymap keymap;
    addSymbols(reply, keymap.keys);
    addActions(reply, keymap.keys);
    keymap.specialKeys = specialKeys(reply);
    return keymap;
}

} // namespace platform
