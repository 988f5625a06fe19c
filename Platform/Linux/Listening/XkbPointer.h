// The objects of xkbcommon, each let go of by its owner.
#pragma once

#include <xkbcommon/xkbcommon-compose.h>
#include <xkbcommon/xkbcommon.h>

#include <memory>

namespace platform {

struct XkbUnref
{
    void operator()(xkb_context *context) const { xkb_context_unref(context); }
    void operator()(xkb_keymap *keymap) const { xkb_keymap_unref(keymap); }
    void operator()(xkb_state *state) const { xkb_state_unref(state); }
    void operator()(xkb_compose_table *table) const { xkb_compose_table_unref(table); }
    void operator()(xkb_compose_state *state) const { xkb_compose_state_unref(state); }
};

template <class T> using XkbPointer = std::unique_ptr<T, XkbUnref>;

} // namespace platform
