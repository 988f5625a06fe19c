#include "Tests/Platform/Wayland/WlrootsPosterTest.h"

namespace testsupport {

namespace {

constexpr int mostAttempts = 20;

} // namespace

ScopedWaylandDisplay::ScopedWaylandDisplay(const QString &display)
    : before_(qgetenv("WAYLAND_DISPLAY"))
{
    qputenv("WAYLAND_DISPLAY", display.toLocal8Bit());
}

ScopedWaylandDisplay::~ScopedWaylandDisplay()
{
    qputenv("WAYLAND_DISPLAY", before_);
}

std::unique_ptr<platform::InputPoster> wlrootsPosterOn(const QString &display, platform::Obstacle &why)
{
    const ScopedWaylandDisplay scope(display);
    std::unique_ptr<platform::InputPoster> poster;
    for (int attempt = 0; attempt < mostAttempts && !poster; ++attempt) {
        poster = platform::WlrootsInputPoster::create(why);
    }
    return poster;
}

std::unique_ptr<platform::InputPoster> wlrootsPosterOn(const QString &display)
{
    platform::Obstacle why;
    return wlrootsPosterOn(display, why);
}

} // namespace testsupport
