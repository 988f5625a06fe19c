// Posts input through the desktop's RemoteDesktop portal.
#pragma once

#include "Platform/FallbackInputPoster.h"
#include "Platform/Linux/HeldKey.h"
#include "Platform/Linux/Portal/RemoteDesktopPortal.h"
#include "Platform/Linux/Portal/RemoteDesktopSession.h"
#include "Platform/Linux/Portal/RemoteDesktopToken.h"
#include "Platform/Linux/SessionSilentKeys.h"
#include "Platform/Linux/VirtualPointer.h"

#include <memory>

namespace platform {

struct PortalSettings
{
    RemoteDesktopToken token = RemoteDesktopToken();
    SilentKeySource silentKeys = sessionSilentKeys();
    std::chrono::milliseconds patience = RemoteDesktopSession::defaultPatience;
};

// The portal asks the user before a session runs, so one session is opened, at the first use, and kept for
// the life of the poster. Where the portal gives tokens (its version 2), the user is asked once, and later
// runs of the program are let in by the token. Until a session runs, and after it was closed, nothing is
// posted: post() says false and sees to a session, one attempt at a time. What was refused by the user is not
// asked for again before prepare(); attempts that fail one after the other become rare.
//
// Nothing here waits for the portal. Whether there is one is learned after the first use, so up to its answer
// a poster is open where none can work; then it is no longer open, and create() gives none until another
// portal appears. What is lost are the posts of that time: none as a rule, as the answer to the first
// prepare() is there long before the first interval is over.
//
// The pointer is where it was last moved to, from 0, 0 on: the portal does not tell. A scroll is one of a
// touchpad, in pixels downwards. The Command keys are carried by keys without a meaning. Main thread.
class PortalInputPoster final : public InputPoster
{
public:
    // What it knows of the portal outlives the posters that it makes.
    [[nodiscard]] static FallbackInputPoster::Candidate candidate(PortalSettings settings = {});

    // Nothing where it is known that no portal can be used; `why` then says so.
    [[nodiscard]] static std::unique_ptr<InputPoster> create(std::shared_ptr<RemoteDesktopPortal> portal,
                                                             PortalSettings settings, Obstacle &why);
    ~PortalInputPoster() override;

    // Whether the user has let the program post, by a session of any poster that runs now. Any thread.
    [[nodiscard]] static bool isAnyReady();

    void prepare() override;
    void probe() override { portal_->ask(); }
    std::optional<PointerLocation> pointerLocation() override { return pointer_.location(); }
    bool post(const InputEvent &event) override;
    bool isOpen() const override { return !portal_->absence(); }
    bool isReady() const override { return session_ && session_->isRunning(); }
    bool isWaiting() const override { return (stage_ == Stage::asked && !isReady()) || portal_->isAsking(); }
    Obstacle obstacle() const override;

private:
    // Counts a session that runs.
    class Grant;

    enum class Stage { unasked, asked, refused, failed, closed };

    PortalInputPoster(std::shared_ptr<RemoteDesktopPortal> portal, PortalSettings settings);

    bool postEvent(const MouseMoved &event);
    bool postEvent(const KeyEvent &event);
    bool postEvent(const ScrollPixels &event);

    void tryAgain();
    void askForSession();
    void portalAnswered();
    void openSession();
    void sessionEnded(RemoteDesktopSession::End end);
    void countFailure();
    void dropSession(Stage stage);

    std::shared_ptr<RemoteDesktopPortal> portal_;
    PortalSettings settings_;
    Stage stage_ = Stage::unasked;
    VirtualPointer pointer_;
    std::int64_t scrolledPixels_ = 0; // of the series that is not back where it began
    std::int64_t refusedPixels_ = 0;  // of a scroll whose return must not be posted either
    HeldKey heldKey_;
    unsigned failures_ = 0; // in a row
    unsigned postsToSkip_ = 0;
    std::unique_ptr<RemoteDesktopSession> session_;
    std::unique_ptr<Grant> grant_; // while the session runs
    QObject connections_;          // end with it
};

} // namespace platform
