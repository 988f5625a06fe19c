#include "Tests/Support/Wayland/WaylandStandInProtocols.h"

#include <virtual-keyboard-unstable-v1-server-protocol.h>
#include <wlr-virtual-pointer-unstable-v1-server-protocol.h>

#include <wayland-server-protocol.h>

#include <QTemporaryFile>

#include <unistd.h>

namespace testsupport {

namespace {

void note(wl_resource *resource, const QString &request)
{
    static_cast<WaylandStandIn *>(wl_resource_get_user_data(resource))->note(request);
}

void destroy(wl_client *, wl_resource *resource)
{
    wl_resource_destroy(resource);
}

const struct wl_keyboard_interface keyboardOfSeat
{
    destroy
};

void giveKeyboard(wl_client *client, wl_resource *seat, std::uint32_t id)
{
    auto *standIn = static_cast<WaylandStandIn *>(wl_resource_get_user_data(seat));
    auto *keyboard = wl_resource_create(client, &::wl_keyboard_interface, wl_resource_get_version(seat), id);
    wl_resource_set_implementation(keyboard, &keyboardOfSeat, standIn, nullptr);
    QTemporaryFile file;
    static_cast<void>(file.open());
    file.write(standIn->keymap().constData(), standIn->keymap().size() + 1);
    file.flush();
    wl_keyboard_send_keymap(keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file.handle(),
                            static_cast<std::uint32_t>(standIn->keymap().size()) + 1);
}

const struct wl_seat_interface seat
{
    [](wl_client *, wl_resource *, std::uint32_t) {}, giveKeyboard,
        [](wl_client *, wl_resource *, std::uint32_t) {}, destroy
};

const struct zwlr_virtual_pointer_v1_interface pointer
{
    [](wl_client *, wl_resource *self, std::uint32_t, wl_fixed_t dx, wl_fixed_t dy) {
        note(self, QStringLiteral("motion %1 %2").arg(wl_fixed_to_double(dx)).arg(wl_fixed_to_double(dy)));
    },
        [](wl_client *, wl_resource *self, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t,
           std::uint32_t) { note(self, QStringLiteral("motion_absolute")); },
        [](wl_client *, wl_resource *self, std::uint32_t, std::uint32_t, std::uint32_t) {
            note(self, QStringLiteral("button"));
        },
        [](wl_client *, wl_resource *self, std::uint32_t, std::uint32_t axis, wl_fixed_t value) {
            note(self, QStringLiteral("axis %1 %2").arg(axis).arg(wl_fixed_to_double(value)));
        },
        [](wl_client *, wl_resource *self) { note(self, QStringLiteral("frame")); },
        [](wl_client *, wl_resource *self, std::uint32_t source) {
            note(self, QStringLiteral("axis_source %1").arg(source));
        },
        [](wl_client *, wl_resource *self, std::uint32_t, std::uint32_t) {
            note(self, QStringLiteral("axis_stop"));
        },
        [](wl_client *, wl_resource *self, std::uint32_t, std::uint32_t, wl_fixed_t, std::int32_t) {
            note(self, QStringLiteral("axis_discrete"));
        },
        destroy
};

const struct zwlr_virtual_pointer_manager_v1_interface pointers
{
    [](wl_client *client, wl_resource *manager, wl_resource *, std::uint32_t id) {
        auto *made = wl_resource_create(client, &::zwlr_virtual_pointer_v1_interface, 1, id);
        wl_resource_set_implementation(made, &pointer, wl_resource_get_user_data(manager), nullptr);
    },
        destroy, nullptr
};

const struct zwp_virtual_keyboard_v1_interface keyboard
{
    [](wl_client *, wl_resource *self, std::uint32_t, std::int32_t file, std::uint32_t) {
        close(file);
        note(self, QStringLiteral("keymap"));
    },
        [](wl_client *, wl_resource *self, std::uint32_t, std::uint32_t key, std::uint32_t state) {
            note(self, QStringLiteral("key %1 %2").arg(key).arg(state));
        },
        [](wl_client *, wl_resource *self, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {
            note(self, QStringLiteral("modifiers"));
        },
        destroy
};

const struct zwp_virtual_keyboard_manager_v1_interface keyboards
{
    [](wl_client *client, wl_resource *manager, wl_resource *, std::uint32_t id) {
        auto *made = wl_resource_create(client, &::zwp_virtual_keyboard_v1_interface, 1, id);
        wl_resource_set_implementation(made, &keyboard, wl_resource_get_user_data(manager), nullptr);
        note(manager, QStringLiteral("create_keyboard"));
    }
};

wl_resource *bind(wl_client *client, void *standIn, const wl_interface &interface, const void *implementation,
                  std::uint32_t version, std::uint32_t id)
{
    auto *resource = wl_resource_create(client, &interface, static_cast<int>(version), id);
    wl_resource_set_implementation(resource, implementation, standIn, nullptr);
    return resource;
}

} // namespace

void bindSeat(wl_client *client, void *standIn, std::uint32_t version, std::uint32_t id)
{
    auto *resource = bind(client, standIn, ::wl_seat_interface, &seat, version, id);
    const bool hasKeyboard = !static_cast<WaylandStandIn *>(standIn)->keymap().isEmpty();
    wl_seat_send_capabilities(resource, hasKeyboard ? WL_SEAT_CAPABILITY_KEYBOARD : 0);
}

void bindPointers(wl_client *client, void *standIn, std::uint32_t version, std::uint32_t id)
{
    bind(client, standIn, ::zwlr_virtual_pointer_manager_v1_interface, &pointers, version, id);
}

void bindKeyboards(wl_client *client, void *standIn, std::uint32_t version, std::uint32_t id)
{
    bind(client, standIn, ::zwp_virtual_keyboard_manager_v1_interface, &keyboards, version, id);
}

// Its interface has no request in this version.
void bindOutput(wl_client *client, void *standIn, std::uint32_t version, std::uint32_t id)
{
    auto *output = bind(client, standIn, ::wl_output_interface, nullptr, version, id);
    wl_output_send_geometry(output, 0, 0, 0, 0, WL_OUTPUT_SUBPIXEL_UNKNOWN, "", "",
                            WL_OUTPUT_TRANSFORM_NORMAL);
    wl_output_send_mode(output, WL_OUTPUT_MODE_CURRENT, 1600, 900, 60'000);
    wl_output_send_scale(output, 2);
    wl_output_send_done(output);
}

} // namespace testsupport
