// The file that keeps the portal's leave from one run of the program to the next.
#pragma once

#include <QString>

namespace platform {

// A restore token in a file that the user alone can read, in a folder that the user alone can enter. Each
// token opens one session, and that session gives the next.
class RemoteDesktopToken
{
public:
    // $XDG_STATE_HOME/stirra/remote-desktop-token, where the default of XDG_STATE_HOME is ~/.local/state.
    [[nodiscard]] static QString defaultFile();

    explicit RemoteDesktopToken(QString file = defaultFile());

    // Empty where there is none, or the file has something else.
    [[nodiscard]] QString load() const;
    // In place of any before; an empty one removes the file. False where it cannot be kept: the user is asked
    // again the next time.
    bool save(const QString &token) const;

private:
    QString file_;
};

} // namespace platform
