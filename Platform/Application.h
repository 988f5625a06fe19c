// The life of a program of the family, from main() to its end.
#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace platform {

// The names under which the desktop, the user and the program's own files know it.
struct ApplicationNames
{
    QString name;         // of its folders and its defaults: "stirra"
    QString displayName;  // that users read: "Stirra"
    QString desktopEntry; // without the ending, and its name on the session bus: "org.stirra.Stirra"
};

// What a program does at the turns of its life. Main thread.
class ApplicationDelegate
{
public:
    ApplicationDelegate() = default;
    ApplicationDelegate(const ApplicationDelegate &) = delete;
    ApplicationDelegate &operator=(const ApplicationDelegate &) = delete;
    virtual ~ApplicationDelegate() = default;

    // Once, before the main loop.
    virtual void applicationDidFinishLaunching() = 0;
    // The user opened the running application again. The token is the right to take the focus; it may be
    // empty.
    virtual void applicationReopened(const QString &activationToken) = 0;
};

// Runs the main loop and returns the exit status: 0 after an orderly end, and at once where another process
// of the session is the application already; that one hears that it is opened again. The delegate is made
// where this process is the application, with the operating system's platform installed, and ends before it.
// Closing the last window does not end the program. Call first thing in main(), once.
int runApplication(int argc, char **argv, const ApplicationNames &names,
                   const std::function<std::unique_ptr<ApplicationDelegate>()> &makeDelegate);

} // namespace platform
