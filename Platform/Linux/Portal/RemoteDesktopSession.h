// A session of the RemoteDesktop portal: the leave to send input.
#pragma once

#include "Platform/Linux/Portal/RemoteDesktopPortal.h"
#include "Platform/Linux/Portal/RemoteDesktopRequest.h"

#include <QElapsedTimer>
#include <QTimer>

#include <chrono>

namespace platform {

// Opens without waiting, and runs until it ends. What it sends is not answered, since each answer would wake
// the program, but for one call a second at most and each key: an error tells of a session that is gone,
// should the portal not have said so. One thread, which has a Qt event loop.
class RemoteDesktopSession final : public QObject
{
    Q_OBJECT

public:
    enum class End {
        refused, // by the user
        failed,  // before it ran
        closed,  // by the desktop
    };

    // How long the portal may take for a step that asks the user nothing.
    static constexpr std::chrono::milliseconds defaultPatience = std::chrono::seconds(25);

    // `restoreToken` is what started() gave the last time, or empty.
    RemoteDesktopSession(const QDBusConnection &bus, RemoteDesktopPortal::Description portal,
                         QString restoreToken, std::chrono::milliseconds patience = defaultPatience);
    // Closes the session, and the question that the user may be looking at.
    ~RemoteDesktopSession() override;

    // Once. The user may be asked, and take any time.
    void open();

    [[nodiscard]] bool isRunning() const { return devices_ != 0; }
    [[nodiscard]] bool hasKeyboard() const;
    [[nodiscard]] bool hasPointer() const;

    // REQUIRES: hasPointer().
    void movePointer(double dx, double dy);
    // In pixels, downwards; the last scroll of a series says so.
    void scroll(double dy, bool isLast);
    // One key, by evdev code, goes down and comes up. REQUIRES: hasKeyboard().
    void typeKey(std::int32_t code);
    // The same for a key symbol, as far as the desktop's layout has it; the portal does not tell. Waits for
    // the portal, at most a second for each of the two: not for the main thread. False where it refuses or
    // does not answer. REQUIRES: hasKeyboard().
    [[nodiscard]] bool typeSymbolAndWait(std::int32_t symbol);

Q_SIGNALS:
    // The token opens the next session without a question, once; empty where the portal gives none.
    void started(const QString &restoreToken);
    // The portal has taken what was sent.
    void confirmed();
    // Once; nothing works after it.
    void ended(platform::RemoteDesktopSession::End end);

private Q_SLOTS:
    void sessionClosed();

private:
    using Step = void (RemoteDesktopSession::*)(const QVariantMap &results);

    void createSession();
    void selectDevices(const QVariantMap &results);
    void start(const QVariantMap &results);
    void run(const QVariantMap &results);
    [[nodiscard]] QVariantMap deviceOptions() const;

    void request(const char *method, QVariantList arguments, QVariantMap options, Step next);
    void takeAnswer(RemoteDesktopRequest::Answer answer, const QVariantMap &results, Step next);
    [[nodiscard]] QDBusMessage notification(const char *method, const QVariantList &arguments,
                                            const QVariantMap &options = {}) const;
    void notify(const char *method, const QVariantList &arguments, const QVariantMap &options = {});
    QDBusPendingCallWatcher *callAnswered(const QDBusMessage &call);
    void takeNotifyReply(QDBusPendingCallWatcher *reply);
    void end(End end);

    QDBusConnection bus_;
    RemoteDesktopPortal::Description portal_;
    QString restoreToken_;
    RemoteDesktopRequest *request_ = nullptr; // child
    QString path_;                            // of the session; empty before there is one and after its end
    unsigned devices_ = 0;
    bool hasEnded_ = false;
    QTimer patience_;
    QElapsedTimer sinceAnsweredCall_;
};

} // namespace platform
