#include "Tests/Support/SessionManager.h"

#include "Tests/Support/Eventually.h"

#include <QFile>

#include <csignal>

namespace testsupport {

namespace {

void writeFile(const QString &path, const QString &text)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(text.toUtf8());
    }
}

QString readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

// The manager's address is known only to the programs that it starts: the session begins with one that
// writes it down.
SessionManager::SessionManager(PrivateRuntime &runtime)
{
    const auto address = runtime.path(QStringLiteral("session-manager"));
    const auto script = runtime.path(QStringLiteral("first-program"));
    writeFile(script, QStringLiteral("#!/bin/sh\nprintf '%s.' \"$SESSION_MANAGER\" > '%1'\n")
                          .replace(QStringLiteral("%1"), address));
    QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    writeFile(runtime.path(QStringLiteral("home/.xsmstartup")), script + QLatin1Char('\n'));
    process_ = std::make_unique<ChildProcess>(QStringLiteral("xsm"), QStringList(), runtime.environment());
    isOpen_ = eventually([&] { return readFile(address).endsWith(QLatin1Char('.')); });
    if (isOpen_) {
        runtime.environment().insert(QStringLiteral("SESSION_MANAGER"), readFile(address).chopped(1));
    }
}

void SessionManager::saveSession()
{
    process_->sendSignal(SIGUSR1);
}

void SessionManager::endSession()
{
    process_->sendSignal(SIGTERM);
}

} // namespace testsupport
