// Windows that are in no list of running programs, on X11.
#pragma once

namespace platform {

// From now on no window of the program is in the task bar or the pager (_NET_WM_STATE_SKIP_TASKBAR and
// _NET_WM_STATE_SKIP_PAGER), those that are shown already included. May be called more than once. Where the
// toolkit does not run on X11 nothing happens: Wayland leaves it to the compositor which windows it lists.
// Main thread. REQUIRES: a QGuiApplication lives.
void keepWindowsOffTheTaskBar();

} // namespace platform
