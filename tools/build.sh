#!/usr/bin/env bash
# Configures when needed and builds one preset; what it prints goes to a log that is shown, on standard error, only
# when something fails.
# Usage: tools/build.sh PRESET [TARGET ...]     without targets: all
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=$1
shift
folder=build/$preset
log=build/$preset.log

configure() {
    local options=()
    [ "$preset" != windows ] || options=(-DCMAKE_PREFIX_PATH="$(tools/windows/build-qt.sh)")
    cmake --preset "$preset" "${options[@]}"
}

build() {
    tools/install-packages.sh
    [ "$preset" != windows ] || tools/install-packages.sh --windows
    # Once there is a build.ninja, ninja itself configures again whenever a CMake file has changed.
    [ -f "$folder/build.ninja" ] || configure
    ninja -C "$folder" "$@"
}

mkdir -p build
exec 9>"build/$preset.lock"
flock 9 # two builds in one folder would spoil each other's files
if ! build "$@" >"$log" 2>&1 9>&-; then
    cat "$log" >&2
    echo "The $preset build failed; this is $log." >&2
    exit 1
fi
