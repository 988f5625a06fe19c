#include "Platform/Linux/Portal/PortalInputPoster.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace platform {

namespace {

constexpr unsigned mostDoublings = 4; // 15 posts left out between two attempts, some minutes

std::atomic<int> grantCount = 0;

} // namespace

class PortalInputPoster::Grant
{
public:
    Grant() { ++grantCount; }
    Grant(const Grant &) = delete;
    Grant &operator=(const Grant &) = delete;
    ~Grant() { --grantCount; }
};

FallbackInputPoster::Candidate PortalInputPoster::candidate(PortalSettings settings)
{
    return [settings = std::move(settings),
            portal = std::shared_ptr<RemoteDesktopPortal>()](Obstacle &why) mutable {
        if (!portal) {
            portal = std::make_shared<RemoteDesktopPortal>(QDBusConnection::sessionBus());
        }
        return create(portal, settings, why);
    };
}

std::unique_ptr<InputPoster> PortalInputPoster::create(std::shared_ptr<RemoteDesktopPortal> portal,
                                                       PortalSettings settings, Obstacle &why)
{
    if (const auto absence = portal->absence()) {
        why = *absence;
        return nullptr;
    }
    return std::unique_ptr<InputPoster>(new PortalInputPoster(std::move(portal), std::move(settings)));
}

PortalInputPoster::PortalInputPoster(std::shared_ptr<RemoteDesktopPortal> portal, PortalSettings settings)
    : portal_(std::move(portal))
    , settings_(std::move(settings))
{
    QObject::connect(portal_.get(), &RemoteDesktopPortal::answered, &connections_,
                     [this] { portalAnswered(); });
    QObject::connect(portal_.get(), &RemoteDesktopPortal::lost, &connections_, [this] {
        if (session_) {
            sessionEnded(RemoteDesktopSession::End::closed);
        }
    });
}

PortalInputPoster::~PortalInputPoster() = default;

bool PortalInputPoster::isAnyReady()
{
    return grantCount > 0;
}

void PortalInputPoster::prepare()
{
    failures_ = 0;
    postsToSkip_ = 0;
    askForSession();
}

// A session that is being opened, or runs, is left alone.
void PortalInputPoster::askForSession()
{
    if (stage_ != Stage::asked && isOpen()) {
        stage_ = Stage::asked;
        portal_->description() ? openSession() : portal_->ask();
    }
}

void PortalInputPoster::portalAnswered()
{
    if (stage_ != Stage::asked || session_) {
        return;
    }
    if (portal_->description()) {
        openSession();
        return;
    }
    stage_ = Stage::failed;
    if (isOpen()) { // else another portal is another matter
        countFailure();
    }
}

void PortalInputPoster::openSession()
{
    session_ = std::make_unique<RemoteDesktopSession>(portal_->bus(), *portal_->description(),
                                                      settings_.token.load(), settings_.patience);
    auto *session = session_.get();
    QObject::connect(session, &RemoteDesktopSession::started, &connections_, [this](const QString &token) {
        settings_.token.save(token);
        grant_ = std::make_unique<Grant>();
    });
    QObject::connect(session, &RemoteDesktopSession::confirmed, &connections_, [this] { failures_ = 0; });
    QObject::connect(session, &RemoteDesktopSession::ended, &connections_,
                     [this](RemoteDesktopSession::End end) { sessionEnded(end); });
    session->open();
}

void PortalInputPoster::sessionEnded(RemoteDesktopSession::End end)
{
    using End = RemoteDesktopSession::End;
    if (end == End::refused) {
        settings_.token.save({}); // it was not enough
        dropSession(Stage::refused);
        return;
    }
    dropSession(end == End::closed ? Stage::closed : Stage::failed);
    countFailure();
}

// The first attempt after a failure is not put off.
void PortalInputPoster::countFailure()
{
    postsToSkip_ = (1U << std::min(failures_, mostDoublings)) - 1;
    ++failures_;
}

// The session may be the one that is telling of its end. It has nothing more to tell.
void PortalInputPoster::dropSession(Stage stage)
{
    QObject::disconnect(session_.get(), nullptr, &connections_, nullptr);
    session_.release()->deleteLater(); // NOLINT(bugprone-unused-return-value)
    grant_.reset();
    stage_ = stage;
    heldKey_ = {};
    scrolledPixels_ = 0;
}

void PortalInputPoster::tryAgain()
{
    if (stage_ == Stage::refused) {
        return;
    }
    if (postsToSkip_ > 0) {
        --postsToSkip_;
    } else {
        askForSession();
    }
}

bool PortalInputPoster::post(const InputEvent &event)
{
    if (!isReady()) {
        tryAgain();
    }
    return std::visit([this](const auto &value) { return postEvent(value); }, event);
}

bool PortalInputPoster::postEvent(const MouseMoved &event)
{
    const auto step = pointer_.stepTo(event.location);
    if (!isReady() || !session_->hasPointer() || !step) {
        return false;
    }
    session_->movePointer(step->dx, step->dy);
    pointer_.advance(*step);
    return true;
}

bool PortalInputPoster::postEvent(const KeyEvent &event)
{
    if (!isReady() || !session_->hasKeyboard()) {
        heldKey_ = {};
        return false;
    }
    if (event.isDown) {
        return heldKey_.press(event.virtualKeyCode, settings_.silentKeys(event.virtualKeyCode));
    }
    const auto carrier = heldKey_.release(event.virtualKeyCode);
    if (carrier) {
        session_->typeKey(*carrier);
    }
    return carrier.has_value();
}

bool PortalInputPoster::postEvent(const ScrollPixels &event)
{
    if (!isReady() || !session_->hasPointer()) {
        refusedPixels_ = event.dy;
        return false;
    }
    if (std::exchange(refusedPixels_, 0) + event.dy == 0 && event.dy != 0) {
        return false;
    }
    scrolledPixels_ += event.dy;
    session_->scroll(event.dy, scrolledPixels_ == 0);
    return true;
}

Obstacle PortalInputPoster::obstacle() const
{
    if (const auto absence = portal_->absence()) {
        return *absence;
    }
    if (isReady()) {
        return {};
    }
    switch (stage_) {
    case Stage::unasked:
        return {QStringLiteral("The desktop has not been asked for leave to control input."),
                QStringLiteral("Start Stirra.")};
    case Stage::asked:
        return {QStringLiteral("The desktop has not answered the request to control input."),
                QStringLiteral("Answer the desktop's question.")};
    case Stage::refused:
        return {QStringLiteral("The request to control input was denied."),
                QStringLiteral("Stop and start Stirra to be asked again.")};
    case Stage::failed:
        return {QStringLiteral("The desktop did not open a session to control input."),
                QStringLiteral("Stirra tries again by itself; stop and start it to try at once.")};
    case Stage::closed:
        return {QStringLiteral("The desktop closed the session to control input."),
                QStringLiteral("Stirra asks for another by itself.")};
    }
    return {};
}

} // namespace platform
