// GLib's objects, let go of when they are no longer needed.
#pragma once

#include <gio/gio.h>

#include <memory>

namespace platform {

struct GlibDelete
{
    void operator()(GError *error) const { g_error_free(error); }
    void operator()(GHashTable *table) const { g_hash_table_unref(table); }
    void operator()(GMainContext *context) const { g_main_context_unref(context); }
    void operator()(GVariant *value) const { g_variant_unref(value); }
    void operator()(GSource *source) const
    {
        g_source_destroy(source);
        g_source_unref(source);
    }
    template <class Object> void operator()(Object *object) const { g_object_unref(object); }
};

template <class Object> using GlibPointer = std::unique_ptr<Object, GlibDelete>;

} // namespace platform
