// A user session of the benchmarks' own: folders, a display, a session bus, and a window manager where
// wanted.
#pragma once

#include "Tests/Support/PrivateBus.h"
#include "Tests/Support/PrivateRuntime.h"
#include "Tests/Support/PrivateXvfb.h"
#include "Tests/Support/WindowManager.h"
#include "Tests/Support/XClient.h"

#include <memory>

namespace benchmarks {

class Desktop
{
public:
    enum class Windows { managed, unmanaged };

    // Throws NotMeasured where a part of it does not come up.
    explicit Desktop(Windows windows);

    [[nodiscard]] QString display() const { return display_.display(); }
    [[nodiscard]] const testsupport::PrivateRuntime &runtime() const { return runtime_; }
    [[nodiscard]] const testsupport::PrivateBus &bus() const { return bus_; }
    [[nodiscard]] const QProcessEnvironment &environment() const { return runtime_.environment(); }
    // For the programs that are started from now on.
    void setVariable(const char *name)
    {
        runtime_.environment().insert(QString::fromLatin1(name), QStringLiteral("1"));
    }
    // A client of the display that is none of the programs.
    [[nodiscard]] const testsupport::XClient &client() const { return client_; }

    // Starts one of the programs that were built beside this one, or any other by its path.
    [[nodiscard]] std::unique_ptr<testsupport::ChildProcess> start(const QString &program) const
    {
        return start(program, {}, environment());
    }
    [[nodiscard]] std::unique_ptr<testsupport::ChildProcess>
    start(const QString &program, const QStringList &arguments, const QProcessEnvironment &environment) const;
    // The same, and waits until its window is on the screen. Throws NotMeasured where none comes.
    [[nodiscard]] std::unique_ptr<testsupport::ChildProcess> open(const QString &program) const;

    // The only window on the screen. Throws NotMeasured where there is none.
    [[nodiscard]] xcb_window_t window() const;
    // Closes it as the user does, and waits until it is gone.
    void closeWindow() const;
    // Types a key into the window that has the focus. Names are those of X key symbols' values.
    void type(xcb_keysym_t key) const;

private:
    testsupport::PrivateRuntime runtime_;
    testsupport::PrivateXvfb display_;
    testsupport::PrivateBus bus_;
    std::unique_ptr<testsupport::WindowManager> windowManager_;
    testsupport::XClient client_;
};

} // namespace benchmarks
