// A Wayland compositor without a screen, of a test's own, that lets programs post input.
#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"

#include <QTemporaryDir>

#include <memory>

namespace testsupport {

// sway, drawing 1280 x 800 into memory, without an input device, a bar or Xwayland. It refuses to run as
// root, and then runs as the user nobody in a folder of its own. The focus does not follow the pointer.
// Started when made and ended when destroyed.
class PrivateSway
{
public:
    // Writes WAYLAND_DISPLAY into the runtime's environment, an absolute path, and has Stirra post through
    // the compositor or not at all, so that nothing can reach the machine's own devices. REQUIRES: the
    // runtime outlives it. Further lines of its configuration can be given.
    explicit PrivateSway(PrivateRuntime &runtime, const QByteArray &furtherConfiguration = {});

    // Whether the compositor came up.
    [[nodiscard]] bool isOpen() const { return !display_.isEmpty(); }
    // The path of its socket.
    [[nodiscard]] QString display() const { return display_; }
    [[nodiscard]] ChildProcess &process() { return *process_; }

    // Has sway carry out a command of its configuration's language; false where it refuses.
    [[nodiscard]] bool command(const QString &words) const;
    // Puts the pointer to a place of the screen. REQUIRES: somebody posts through a pointer.
    [[nodiscard]] bool putPointer(int x, int y) const;

private:
    [[nodiscard]] QStringList commandLine() const;
    [[nodiscard]] QProcessEnvironment environmentFor(const PrivateRuntime &runtime) const;

    QTemporaryDir folder_;
    std::unique_ptr<ChildProcess> process_;
    QString display_;
};

} // namespace testsupport
