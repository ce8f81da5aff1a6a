#!/usr/bin/env bash
# Makes sure that there is a Qt for Windows and prints its folder. Built once, in some 25 minutes, from Debian's source
# package of the Qt that is installed here, because the code generators (moc, uic, rcc) are the installed ones.
# It lives outside the checkout, in $LISPEXTENSION_CACHE (else ~/.cache/lispextension), in a folder named after the
# versions and options that decide how it turns out. That folder appears in one step when everything is done, so an
# interrupted build is never taken for a finished one.
# Usage: tools/windows/build-qt.sh [--is-there]     builds and prints nothing, but says by its status whether it is built
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

# What Debian's tree does not build for Windows, and what nothing here uses.
options=(
    -DINPUT_opengl=no
    -DFEATURE_{concurrent,dbus,network,printsupport,sql,xml,icu,tabletevent,vulkan}=OFF
    -DFEATURE_{direct2d,direct2d1_1,directwrite,directwrite3}=OFF
    -DFEATURE_{hijricalendar,islamiccivilcalendar,jalalicalendar,concatenatetablesproxymodel,transposeproxymodel}=OFF
    -DFEATURE_{movie,textmarkdownreader,textmarkdownwriter,textodfwriter,sessionmanager,systemtrayicon}=OFF
    -DFEATURE_{undocommand,undostack,undogroup,undoview,graphicsview,graphicseffect,columnview,datawidgetmapper}=OFF
    -DFEATURE_{calendarwidget,datetimeedit,dial,fontcombobox,keysequenceedit,lcdnumber,mdiarea,scroller,splashscreen}=OFF
    -DFEATURE_{toolbox,colordialog,errormessage,fontdialog,wizard}=OFF
    -DQT_BUILD_{EXAMPLES,TESTS}=OFF
)

toolchain=$PWD/cmake/MingwToolchain.cmake
quickly=$PWD/cmake/QuickQt.cmake
version=$(dpkg-query -W -f='${source:Version}' qt6-base-dev)
compiler=$(dpkg-query -W -f='${source:Version}' g++-mingw-w64-x86-64-posix)
settings=$(printf '%s\n' "${options[@]}" "$compiler" | sha256sum | cut -c1-12)
cache=${LISPEXTENSION_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/lispextension}
finished=$cache/qt-$version-mingw-$settings
work=$cache/qt-build
[ "${1-}" != --is-there ] || exec test -d "$finished"

# Fetches Debian's source through package lists of our own, so that the machine's apt settings stay as they are.
fetch_source() {
    local apt=$work/apt
    mkdir -p "$apt/lists/partial"
    # _apt, the user that apt downloads as, cannot write here; the archive's signatures are checked all the same.
    apt-get indextargets --format \
        'deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' | sort -u >"$apt/sources.list"
    local settings=(-q -o Dir::Etc::SourceList="$apt/sources.list" -o Dir::Etc::SourceParts=-
        -o Dir::State::Lists="$apt/lists" -o APT::Sandbox::User=)
    apt-get "${settings[@]}" update
    (cd "$work" && apt-get "${settings[@]}" source "qt6-base=$version")
}

build() {
    rm -rf "$work"
    mkdir -p "$work"
    fetch_source
    local launcher=()
    ! command -v ccache >/dev/null || launcher=(-DCMAKE_C{,XX}_COMPILER_LAUNCHER=ccache)
    export CCACHE_BASEDIR=$work CCACHE_SLOPPINESS=pch_defines,time_macros # its words for precompiled headers
    nice -n 19 cmake -G Ninja -S "$work"/qt6-base-*/ -B "$work/build" -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$work/installed" \
        -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
        -DCMAKE_PROJECT_QtBase_INCLUDE="$quickly" "${launcher[@]}" "${options[@]}"
    nice -n 19 ninja -C "$work/build" -j "${JOBS:-$(nproc)}"
    nice -n 19 ninja -C "$work/build" install
    mv "$work/installed" "$finished"
    rm -rf "$work"
}

mkdir -p "$cache"
exec 9>"$cache/qt.lock"
flock 9
if [ ! -d "$finished" ]; then
    echo "Building Qt for Windows, once; the log is $cache/qt-build.log" >&2
    if ! build >"$cache/qt-build.log" 2>&1 9>&-; then
        tail -n 60 "$cache/qt-build.log" >&2
        echo "Building Qt for Windows failed; all of it is in $cache/qt-build.log." >&2
        exit 1
    fi
fi
echo "$finished"
