// A service on a private bus whose answers are the test's.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMap>

#include <functional>
#include <vector>

namespace testsupport {

class PrivateBus;

// Owns a name on the bus and answers, at every path, the methods that it was told of, from inside the test's
// process while that handles Qt events. Other methods are unknown.
class FakeBusService : private QDBusVirtualObject
{
public:
    // An invalid message leaves the call without an answer.
    using Answer = std::function<QDBusMessage(const QDBusMessage &call)>;

    // REQUIRES: an application object; the bus outlives the service.
    FakeBusService(const PrivateBus &bus, const char *name);
    // Its connection ends, and calls that wait for an answer fail.
    ~FakeBusService() override;

    // Whether the name could be had.
    [[nodiscard]] bool isOpen() const { return isOpen_; }

    void answer(const char *method, Answer answer);
    void answer(const char *method, const QVariantList &values);
    void refuse(const char *method, const char *error);
    void ignore(const char *method);
    // Takes calls of a portal's method that asks the user. The request answers later, with respond().
    void answerLater(const char *method);
    // The same, and the request is answered before the call is.
    void answerAtOnce(const char *method, unsigned code);

    // Answers the request of the last such call: 0 granted, 1 refused, 2 failed.
    void respond(unsigned code);

    // Of the method, oldest first.
    [[nodiscard]] std::vector<QDBusMessage> calls(const char *method) const;

private:
    [[nodiscard]] QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

    QDBusConnection bus_;
    QMap<QString, Answer> answers_;
    std::vector<QDBusMessage> calls_;
    QDBusMessage request_;
    bool isOpen_ = false;
};

} // namespace testsupport
