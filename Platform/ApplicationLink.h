// How the desktop, and a second launch, talk to the running application.
#pragma once

#include <QObject>
#include <QString>

namespace platform {

// Main thread.
class ApplicationLink : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // True: this process is the application of the user's session from now on, and the signals below may
    // come. False: another process is; it was asked to show itself, with the right to activation that this
    // launch was given, and this one should end. Of processes that call this at the same instant exactly one
    // gets true. Returns within 0.25 s, also when the other process does not answer.
    [[nodiscard]] virtual bool claim() = 0;

Q_SIGNALS:
    // The user opened the application again. The token is the right to take the focus; it may be empty.
    void reopenRequested(const QString &activationToken);

    // The user, the session's end or the system asks the application to quit.
    void quitRequested();
};

} // namespace platform
