#include "Tests/Support/Wayland/WaylandWindow.h"

#include "Tests/Support/Eventually.h"

#include <xdg-shell-client-protocol.h>

namespace testsupport {

namespace {

constexpr int defaultSize = 400;
constexpr int bytesPerPixel = 4;
constexpr char grey = 0x60;

const xdg_wm_base_listener shellListener{
    [](void *, xdg_wm_base *shell, std::uint32_t serial) { xdg_wm_base_pong(shell, serial); }};

} // namespace

WaylandWindow::WaylandWindow(const QString &display, const QByteArray &applicationId)
    : client_(display)
{
    if (client_.isOpen() && client_.offers(xdg_wm_base_interface.name)) {
        input_ = std::make_unique<WaylandInput>(client_);
        show(applicationId);
    }
}

WaylandWindow::~WaylandWindow()
{
    if (!toplevel_) {
        return;
    }
    input_.reset();
    xdg_toplevel_destroy(toplevel_);
    xdg_surface_destroy(shellSurface_);
    wl_surface_destroy(surface_);
    if (buffer_) {
        wl_buffer_destroy(buffer_);
    }
    xdg_wm_base_destroy(shell_);
    wl_shm_destroy(memory_);
    wl_compositor_destroy(compositor_);
    client_.drain();
}

void WaylandWindow::show(const QByteArray &applicationId)
{
    static const xdg_surface_listener surfaceListener{
        [](void *self, xdg_surface *surface, std::uint32_t serial) {
            xdg_surface_ack_configure(surface, serial);
            static_cast<WaylandWindow *>(self)->draw();
        }};
    static const xdg_toplevel_listener toplevelListener{
        [](void *self, xdg_toplevel *, std::int32_t width, std::int32_t height, wl_array *) {
            static_cast<WaylandWindow *>(self)->width_ = width;
            static_cast<WaylandWindow *>(self)->height_ = height;
        },
        [](void *, xdg_toplevel *) {}, nullptr, nullptr};
    compositor_ = client_.bind<wl_compositor>(wl_compositor_interface, 4);
    memory_ = client_.bind<wl_shm>(wl_shm_interface, 1);
    shell_ = client_.bind<xdg_wm_base>(xdg_wm_base_interface, 1);
    xdg_wm_base_add_listener(shell_, &shellListener, this);
    surface_ = wl_compositor_create_surface(compositor_);
    shellSurface_ = xdg_wm_base_get_xdg_surface(shell_, surface_);
    xdg_surface_add_listener(shellSurface_, &surfaceListener, this);
    toplevel_ = xdg_surface_get_toplevel(shellSurface_);
    xdg_toplevel_add_listener(toplevel_, &toplevelListener, this);
    xdg_toplevel_set_app_id(toplevel_, applicationId.constData());
    wl_surface_commit(surface_);
    static_cast<void>(eventually([this] {
        client_.drain();
        return isOpen() || !client_.isOpen();
    }));
    client_.sync();
}

void WaylandWindow::draw()
{
    const int width = width_ > 0 ? width_ : defaultSize;
    const int height = height_ > 0 ? height_ : defaultSize;
    const int size = width * height * bytesPerPixel;
    if (!pixels_.isOpen()) {
        static_cast<void>(pixels_.open());
    }
    if (pixels_.size() < size) {
        pixels_.seek(0);
        pixels_.write(QByteArray(size, grey));
        pixels_.flush();
    }
    auto *pool = wl_shm_create_pool(memory_, pixels_.handle(), size);
    if (buffer_) {
        wl_buffer_destroy(buffer_);
    }
    buffer_ =
        wl_shm_pool_create_buffer(pool, 0, width, height, width * bytesPerPixel, WL_SHM_FORMAT_XRGB8888);
    wl_shm_pool_destroy(pool);
    wl_surface_attach(surface_, buffer_, 0, 0);
    wl_surface_damage(surface_, 0, 0, width, height);
    wl_surface_commit(surface_);
}

} // namespace testsupport
