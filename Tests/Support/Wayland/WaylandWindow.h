// A window of a test's own on a Wayland compositor.
#pragma once

#include "Tests/Support/Wayland/WaylandInput.h"

#include <QTemporaryFile>

struct xdg_surface;
struct xdg_toplevel;
struct xdg_wm_base;

namespace testsupport {

// Plain grey, as large as the compositor makes it. Records the input it gets. One thread at a time.
class WaylandWindow
{
public:
    // Shows itself; check isOpen(). The application id can be given.
    explicit WaylandWindow(const QString &display, const QByteArray &applicationId = "test-window");
    WaylandWindow(const WaylandWindow &) = delete;
    WaylandWindow &operator=(const WaylandWindow &) = delete;
    ~WaylandWindow();

    // Whether it is on the screen.
    [[nodiscard]] bool isOpen() const { return buffer_ && client_.isOpen(); }
    [[nodiscard]] const WaylandClient &client() const { return client_; }
    [[nodiscard]] WaylandInput &input() { return *input_; }

private:
    void show(const QByteArray &applicationId);
    void draw();

    WaylandClient client_;
    std::unique_ptr<WaylandInput> input_;
    QTemporaryFile pixels_;
    int width_ = 0;
    int height_ = 0;
    wl_compositor *compositor_ = nullptr;
    wl_shm *memory_ = nullptr;
    xdg_wm_base *shell_ = nullptr;
    wl_surface *surface_ = nullptr;
    xdg_surface *shellSurface_ = nullptr;
    xdg_toplevel *toplevel_ = nullptr;
    wl_buffer *buffer_ = nullptr;
};

} // namespace testsupport
