// Where the desktops' settings have what a link to the privacy settings means.
#pragma once

#include <QStringList>

#include <optional>

namespace platform {

// A program and its arguments, without a shell.
struct SettingsCommand
{
    QString program; // an absolute path
    QStringList arguments;

    bool operator==(const SettingsCommand &) const = default;
};

// What opens the page of `anchor` ("Privacy_Microphone"): the settings of the running desktop, by
// XDG_CURRENT_DESKTOP, where they are installed, or those of another that work outside of their own. Nothing
// where there are none, and for an anchor that is not known. Pages: GNOME 43, Plasma 5.27, Xfce 4.18; a
// program that lacks one shows its first. Any thread.
[[nodiscard]] std::optional<SettingsCommand> settingsCommand(const QString &anchor);

} // namespace platform
