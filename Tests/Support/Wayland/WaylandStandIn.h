// A Wayland compositor in the test's hands, which can do what a real one does seldom.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <wayland-server-core.h>

#include <mutex>
#include <thread>
#include <vector>

namespace testsupport {

// Shows nothing; offers a seat with a keyboard, and pointers and keyboards to post through, of which it keeps
// the requests. Answers on a thread of its own.
class WaylandStandIn
{
public:
    struct Offers
    {
        bool hasSeat = true;
        bool hasPointers = true;
        bool hasKeyboards = true;
        bool hasOutput = false; // 1600 x 900 pixels, at twice the scale
    };

    // Listens at the path, which WAYLAND_DISPLAY is to name, from the moment it is made. The keymap is that
    // of its seat; an empty one is left out, and the seat then has no keyboard.
    WaylandStandIn(const QString &path, QByteArray keymap, Offers offers);
    explicit WaylandStandIn(const QString &path, QByteArray keymap = {})
        : WaylandStandIn(path, std::move(keymap), Offers())
    {}
    WaylandStandIn(const WaylandStandIn &) = delete;
    WaylandStandIn &operator=(const WaylandStandIn &) = delete;
    ~WaylandStandIn();

    // What its clients asked of the things to post through, oldest first: "motion 1 -1", "axis 0 1",
    // "axis_source 2", "frame", "create_keyboard", "keymap", "key 194 1".
    [[nodiscard]] QStringList requests() const;

    [[nodiscard]] int clientCount() const;

    // Takes everything back that it offers.
    void takeBack();
    // Ends its clients' connections with an error, as for a wrong request.
    void refuse();
    // Neither reads nor answers until it goes on.
    void pause();
    void goOn();

    // For the implementation of the protocols, on the thread.
    void note(const QString &request);
    [[nodiscard]] const QByteArray &keymap() const { return keymap_; }

private:
    void offer(const wl_interface &interface, int version, wl_global_bind_func_t bind);
    void run(const std::stop_token &stop);

    QByteArray keymap_;
    wl_display *display_;
    std::vector<wl_global *> globals_;
    mutable std::mutex lock_; // whoever has it, the thread or the test, uses the rest
    std::unique_lock<std::mutex> paused_;
    QStringList requests_;
    std::jthread thread_;
};

} // namespace testsupport
