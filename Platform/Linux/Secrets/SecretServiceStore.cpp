#include "Platform/Linux/Secrets/SecretServiceStore.h"

#include "Foundation/Utf8.h"
#include "Platform/Linux/Secrets/SecretBus.h"

#include <libsecret/secret.h>

#include <functional>
#include <string>

namespace platform {

namespace {

constexpr std::chrono::milliseconds patience(1700); // with the time to take a call back it stays below 2 s
constexpr std::chrono::minutes patienceWithTheUser(2);

struct SecretValueDelete
{
    void operator()(SecretValue *value) const { secret_value_unref(value); }
};

using SecretValuePointer = std::unique_ptr<SecretValue, SecretValueDelete>;

// What names an item.
class ItemName
{
public:
    ItemName(std::string_view account, std::string_view service)
        : account_(account)
        , service_(service)
        , attributes_(g_hash_table_new(g_str_hash, g_str_equal))
    {
        g_hash_table_insert(attributes_.get(), nameOf("account"), account_.data());
        g_hash_table_insert(attributes_.get(), nameOf("service"), service_.data());
    }

    [[nodiscard]] bool isPossible() const { return isPossible(account_) && isPossible(service_); }
    [[nodiscard]] GHashTable *attributes() const { return attributes_.get(); }
    // What the user sees of it.
    [[nodiscard]] std::string label() const { return service_ + " (" + account_ + ")"; }

private:
    static gpointer nameOf(const char *attribute) { return const_cast<char *>(attribute); } // NOLINT

    static bool isPossible(const std::string &text)
    {
        return foundation::isUtf8(text) && text.find('\0') == std::string::npos;
    }

    std::string account_;
    std::string service_;
    GlibPointer<GHashTable> attributes_;
};

// A service that was started again has forgotten the session, and says so in words of its own. A "no" stays
// one.
bool isWorthAnotherTry(const GError *error)
{
    return error && g_error_matches(error, SECRET_ERROR, SECRET_ERROR_IS_LOCKED) == FALSE &&
           g_error_matches(error, G_IO_ERROR, G_IO_ERROR_CANCELLED) == FALSE;
}

// Starts a call and takes its result; where the way to the service proves cut, connects once more.
template <class Finish> auto runTwice(TimedCalls &calls, const TimedCalls::Start &start, const Finish &finish)
{
    using Answer = decltype(finish(nullptr, nullptr));
    for (int attempt = 1;; ++attempt) {
        const auto result = calls.run(start);
        GError *error = nullptr;
        auto answer = result ? finish(result.get(), &error) : Answer{};
        const GlibPointer<GError> kept(error);
        if (!result || error) {
            secret_service_disconnect();
        }
        if (attempt == 2 || !isWorthAnotherTry(error)) {
            return answer;
        }
    }
}

bool store(TimedCalls &calls, const ItemName &item, SecretValue *secret)
{
    const auto label = item.label();
    return runTwice(
               calls,
               [&](GCancellable *cancellable, GAsyncReadyCallback done, gpointer data) {
                   secret_password_storev_binary(nullptr, item.attributes(), SECRET_COLLECTION_DEFAULT,
                                                 label.c_str(), secret, cancellable, done, data);
               },
               secret_password_store_finish) != FALSE;
}

SecretValuePointer lookUp(TimedCalls &calls, const ItemName &item)
{
    return SecretValuePointer(runTwice(
        calls,
        [&](GCancellable *cancellable, GAsyncReadyCallback done, gpointer data) {
            secret_password_lookupv(nullptr, item.attributes(), cancellable, done, data);
        },
        secret_password_lookup_binary_finish));
}

bool clear(TimedCalls &calls, const ItemName &item)
{
    return runTwice(
               calls,
               [&](GCancellable *cancellable, GAsyncReadyCallback done, gpointer data) {
                   secret_password_clearv(nullptr, item.attributes(), cancellable, done, data);
               },
               secret_password_clear_finish) != FALSE;
}

std::string_view bytesOf(const SecretValuePointer &value)
{
    gsize length = 0;
    const char *bytes = secret_value_get(value.get(), &length);
    return {bytes, length};
}

struct Way
{
    bool isOpen = false;
    SecretBusConnection bus; // where the way is over the bus
};

// Whether the service can be asked about the item; it has time for the user's answer where it needs one.
Way wayTo(TimedCalls &calls, const ItemName &item,
          const std::function<SecretAccess(GDBusConnection *)> &access)
{
    if (!item.isPossible() || !areSecretsOnTheBus()) {
        return {item.isPossible(), nullptr};
    }
    auto bus = connectToBus(calls);
    // Asking changes nothing, so that a call that is not answered cannot take effect later.
    const auto found = bus ? access(bus.get()) : SecretAccess::absent;
    if (found == SecretAccess::locked && canSomebodyBeAsked()) {
        calls.extend(patienceWithTheUser);
    }
    return {found != SecretAccess::absent, std::move(bus)};
}

Way wayToOld(TimedCalls &calls, const ItemName &item)
{
    return wayTo(calls, item,
                 [&](GDBusConnection *bus) { return accessToItem(calls, bus, item.attributes()); });
}

Way wayToNew(TimedCalls &calls, const ItemName &item)
{
    return wayTo(calls, item, [&](GDBusConnection *bus) { return accessForNewItem(calls, bus); });
}

} // namespace

bool SecretServiceStore::save(std::string_view secret, std::string_view account, std::string_view service)
{
    const std::scoped_lock lock(mutex_);
    const ItemName item(account, service);
    TimedCalls calls(patience);
    const auto way = wayToNew(calls, item);
    if (!way.isOpen) {
        return false;
    }
    const SecretValuePointer value(
        secret_value_new(secret.data(), static_cast<gssize>(secret.size()), "text/plain"));
    if (!store(calls, item, value.get())) {
        return false;
    }
    // An item that another program has given further attributes is not replaced, and might be found first.
    const auto found = lookUp(calls, item);
    return (found && bytesOf(found) == secret) || (clear(calls, item) && store(calls, item, value.get()));
}

std::optional<SecretText> SecretServiceStore::read(std::string_view account, std::string_view service)
{
    const std::scoped_lock lock(mutex_);
    const ItemName item(account, service);
    TimedCalls calls(patience);
    const auto way = wayToOld(calls, item);
    if (!way.isOpen) {
        return std::nullopt;
    }
    const auto value = lookUp(calls, item);
    return value ? std::optional<SecretText>(bytesOf(value)) : std::nullopt;
}

bool SecretServiceStore::remove(std::string_view account, std::string_view service)
{
    const std::scoped_lock lock(mutex_);
    const ItemName item(account, service);
    TimedCalls calls(patience);
    const auto way = wayToOld(calls, item);
    if (!way.isOpen) {
        return false;
    }
    // Only what is unlocked is removed, and looking something up unlocks it.
    return clear(calls, item) || (lookUp(calls, item) && clear(calls, item));
}

} // namespace platform
