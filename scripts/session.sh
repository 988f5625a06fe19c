# shellcheck shell=bash
# A desktop session of one's own: a virtual X server with a window manager, a session bus, a runtime folder. To be
# sourced after lib.sh. Everything ends with end_session, and with the script that sourced this at the latest.

session_folder=$(mktemp -d)
servers=()

# Away from the terminal's Ctrl+C, so that programs can leave before their servers.
start_server()
{
    setpriv --pdeathsig TERM setsid "$@" >/dev/null 2>&1 &
    servers+=($!)
}

# Servers that choose their own address write it to descriptor 3; it is in `address` afterwards. The pipe stays open here
# throughout: a server may write and close it before anybody reads.
start_addressed_server()
{
    local pipe=$session_folder/address
    mkfifo "$pipe"
    exec 4<>"$pipe"
    start_server "$@" 3>&4 4>&-
    read -r -t 20 -u 4 address || fail "$1 did not start."
    exec 4>&-
    rm "$pipe"
}

# Without -noreset the server would turn clients away for a moment whenever the last one has gone.
start_screen()
{
    start_addressed_server Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset
    export DISPLAY=:$address
}

start_window_manager()
{
    start_server openbox --sm-disable
    wait_until 20 has_window_manager || fail 'openbox did not start.'
}

has_window_manager()
{
    xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'
}

use_private_runtime_folder()
{
    export XDG_RUNTIME_DIR=$session_folder
}

start_bus()
{
    start_addressed_server dbus-daemon --session --nofork --nopidfile --print-address=3
    export DBUS_SESSION_BUS_ADDRESS=$address
}

has_ended()
{
    ! kill -0 "$1" 2>/dev/null
}

end_process()
{
    if kill "$1" 2>/dev/null; then
        wait "$1" 2>/dev/null || true
    fi
}

# What the bus started ends a moment after it, and a document portal has mounted a folder here until then.
remove_session_folder()
{
    rm -rf "$session_folder" 2>/dev/null
}

end_session()
{
    local pid
    for pid in "${servers[@]}"; do
        end_process "$pid"
    done
    wait_until 10 remove_session_folder || true
}
