// A program that a test starts, watches and ends.
#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

#include <sys/types.h>

#include <chrono>
#include <optional>

namespace testsupport {

// Needs no Qt application and no event loop: what the program prints goes to files, its end is asked for.
// The program is the head of a process group of its own, and is ended when the test process dies.
class ChildProcess
{
public:
    // Looks the program up in PATH where it has no slash; one that cannot be started exits with 127.
    ChildProcess(const QString &program, const QStringList &arguments,
                 const QProcessEnvironment &environment);
    // Ends the process: SIGTERM to its group, after some seconds SIGKILL, each by process id.
    ~ChildProcess();

    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    [[nodiscard]] pid_t pid() const { return pid_; }
    [[nodiscard]] bool isRunning() { return !exitStatus().has_value(); }

    // The exit code, or minus the signal that ended the process; nothing while it runs.
    [[nodiscard]] std::optional<int> exitStatus();
    // The same, after waiting for the end at most so long. Looks every millisecond.
    std::optional<int> waitForExit(std::chrono::milliseconds timeout = std::chrono::seconds(10));

    // What was printed so far.
    [[nodiscard]] QByteArray standardOutput() const;
    [[nodiscard]] QByteArray standardError() const;

    // Sends a signal to the process alone; nothing happens when it has ended.
    void sendSignal(int signal);
    // As the destructor does, and waits for the end.
    void end();

private:
    [[nodiscard]] QByteArray printed(const char *file) const;

    QTemporaryDir folder_;
    pid_t pid_ = -1;
    std::optional<int> exitStatus_;
};

} // namespace testsupport
