#!/usr/bin/env bash
# Runs all the checks on a Debian machine, installing what is missing.
# Usage: ./test.sh [RING...]   (without RING: all of them)
# The last line tells the counts of all rings together; the exit code is 1 if anything failed.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")"

readonly RINGS=(lint core core-asan core-win64 win-win64 e2e-win64 core-win32 win-win32 e2e-win32)
# The presets that a ring needs built.
declare -rA PRESET=([lint]=native [core]=native [core-asan]=native-asan
    [core-win64]=win64 [win-win64]=win64 [e2e-win64]=win64
    [core-win32]=win32 [win-win32]=win32 [e2e-win32]=win32)

counts=build/results/counts
failed=0
declare -A broken=()
declare -A holders=()
step=

# An error that a sanitizer finds must not look like a refusal, whose code is 1.
export ASAN_OPTIONS=exitcode=99:detect_leaks=1:detect_stack_use_after_return=1
export UBSAN_OPTIONS=exitcode=99:halt_on_error=1:print_stacktrace=1

usage() {
    echo "usage: ./test.sh [RING...]" >&2
    echo "rings: ${RINGS[*]}" >&2
    exit 2
}

choose_rings() {
    local ring
    for ring in "$@"; do
        [[ -v PRESET[$ring] ]] || usage
    done
    rings=("$@")
    [[ $# -gt 0 ]] || rings=("${RINGS[@]}")
}

# count PASSED FAILED SKIPPED: for what no ring's own run can count.
count() {
    echo "$*" >>"$counts"
}

# Runs a command so that a signal to this script ends the command too, with all that it started:
# bash acts on a signal only when no command is in the foreground.
run_step() {
    local status=0
    set -m
    "$@" </dev/null &
    step=$!
    set +m
    wait "$step" || status=$?
    step=
    return "$status"
}

# Gives Wine a display of its own: windows of tests are no business of who sits at this machine.
start_display() {
    local number
    [[ -z ${SCREEN_PID:-} ]] || return 0
    coproc SCREEN { exec Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp 2>/dev/null; }
    read -r number <&"${SCREEN[0]}" || return 1
    export DISPLAY=:$number
}

end_display() {
    [[ -n ${SCREEN_PID:-} ]] || return 0
    local pid=$SCREEN_PID
    kill "$pid" || true
    wait "$pid" || true
} 2>/dev/null

# Ends Wine in the prefixes that this run used, and in no others.
end_wine() {
    local preset
    for preset in "${!holders[@]}"; do
        scripts/wine.sh --end "$preset" >/dev/null 2>&1 || true
        wait "${holders[$preset]}" || true
    done
}

end_all() {
    trap '' INT TERM HUP
    if [[ -n $step ]]; then
        kill -- "-$step" || true
        wait "$step" || true
    fi
    end_wine
    end_display
} 2>/dev/null

setup() {
    local began=$SECONDS
    scripts/setup.sh run test || exit 1
    echo "setup: ok ($((SECONDS - began)) s)"
}

build_presets() {
    local ring preset
    declare -A seen=()
    for ring in "${rings[@]}"; do
        preset=${PRESET[$ring]}
        [[ ! -v seen[$preset] ]] || continue
        seen[$preset]=1
        run_step scripts/build.sh "$preset" || broken[$preset]=1
    done
}

# 64-bit Wine is among the packages of the setup.
provide_wine() {
    [[ $1 == win64 ]] || scripts/setup.sh wine32
}

# Holds Wine's services running, so that not every program has to start them. They end with this
# script, however it ends, for they end with their input.
hold_wine() {
    local preset=$1 why=build/results/why-not-$1 input
    [[ ! -v holders[$preset] ]] || return 0
    start_display || { echo "no display could be started" >"$why"; return 1; }
    { provide_wine "$preset" && scripts/wine.sh --prepare "$preset"; } 2>"$why" || return 1
    # shellcheck disable=SC2034
    exec {input}> >(exec scripts/wine.sh --hold "$preset" >/dev/null 2>&1)
    holders[$preset]=$!
}

run_ring() {
    local ring=$1 preset=${PRESET[$1]} launch='' suffix='' options=()
    if [[ $preset == win* ]]; then
        hold_wine "$preset" || {
            echo "$ring: skipped, $(tail -n1 "build/results/why-not-$preset")"
            count 0 0 1
            return 0
        }
        launch="scripts/wine.sh $preset "
        suffix=.exe
    fi
    if [[ $ring == core* ]]; then
        options=(--tool "${launch:+$PWD/$launch}$PWD/build/$preset/bin/qmktool$suffix")
    else
        options=(--second-try)
    fi
    run_step env ${launch:+QUILLMARK_WINE_HELD=1} python3 scripts/ring.py "$ring" \
        --counts "$counts" \
        --program "${launch}build/$preset/bin/${ring%%-*}_tests$suffix" "${options[@]}"
}

run_rings() {
    local ring
    for ring in "${rings[@]}"; do
        if [[ -v broken[${PRESET[$ring]}] ]]; then
            echo "$ring: FAILED, preset ${PRESET[$ring]} does not build"
            count 0 1 0
        elif [[ $ring == lint ]]; then
            run_step scripts/lint.sh "$counts" || failed=1
        else
            run_ring "$ring" || failed=1
        fi
    done
}

# Exits 1 if anything failed, were it only that a ring ended without its counts.
total() {
    awk -v rings="${#rings[@]}" -v failed="$failed" '
        { p += $1; f += $2; s += $3 }
        END {
            f += rings > NR ? rings - NR : 0
            printf "%d passed, %d failed, %d skipped\n", p, f, s
            exit failed || f
        }' "$counts"
}

choose_rings "$@"
mkdir -p "$(dirname "$counts")"
: >"$counts"
trap end_all EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP
setup
build_presets
run_rings
total
