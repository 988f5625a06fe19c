// What of a Wayland session only its compositor knows.
#pragma once

#include <QByteArray>
#include <QRectF>

#include <memory>

namespace platform {

// One thread, with a Qt event loop.
class SessionView
{
public:
    SessionView() = default;
    SessionView(const SessionView &) = delete;
    SessionView &operator=(const SessionView &) = delete;
    virtual ~SessionView() = default;

    // The text of the keyboards' layout where it has changed since it was asked for the last time; empty
    // where it has not. That of a program that types (TypingKeymap.h) is none. Never waits.
    [[nodiscard]] virtual QByteArray changedKeymap() = 0;

    // Where a pointer can be; empty where that is not known. Never waits.
    [[nodiscard]] virtual QRectF desktop() = 0;
};

// That of the compositor, followed live. Waits 0.2 s at most for its first answers; until it gives them,
// the layout is the system's default and the desktop is not known.
[[nodiscard]] std::unique_ptr<SessionView> openCompositorView();

} // namespace platform
