#!/usr/bin/env bash
# Runs a Windows program under Wine, without windows on any screen and without Wine's own messages.
# Usage: tools/windows/wine.sh PROGRAM.exe [ARGUMENT ...]
# The Windows that it finds (drive C, the registry) is in $LISPEXTENSION_CACHE (else ~/.cache/lispextension), or where
# WINEPREFIX says; it is made at the first use and takes 700 MB. Drive Z is this machine's root folder. With a DISPLAY and
# QT_QPA_PLATFORM=windows there are windows, in a Windows apart: one that started without a display stays without.
set -euo pipefail
wine=/usr/lib/wine/wine64

export WINEPREFIX=${WINEPREFIX:-${LISPEXTENSION_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/lispextension}/wine}
export WINEDEBUG=${WINEDEBUG:--all}
# Neither .NET nor an HTML engine, which Wine would offer to install, nor entries in this machine's menus.
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=;winemenubuilder.exe=}
export LC_ALL=C.UTF-8 # file names and arguments reach Windows through this
# Wine keeps the variables of this machine's Qt from its programs, except under such names.
for variable in "${!QT_@}"; do
    export "WINE$variable=${!variable}"
done

on_screen=
if [ -n "${DISPLAY-}" ] && [ "${QT_QPA_PLATFORM-}" = windows ]; then
    on_screen=yes
    WINEPREFIX+=-screen
fi

complete=$WINEPREFIX/.complete-4 # the number changes with what make_prefix does

# The fonts that Windows' own programs are shown in are not here; those of Debian take their place.
replace_fonts() {
    local name
    for name in "${@:2}"; do
        env -u DISPLAY "$wine" reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$name" /d "$1" /f \
            >>"$WINEPREFIX.log" 2>&1 9>&-
    done
}

make_prefix() {
    mkdir -p "$WINEPREFIX"
    exec 9>"$WINEPREFIX/.lock"
    flock 9
    [ -f "$complete" ] && return
    # As long as nobody is asked for a display, nothing waits for a window to be closed.
    env -u DISPLAY "$wine" wineboot --init >"$WINEPREFIX.log" 2>&1 9>&-
    # Without a display the system's message boxes are there all the same, on a screen that nobody sees.
    env -u DISPLAY "$wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d x11,null /f >>"$WINEPREFIX.log" 2>&1 9>&-
    replace_fonts 'DejaVu Sans' 'MS Shell Dlg' 'MS Shell Dlg 2' 'Segoe UI' 'Tahoma' 'Arial'
    replace_fonts 'DejaVu Sans Mono' 'Courier New'
    # The next server is one with our rights; programs that do not end by themselves have lost theirs.
    timeout 30 /usr/lib/wine/wineserver -w 9>&- || /usr/lib/wine/wineserver -k 9>&- || true
    # Wine looks for the names of drives on the disks themselves, and complains about each that it may not read.
    ln -sfn /dev/null "$WINEPREFIX/dosdevices/c::"
    ln -sfn /dev/null "$WINEPREFIX/dosdevices/z::"
    touch "$complete"
}

# The server that opens files for all programs. It stays for a while when they have ended, because its start takes
# seconds, and root's is bound by permissions like everybody's. The services that come with it stay as long and have
# the standard streams of the program that they start with: with those of a test, its reader would wait for their end.
start_server() {
    local bound=()
    [ "$(id -u)" -ne 0 ] || bound=(setpriv --bounding-set=-dac_override,-dac_read_search)
    "${bound[@]}" /usr/lib/wine/wineserver -p20 8>&- 9>&- || return 0 # there is one already
    "$wine" cmd /c exit </dev/null 8>&- 9>&-
}

# The same holds for the desktop, whose process comes with the first program that has to do with windows and goes with the
# last: so one is there without windows that are seen, until no program has been started for a while.
keep_desktop() {
    while sleep 5; do
        flock 9
        [ -n "$(find "$used" -newermt '-90 seconds')" ] || break
        flock -u 9
    done
    kill "$1"
}

start_windows() {
    used=$WINEPREFIX/.used
    exec <&- >/dev/null 2>&1 8>"$WINEPREFIX/.desktop-lock" 9>"$WINEPREFIX/.server-lock"
    flock 9
    touch "$used"
    start_server
    flock -n 8 || return 0 # the desktop is there already
    "$wine" notepad </dev/null 8>&- 9>&- &
    local holder=$!
    timeout 30 "$wine" rundll32 user32.dll,GetDesktopWindow </dev/null 8>&- 9>&- || true # ends when there is a desktop
    flock -u 9
    keep_desktop "$holder" &
}

[ -f "$complete" ] || (make_prefix)
[ -n "$on_screen" ] || (start_windows) # the next screen is another one
# The server's pipes would become the standard streams that are closed, and what the program prints requests to the server.
for stream in 0 1 2; do
    [ -e "/dev/fd/$stream" ] || eval "exec $stream</dev/null"
done
exec "$wine" "$@"
