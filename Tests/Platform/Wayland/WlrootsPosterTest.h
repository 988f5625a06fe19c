// What the tests of posting on Wayland have in common.
#pragma once

#include "Platform/Linux/Wayland/WlrootsInputPoster.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace testsupport {

// Makes WAYLAND_DISPLAY name a display for as long as it lives; it is read at each connection.
class ScopedWaylandDisplay
{
public:
    explicit ScopedWaylandDisplay(const QString &display);
    ScopedWaylandDisplay(const ScopedWaylandDisplay &) = delete;
    ScopedWaylandDisplay &operator=(const ScopedWaylandDisplay &) = delete;
    ~ScopedWaylandDisplay();

private:
    QByteArray before_;
};

// A poster on that display, given some attempts, since a compositor on a busy machine may not answer within
// the time that one of them has; nothing where none can be made, and `why` then says why.
[[nodiscard]] std::unique_ptr<platform::InputPoster> wlrootsPosterOn(const QString &display,
                                                                     platform::Obstacle &why);
[[nodiscard]] std::unique_ptr<platform::InputPoster> wlrootsPosterOn(const QString &display);

} // namespace testsupport
