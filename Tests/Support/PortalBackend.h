// A desktop's own part of the portal, behind the real one.
#pragma once

#include "Tests/Support/PrivateBus.h"
#include "Tests/Support/RemoteDesktopInput.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>

namespace testsupport {

// Implements org.freedesktop.impl.portal.RemoteDesktop from inside the test's process, while that handles Qt
// events: it asks the user, which is the test, and takes the input.
class PortalBackend : private QDBusVirtualObject
{
public:
    enum class Answer { grant, refuse };

    // REQUIRES: an application object; the bus outlives the backend.
    explicit PortalBackend(const PrivateBus &bus);
    ~PortalBackend() override;

    // Writes into the folder what makes this the portal's backend of a desktop, and tells its environment.
    [[nodiscard]] static bool announce(const QString &folder, QProcessEnvironment &environment);

    // Whether the name could be had.
    [[nodiscard]] bool isOpen() const { return isOpen_; }

    // What the user says to the next questions.
    void setAnswer(Answer answer) { answer_ = answer; }
    // Is told of all input.
    void onInput(RemoteDesktopInputFunction function) { inputFunction_ = std::move(function); }
    // The desktop ends the session that was granted last.
    void closeSession();

    // How often the user was asked.
    [[nodiscard]] int questionCount() const { return questionCount_; }
    // How many sessions were closed from the program's side.
    [[nodiscard]] int closedCount() const { return closedCount_; }
    // Of the session that was asked for last.
    [[nodiscard]] unsigned deviceTypes() const { return deviceTypes_; }

private:
    [[nodiscard]] QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;
    bool handleProperties(const QDBusMessage &message);
    bool reply(const QDBusMessage &message, Answer answer, const QVariantMap &results = {});
    bool takeInput(const QDBusMessage &message);

    QDBusConnection bus_;
    RemoteDesktopInputFunction inputFunction_;
    QString sessionPath_;
    Answer answer_ = Answer::grant;
    int questionCount_ = 0;
    int closedCount_ = 0;
    unsigned deviceTypes_ = 0;
    bool isOpen_ = false;
};

} // namespace testsupport
