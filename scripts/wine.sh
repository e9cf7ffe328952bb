#!/usr/bin/env bash
# Runs a Windows program under Wine. The Wine prefix is build/wine-PRESET. Standard streams,
# arguments and exit code pass through unchanged.
# Usage: wine.sh PRESET PROGRAM.exe [ARGUMENT...]
#        wine.sh --make PRESET      only makes the prefix
#        wine.sh --prepare PRESET   makes the prefix and starts Wine's services
#        wine.sh --hold PRESET      keeps Wine's services running until standard input ends
#        wine.sh --end PRESET       ends what is still running in the prefix
# PRESET is win32 or win64. A program runs on the display that DISPLAY names. When DISPLAY is unset,
# it gets a display of its own.
# Variables of the environment:
#   QUILLMARK_WINE_HELD=1   another process keeps the services running, and the display
#   QUILLMARK_WINE_SLOT=N   use a copy of the prefix, build/wine-PRESET-N, to run side by side
#   QUILLMARK_WINE_DEBUG    WINEDEBUG for the program; by default Wine reports nothing
#   QUILLMARK_WINE_CPU=N    run everything on this processor alone
set -euo pipefail

repo=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

die() {
    echo "wine.sh: $*" >&2
    exit 125
}

mode=run
case ${1:-} in
    --make | --prepare | --hold | --end)
        mode=${1#--}
        shift
        ;;
esac
preset=${1:-}
[[ $preset == win32 || $preset == win64 ]] || die "the preset is win32 or win64, not '$preset'"
shift

original=$repo/build/wine-$preset
export WINEPREFIX=$original${QUILLMARK_WINE_SLOT:+-$QUILLMARK_WINE_SLOT}
export WINEARCH=$preset
export WINEDEBUG=-all
# Wine must not offer to download Mono and Gecko, and must not write menu entries into the user's
# home folder. Where a test has put a help viewer of its own, Wine must prefer it to Wine's.
export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d;hhctrl.ocx=n,b'
# Wine takes the code page from the locale. Results must not depend on the locale of the machine.
export LC_ALL=C.UTF-8

[[ -z ${QUILLMARK_WINE_CPU:-} ]] || taskset -pc "$QUILLMARK_WINE_CPU" $$ >/dev/null

in_wine() {
    if [[ $preset == win32 ]]; then
        "$repo/scripts/wine32.sh" exec "$@"
    else
        "$@"
    fi
}

require_wine() {
    if [[ $preset == win32 ]]; then
        "$repo/scripts/wine32.sh" present || die "there is no 32-bit Wine"
    else
        [[ -x /usr/lib/wine/wine64 ]] || die "there is no 64-bit Wine"
    fi
}

# Debian's Wine 8 does not find its fonts in /usr/share/wine, and would draw the buttons of captions
# as digits and letters. But it always looks in the fonts folder of the prefix.
link_fonts() {
    local fonts=$WINEPREFIX/drive_c/windows/Fonts
    mkdir -p "$fonts"
    # shellcheck disable=SC2016
    in_wine sh -c 'cd "$1" && find /usr/share/wine/fonts -type f -exec ln -s -t . {} +' sh "$fonts"
}

make_prefix() {
    local log=$repo/build/logs/wine-$preset.log
    mkdir -p "$repo/build/logs"
    link_fonts >"$log" 2>&1 </dev/null || echo "wine.sh: Wine's fonts are missing, see $log" >&2
    in_wine wine wineboot -i >>"$log" 2>&1 </dev/null ||
        die "Wine could not make its prefix, see $log"
    # In a desktop window of Wine, Wine draws the captions and activates windows itself, so no
    # window manager is needed.
    in_wine wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f >>"$log" 2>&1
    in_wine wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1200x900 /f \
        >>"$log" 2>&1
    # With this value a program that crashes ends at once. Wine then writes the cause to standard
    # error and shows no dialog.
    in_wine wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f \
        >>"$log" 2>&1
    # Wine's services run already and would go on without the new desktop.
    in_wine wineserver -k || true
}

# Wine's own programs and libraries are most of a prefix. Nothing changes them, so hard links do
# instead of copies. The descriptions of printers are beside them: Wine writes these anew whenever a
# program looks for printers, and a program that reads one of them meanwhile may crash. So each
# prefix needs its own.
copy_prefix() {
    local windows=drive_c/windows folder
    mkdir -p "$WINEPREFIX/$windows"
    for folder in system32 syswow64 winsxs; do
        [[ ! -e $original/$windows/$folder ]] ||
            cp -al "$original/$windows/$folder" "$WINEPREFIX/$windows"
        rm -rf "$WINEPREFIX/$windows/$folder/spool"
    done
    cp -an "$original/." "$WINEPREFIX"
}

is_ready() {
    [[ -e $WINEPREFIX/.ready && ! $original/.ready -nt $WINEPREFIX/.ready ]]
}

prepare() {
    is_ready && return
    require_wine
    mkdir -p "$repo/build"
    if [[ $WINEPREFIX != "$original" ]]; then
        QUILLMARK_WINE_SLOT='' "$0" --make "$preset" || exit
    fi
    (
        flock 9
        is_ready && exit
        rm -rf "$WINEPREFIX"
        if [[ $WINEPREFIX == "$original" ]]; then
            make_prefix 9>&-
        else
            copy_prefix
        fi
        touch "$WINEPREFIX/.ready"
    ) 9>"$WINEPREFIX.lock"
}

# The first program of Wine starts Wine's services, and they inherit its standard streams. Whoever
# reads such a stream to its end would then wait for the services to end. So this script starts the
# services before the program.
start_services() {
    [[ -n ${QUILLMARK_WINE_HELD:-} ]] || in_wine wine hostname >/dev/null 2>&1 </dev/null || true
}

# Of the programs in this repository, core_tests and qmktool open no window.
is_windowed() {
    [[ -f $1 && ${1##*/} != core_tests.exe && ${1##*/} != qmktool.exe ]]
}

# Ends Wine's services too, because without their display they would only print errors.
end_display() {
    in_wine wineserver -k || true
    kill "$1" || true
    wait "$1" || true
} 2>/dev/null

# Runs a command on a display of its own. Wine's services that started without a display cannot show
# windows, so they have to end first.
run_on_own_display() {
    local number status=0
    in_wine wineserver -w
    coproc SCREEN { exec Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp 2>/dev/null; }
    # shellcheck disable=SC2064
    trap "end_display $SCREEN_PID" EXIT
    read -r number <&"${SCREEN[0]}" || die "Xvfb could not start a display"
    DISPLAY=:$number start_services
    DISPLAY=:$number WINEDEBUG=${QUILLMARK_WINE_DEBUG:-$WINEDEBUG} in_wine wine "$@" || status=$?
    exit "$status"
}

run() {
    [[ $# -gt 0 ]] || die "the name of a program is missing"
    require_wine
    prepare
    if [[ -z ${DISPLAY:-}${QUILLMARK_WINE_HELD:-} ]] && is_windowed "$1"; then
        run_on_own_display "$@"
    fi
    start_services
    export WINEDEBUG=${QUILLMARK_WINE_DEBUG:-$WINEDEBUG}
    if [[ $preset == win32 ]]; then
        exec "$repo/scripts/wine32.sh" exec wine "$@"
    fi
    exec wine "$@"
}

case $mode in
    run) run "$@" ;;
    make) prepare ;;
    prepare)
        prepare
        start_services
        ;;
    hold)
        prepare
        in_wine wine cmd.exe >/dev/null 2>&1
        ;;
    end) [[ ! -e $WINEPREFIX ]] || in_wine wineserver -k || true ;;
esac
