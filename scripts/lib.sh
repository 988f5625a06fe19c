# shellcheck shell=bash
# What the scripts share. To be sourced; leaves the shell in the project's root folder.

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit

fail()
{
    printf '%s\n' "$*" >&2
    exit 1
}

# is_configured <preset>: true where ninja can see to the rest by itself.
is_configured()
{
    [[ build/$1/build.ninja -nt CMakePresets.json ]]
}

# configure <preset> [cmake arguments]. What a folder was configured with by other presets is forgotten: CMake would keep
# it, or, where it was another compiler, forget what the new ones say.
configure()
{
    local options=()
    is_configured "$1" || options=(--fresh)
    cmake "${options[@]}" --preset "$@" >/dev/null
}

# build <preset> [targets]
build()
{
    local preset=$1
    shift
    cmake --build --preset "$preset" ${@:+--target "$@"}
}

# wait_until <seconds> <command ...>: false where the command has not succeeded by then.
wait_until()
{
    local deadline=$((SECONDS + $1))
    shift
    until "$@"; do
        ((SECONDS < deadline)) || return 1
        sleep 0.02
    done
}
