// One request for the microphone.
#pragma once

#include "Platform/Linux/Permissions/LinuxPermissions.h"
#include "Platform/Linux/Portal/RemoteDesktopRequest.h"

#include <QDBusServiceWatcher>
#include <QTimer>

namespace platform {

// Answers once: with what is settled, or, in a sandbox, with what the user answers to the Device portal.
// False where the services have not come to the question within their time, and where one of them, or the
// bus, ends before the answer. A child of the application that deletes itself after the answer. Main thread.
class MicrophoneRequest final : public QObject
{
    Q_OBJECT

public:
    MicrophoneRequest(PermissionSources sources, Permissions::Answer answer);

    // Once.
    void start();

private Q_SLOTS:
    void giveUp() { finish(false); }

private:
    using Step = void (MicrophoneRequest::*)(const QDBusMessage &answer);

    void ask(const QDBusMessage &question, Step next);
    void takeSwitch(const QDBusMessage &answer);
    void takeStore(const QDBusMessage &answer);
    void takePortal(const QDBusMessage &answer);
    void askUser(const QString &portal);
    void finish(bool isGranted);

    PermissionSources sources_;
    Permissions::Answer answer_; // empty after the answer
    QTimer patience_;
    QDBusServiceWatcher portalWatcher_;
};

} // namespace platform
