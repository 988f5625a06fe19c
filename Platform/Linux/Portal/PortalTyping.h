// Types text through the desktop's RemoteDesktop portal.
#pragma once

#include "Platform/Linux/Portal/RemoteDesktopPortal.h"
#include "Platform/Linux/Portal/RemoteDesktopSession.h"
#include "Platform/Linux/Portal/RemoteDesktopToken.h"
#include "Platform/Linux/Portal/WorkerLine.h"
#include "Platform/TextTyper.h"

#include <QThread>

#include <mutex>

namespace platform {

// One session of the portal, opened for the first text and kept; it lives on a thread of its own, so that a
// caller can wait for it on any thread. The desktop asks the user, who may take any time: a text that comes
// before the answer waits a second at most and is then not typed, and the next one tries again. What the user
// refused is not asked for again; the pointer without the keyboard is a refusal. The portal's keyboard is the
// user's own: it types what the layout has and leaves out the rest, and keys that the user holds count. Any
// thread. REQUIRES: a Qt application. Its end ends the session, and a text that is being typed then.
class PortalTyping
{
public:
    explicit PortalTyping(RemoteDesktopToken token = RemoteDesktopToken(defaultTokenFile()),
                          std::chrono::milliseconds patience = std::chrono::seconds(1));
    PortalTyping(const PortalTyping &) = delete;
    PortalTyping &operator=(const PortalTyping &) = delete;
    ~PortalTyping();

    // Beside the one of the posters: a token opens one session, and two cannot share it.
    [[nodiscard]] static QString defaultTokenFile();

    // Nothing where there is no portal, or no session by the end of the patience; `why` then says so.
    [[nodiscard]] std::unique_ptr<TextTyper> open(QString &why);

private:
    class Worker;
    class Typer;

    void start();
    void stop();
    [[nodiscard]] std::shared_ptr<WorkerLine<Worker>> startedLine();

    RemoteDesktopToken token_;
    std::chrono::milliseconds patience_;
    std::mutex starting_;
    bool isEnding_ = false;
    QThread thread_;
    std::shared_ptr<WorkerLine<Worker>> line_; // to the worker, which lives and ends on the thread
    QObject connections_;                      // end with it
};

} // namespace platform
