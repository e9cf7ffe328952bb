#!/usr/bin/env bash
# Opens an account in the program, under Wine, and returns when its window is closed.
# Usage: ./run.sh [FILE.qmk]   (without FILE: a copy of the sample to try things with)
# Without a display it starts one of its own, saves a picture of the window, prints where, and ends.
set -euo pipefail

repo=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
program=$repo/build/win64/bin/quillmark.exe
picture=$repo/build/run/quillmark.png
app=
screen=

die() {
    echo "run.sh: $*" >&2
    exit 1
}

choose_file() {
    local sample=$repo/build/run/household.qmk
    [[ $# -le 1 && ${1:-} != -* ]] || die "usage: ./run.sh [FILE.qmk]"
    if [[ $# -eq 1 ]]; then
        [[ -f $1 ]] || die "there is no file '$1'"
        file=$(realpath "$1")
    else
        mkdir -p "$repo/build/run"
        [[ -e $sample ]] || cp "$repo/samples/household.qmk" "$sample"
        file=$sample
    fi
    # In the program's arguments a comma ends a name.
    [[ $file != *,* ]] || die "the program cannot open a file with a comma in its path: '$file'"
}

# Wine shows this machine's files as drive Z:.
windows_path() {
    local path=Z:$1
    echo "${path//\//\\}"
}

end_all() {
    if [[ -n $app ]]; then
        kill "$app" || true
    fi
    "$repo/scripts/wine.sh" --end win64 || true
    if [[ -n $screen ]]; then
        kill "$screen" || true
        wait "$screen" || true
    fi
} >/dev/null 2>&1

# A display of its own, ended with this script.
start_screen() {
    local number
    coproc SCREEN { exec Xvfb -displayfd 1 -screen 0 1280x960x24 -nolisten tcp 2>/dev/null; }
    screen=$SCREEN_PID
    read -r number <&"${SCREEN[0]}" || die "Xvfb could not start a display"
    export DISPLAY=:$number
}

# The window is complete when the screen has more than one colour and no longer changes.
take_picture() {
    local before='' now='' tries
    mkdir -p "$(dirname "$picture")"
    for ((tries = 0; tries < 120; ++tries)); do
        sleep 0.5
        kill -0 "$app" 2>/dev/null || die "the program ended before it showed its window"
        xwininfo -root -tree | grep -q '"Quillmark' || continue
        import -window root "$picture"
        now=$(cksum <"$picture")
        [[ $now != "$before" ]] || return 0
        before=$now
    done
    die "the window did not come up"
}

choose_file "$@"
{
    "$repo/scripts/setup.sh" window
    "$repo/scripts/build.sh" win64 quillmark
} >&2
trap end_all EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP
if [[ -n ${DISPLAY:-} ]]; then
    "$repo/scripts/wine.sh" win64 "$program" "$(windows_path "$file")"
    exit
fi
start_screen
"$repo/scripts/wine.sh" win64 "$program" "$(windows_path "$file")" &
app=$!
take_picture
echo "Without a display, here is a picture of the window: $picture"
