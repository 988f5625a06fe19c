#include "Platform/Linux/Secrets/SecretBus.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace platform {

namespace {

namespace fs = std::filesystem;

constexpr auto service = "org.freedesktop.secrets";
constexpr auto servicePath = "/org/freedesktop/secrets";
constexpr auto serviceInterface = "org.freedesktop.Secret.Service";
constexpr auto collectionInterface = "org.freedesktop.Secret.Collection";
constexpr auto propertiesInterface = "org.freedesktop.DBus.Properties";

std::string_view variable(const char *name)
{
    const char *value = std::getenv(name);
    return value ? value : "";
}

bool isThere(const fs::path &path)
{
    std::error_code ignored;
    return fs::exists(path, ignored);
}

// Without a bus GLib would start one, of which nobody else knows.
bool isThereABus()
{
    const fs::path runtimeFolder = variable("XDG_RUNTIME_DIR");
    return !variable("DBUS_SESSION_BUS_ADDRESS").empty() ||
           (!runtimeFolder.empty() && isThere(runtimeFolder / "bus"));
}

struct Method
{
    const char *path;
    const char *interface;
    const char *name;
};

// Nothing where no answer came, or an error.
GlibPointer<GVariant> call(TimedCalls &calls, GDBusConnection *bus, const Method &method, GVariant *arguments)
{
    const GlibPointer<GVariant> kept(g_variant_ref_sink(arguments));
    const auto result = calls.run([&](GCancellable *cancellable, GAsyncReadyCallback done, gpointer data) {
        g_dbus_connection_call(bus, service, method.path, method.interface, method.name, kept.get(), nullptr,
                               G_DBUS_CALL_FLAGS_NONE, -1, cancellable, done, data);
    });
    return GlibPointer<GVariant>(result ? g_dbus_connection_call_finish(bus, result.get(), nullptr)
                                        : nullptr);
}

bool hasType(const GlibPointer<GVariant> &value, const char *type)
{
    return value && g_variant_is_of_type(value.get(), G_VARIANT_TYPE(type)) != FALSE; // NOLINT
}

// Of one of the lists that an answer is made of.
bool isListEmpty(GVariant *answer, gsize index)
{
    const GlibPointer<GVariant> list(g_variant_get_child_value(answer, index));
    return g_variant_n_children(list.get()) == 0;
}

GVariant *dictionaryOf(GHashTable *attributes)
{
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("a{ss}")); // NOLINT
    GHashTableIter iterator;
    gpointer name = nullptr;
    gpointer value = nullptr;
    g_hash_table_iter_init(&iterator, attributes);
    while (g_hash_table_iter_next(&iterator, &name, &value) != FALSE) {
        g_variant_builder_add(&builder, "{ss}", name, value); // NOLINT
    }
    return g_variant_builder_end(&builder);
}

} // namespace

bool areSecretsOnTheBus()
{
    return variable("SECRET_BACKEND") != "file" && !isThere("/.flatpak-info") &&
           variable("SNAP_NAME").empty();
}

SecretBusConnection connectToBus(TimedCalls &calls)
{
    if (!isThereABus()) {
        return nullptr;
    }
    const auto result = calls.run([](GCancellable *cancellable, GAsyncReadyCallback done, gpointer data) {
        g_bus_get(G_BUS_TYPE_SESSION, cancellable, done, data);
    });
    SecretBusConnection bus(result ? g_bus_get_finish(result.get(), nullptr) : nullptr);
    if (bus) {
        g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    }
    return bus;
}

bool canSomebodyBeAsked()
{
    return !variable("DISPLAY").empty() || !variable("WAYLAND_DISPLAY").empty();
}

SecretAccess accessToItem(TimedCalls &calls, GDBusConnection *bus, GHashTable *attributes)
{
    const auto answer = call(calls, bus, {servicePath, serviceInterface, "SearchItems"},
                             g_variant_new("(@a{ss})", dictionaryOf(attributes))); // NOLINT
    if (!hasType(answer, "(aoao)")) {
        return SecretAccess::absent;
    }
    if (!isListEmpty(answer.get(), 0)) {
        return SecretAccess::open;
    }
    return isListEmpty(answer.get(), 1) ? SecretAccess::absent : SecretAccess::locked;
}

SecretAccess accessForNewItem(TimedCalls &calls, GDBusConnection *bus)
{
    const auto alias = call(calls, bus, {servicePath, serviceInterface, "ReadAlias"},
                            g_variant_new("(s)", "default")); // NOLINT
    if (!hasType(alias, "(o)")) {
        return SecretAccess::absent;
    }
    const char *collection = nullptr;
    g_variant_get(alias.get(), "(&o)", &collection); // NOLINT
    if (collection == std::string_view("/")) {
        return SecretAccess::locked; // the user is asked for a new one's password
    }
    const auto isLocked = call(calls, bus, {collection, propertiesInterface, "Get"},
                               g_variant_new("(ss)", collectionInterface, "Locked")); // NOLINT
    if (!hasType(isLocked, "(v)")) {
        return SecretAccess::absent;
    }
    GVariant *value = nullptr;
    g_variant_get(isLocked.get(), "(v)", &value); // NOLINT
    const GlibPointer<GVariant> variant(value);
    return g_variant_is_of_type(variant.get(), G_VARIANT_TYPE_BOOLEAN) != FALSE && // NOLINT
                   g_variant_get_boolean(variant.get()) == FALSE
               ? SecretAccess::open
               : SecretAccess::locked;
}

} // namespace platform
