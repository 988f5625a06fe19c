// Folders and an environment of a test's own, apart from the user's session.
#pragma once

#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace testsupport {

// HOME, XDG_RUNTIME_DIR and the other XDG folders lie in a new folder under /tmp (mode 0700, a path short
// enough for sockets) that is removed in the end. The environment names no display, no bus and no session
// manager, leads to no accessibility bus, and its language is C.UTF-8.
class PrivateRuntime
{
public:
    PrivateRuntime();

    // What programs are started with. Displays and buses write themselves into it.
    [[nodiscard]] QProcessEnvironment &environment() { return environment_; }
    [[nodiscard]] const QProcessEnvironment &environment() const { return environment_; }

    // A path inside the private folder.
    [[nodiscard]] QString path(const QString &name) const { return folder_.filePath(name); }
    [[nodiscard]] QString runtimeFolder() const { return path(QStringLiteral("run")); }

private:
    QTemporaryDir folder_;
    QProcessEnvironment environment_;
};

} // namespace testsupport
