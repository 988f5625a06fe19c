# shellcheck shell=bash
# What the packaging tests share. To be sourced; leaves the shell in the project's root folder.

source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/lib.sh"

# entry <key> [<group>] [<file>]: the value of a key of the desktop entry.
entry()
{
    local file=${3:-Packaging/org.stirra.Stirra.desktop}
    awk -F= -v key="$1" -v group="[${2:-Desktop Entry}]" '
        /^\[/ { inside = $0 == group }
        inside && $1 == key { print substr($0, length(key) + 2) }' "$file"
}

# expect <what> <expected> <actual>
expect()
{
    [[ $2 == "$3" ]] || fail "$1 is '$3' and should be '$2'."
}
