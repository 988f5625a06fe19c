// A way to an X server on which single requests are changed and clients are lost.
#pragma once

#include "Tests/Support/XClient.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <thread>

namespace testsupport {

// A socket that programs take for an X server's; a thread hands everything on to the real one and back.
class XRelay
{
public:
    // What clients send as `from` arrives as `to`, which is as long. REQUIRES: the display is one of this
    // machine's, and outlives the relay.
    XRelay(const QString &display, QByteArray from, QByteArray to);
    // Changes nothing.
    explicit XRelay(const QString &display)
        : XRelay(display, {}, {})
    {}
    XRelay(const XRelay &) = delete;
    XRelay &operator=(const XRelay &) = delete;
    ~XRelay();

    // What DISPLAY is to name: a number that no server picks by itself; empty where there is no socket.
    [[nodiscard]] QString display() const { return display_; }
    // Ends the first client's connection at both ends; those of the others go on.
    void loseFirstClient() { isFirstLost_ = true; }
    // Whether there was anything to change.
    [[nodiscard]] bool hasChangedAny() const { return hasChangedAny_; }

private:
    void open();
    void run();
    void serve(int client, bool isFirst);
    [[nodiscard]] bool hand(int from, int to, bool isRequest);

    QString server_;
    QByteArray from_;
    QByteArray to_;
    QString display_;
    int listener_ = -1;
    std::atomic<bool> isEnding_ = false;
    std::atomic<bool> isFirstLost_ = false;
    std::atomic<bool> hasChangedAny_ = false;
    std::thread thread_;
};

} // namespace testsupport
