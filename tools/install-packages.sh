#!/usr/bin/env bash
# Installs Debian packages that are missing, as root or through sudo. Quick and silent when nothing is missing.
# Usage: tools/install-packages.sh [PACKAGE ...]     without arguments: what building and testing needs
#        tools/install-packages.sh --windows         what building and testing for Windows needs besides
set -euo pipefail

# The project's lists of packages.
build_packages=(
    # compilers, build and debugging aids
    g++ clang-14 libclang-rt-14-dev cmake ninja-build ccache pkg-config binutils git
    # what the programs are made of
    qt6-base-dev qt6-base-dev-tools fonts-dejavu-core fonts-liberation fonts-osifont
    libstb-dev libedit-dev libcli11-dev libseccomp-dev libx11-dev
    # tests and benchmarks
    libgtest-dev libgmock-dev librapidcheck-dev libbenchmark-dev libdxflib-dev python3 python3-ezdxf attr libattr1-dev
    # a screen for the tests of windows
    xvfb openbox xdotool dbus-daemon
    # formatting and lint
    clang-format-14 clang-tidy-14
)
windows_packages=(
    # the cross compiler, what unpacks Qt's sources, googletest's sources, and what runs the programs
    g++-mingw-w64-x86-64-posix dpkg-dev googletest wine wine64
)
case ${1-} in
'') wanted=("${build_packages[@]}") ;;
--windows) wanted=("${windows_packages[@]}") ;;
*) wanted=("$@") ;;
esac

is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

list_missing() {
    # One query for all is much quicker than one each; the single queries follow only when it finds something missing.
    local states
    if states=$(dpkg-query -W -f='${db:Status-Status}\n' "${wanted[@]}" 2>/dev/null) &&
        ! grep -qvx installed <<<"$states"; then
        return
    fi
    local package
    for package in "${wanted[@]}"; do
        is_installed "$package" || echo "$package"
    done
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "install-packages: neither root nor sudo; as root: apt-get install ${missing[*]}" >&2
        exit 1
    fi
}

apt() {
    # Waits for another installation that is under way instead of failing on its lock.
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=600 "$@"
}

mapfile -t missing < <(list_missing)
[ ${#missing[@]} -gt 0 ] || exit 0
echo "Installing ${missing[*]}"
apt update || echo "install-packages: no fresh package lists; going on with the ones at hand" >&2
apt install --no-install-recommends "${missing[@]}"
