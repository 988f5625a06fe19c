#include "Tests/Support/ChildProcess.h"

#include <QFile>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <thread>
#include <vector>

namespace testsupport {

namespace {

constexpr int notStarted = 127;
constexpr std::chrono::seconds patience(5);

// Words as execve() wants them; what they point to stays with the list.
std::vector<char *> pointersTo(QList<QByteArray> &words)
{
    std::vector<char *> pointers;
    for (auto &word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

QList<QByteArray> encoded(const QStringList &words)
{
    QList<QByteArray> list;
    for (const auto &word : words) {
        list.append(QFile::encodeName(word));
    }
    return list;
}

void redirect(int descriptor, const char *path)
{
    const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC | O_APPEND, S_IRUSR | S_IWUSR); // NOLINT
    dup2(file, descriptor);
    close(file);
}

// In the new process, where only calls that a signal handler could make are allowed.
[[noreturn]] void become(char *const *arguments, char *const *environment, const char *outputPath,
                         const char *errorPath, pid_t parent)
{
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGTERM); // NOLINT
    if (getppid() != parent) {
        _exit(notStarted);
    }
    redirect(STDOUT_FILENO, outputPath);
    redirect(STDERR_FILENO, errorPath);
    execvpe(arguments[0], arguments, environment);
    _exit(notStarted);
}

int statusFrom(int waitStatus)
{
    return WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : -WTERMSIG(waitStatus); // NOLINT
}

} // namespace

ChildProcess::ChildProcess(const QString &program, const QStringList &arguments,
                           const QProcessEnvironment &environment)
{
    auto words = encoded(QStringList(program) + arguments);
    auto variables = encoded(environment.toStringList());
    const auto wordPointers = pointersTo(words);
    const auto variablePointers = pointersTo(variables);
    const auto outputPath = QFile::encodeName(folder_.filePath(QStringLiteral("stdout")));
    const auto errorPath = QFile::encodeName(folder_.filePath(QStringLiteral("stderr")));
    const auto parent = getpid();
    pid_ = fork();
    if (pid_ == 0) {
        become(wordPointers.data(), variablePointers.data(), outputPath.constData(), errorPath.constData(),
               parent);
    }
    setpgid(pid_, pid_); // here too: whoever comes first, the group exists before it is used
}

ChildProcess::~ChildProcess()
{
    end();
}

std::optional<int> ChildProcess::exitStatus()
{
    int waitStatus = 0;
    if (!exitStatus_ && waitpid(pid_, &waitStatus, WNOHANG) == pid_) {
        exitStatus_ = statusFrom(waitStatus);
    }
    return exitStatus_;
}

std::optional<int> ChildProcess::waitForExit(std::chrono::milliseconds timeout)
{
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (isRunning() && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return exitStatus_;
}

QByteArray ChildProcess::standardOutput() const
{
    return printed("stdout");
}

QByteArray ChildProcess::standardError() const
{
    return printed("stderr");
}

QByteArray ChildProcess::printed(const char *file) const
{
    QFile source(folder_.filePath(QString::fromLatin1(file)));
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

void ChildProcess::sendSignal(int signal)
{
    if (isRunning()) {
        kill(pid_, signal);
    }
}

void ChildProcess::end()
{
    if (pid_ <= 0) {
        return;
    }
    if (isRunning()) {
        kill(-pid_, SIGTERM);
        kill(-pid_, SIGCONT);
    }
    if (!waitForExit(patience)) {
        kill(-pid_, SIGKILL);
        waitForExit(patience);
    }
}

} // namespace testsupport
