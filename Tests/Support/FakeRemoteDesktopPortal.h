// A desktop that lets programs control its input, or does not, as the RemoteDesktop portal would tell it.
#pragma once

#include "Tests/Support/RemoteDesktopInput.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>

#include <vector>

namespace testsupport {

class PrivateBus;

// Owns org.freedesktop.portal.Desktop on a private bus and answers org.freedesktop.portal.RemoteDesktop from
// inside the test's process, while that handles Qt events. It refuses calls that a portal refuses: those for
// another session, or before the session runs, or after its end.
class FakeRemoteDesktopPortal : private QDBusVirtualObject
{
public:
    enum class Answer {
        grant,
        refuse,  // as the user
        fail,    // for another reason
        error,   // to the call itself
        silence, // to the call too
        later,   // to the call at once, to the request never, or with answerQuestion()
    };

    struct Script
    {
        unsigned version = 2;
        unsigned deviceTypes = 7;
        unsigned grantedDevices = 3;
        bool hasRemoteDesktop = true;
        bool isSilent = false; // answers no call
        bool givesTokens = true;
        Answer toCreate = Answer::grant;
        Answer toSelect = Answer::grant;
        Answer toQuestion = Answer::grant; // what the user says
        bool takesInput = true;            // else every input is answered with an error
    };

    using Input = RemoteDesktopInput;

    // REQUIRES: an application object; the bus outlives the portal.
    explicit FakeRemoteDesktopPortal(const PrivateBus &bus);
    FakeRemoteDesktopPortal(const PrivateBus &bus, Script script);
    ~FakeRemoteDesktopPortal() override;

    // Whether the name could be had.
    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] Script &script() { return script_; }

    // Is told of all input that is taken.
    void onInput(RemoteDesktopInputFunction function) { inputFunction_ = std::move(function); }
    // Takes this token as one that it gave out before.
    void acceptToken(const QString &token) { validTokens_.append(token); }

    // The user answers the question that waits, or that was asked the last.
    void answerQuestion(Answer answer);
    // The desktop ends the session that runs.
    void closeSession();
    // Forgets the session without a word.
    void loseSession() { sessionPath_.clear(); }

    [[nodiscard]] int callCount() const { return callCount_; }         // of any method
    [[nodiscard]] int sessionCount() const { return sessionCount_; }   // that were asked for
    [[nodiscard]] int questionCount() const { return questionCount_; } // that the user saw
    [[nodiscard]] bool hasSession() const { return !sessionPath_.isEmpty(); }
    [[nodiscard]] bool isSessionRunning() const { return isRunning_; }
    // The options of each SelectDevices, but for the handle's token.
    [[nodiscard]] const std::vector<QVariantMap> &selections() const { return selections_; }
    // The last one that was given out.
    [[nodiscard]] QString token() const { return validTokens_.isEmpty() ? QString() : validTokens_.last(); }
    [[nodiscard]] const std::vector<Input> &inputs() const { return inputs_; }
    // What programs closed: "Request" and "Session".
    [[nodiscard]] const QStringList &closed() const { return closed_; }

private:
    [[nodiscard]] QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

    bool handleProperties(const QDBusMessage &message);
    bool handleClose(const QDBusMessage &message);
    bool handleRemoteDesktop(const QDBusMessage &message);
    bool createSession(const QDBusMessage &message);
    bool selectDevices(const QDBusMessage &message);
    bool start(const QDBusMessage &message);
    bool takeInput(const QDBusMessage &message);

    bool answer(const QDBusMessage &message, Answer answer, const QVariantMap &results = {});
    bool fail(const QDBusMessage &message, const QString &error);
    void respond(const QString &program, const QString &request, Answer answer, const QVariantMap &results);
    [[nodiscard]] QVariantMap startSession();

    QDBusConnection bus_;
    Script script_;
    RemoteDesktopInputFunction inputFunction_;
    QString program_;
    QString sessionPath_;
    QString questionPath_;
    QStringList validTokens_;
    bool isRestored_ = false;
    bool isRunning_ = false;
    int callCount_ = 0;
    int sessionCount_ = 0;
    int questionCount_ = 0;
    std::vector<QVariantMap> selections_;
    std::vector<Input> inputs_;
    QStringList closed_;
    bool isOpen_ = false;
};

} // namespace testsupport
