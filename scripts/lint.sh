#!/usr/bin/env bash
# Checks the layout of the sources, that portable files are portable, which folder includes which,
# the help, and the rules of .clang-tidy. All must hold without exception. The script configures the
# presets native and win64 but needs no build of them. It appends its counts as "PASSED FAILED
# SKIPPED" to the file COUNTS.
# Usage: lint.sh [COUNTS]
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

passed=0
failed=0

# check NAME COMMAND...: runs the command and counts it. Prints its output if it failed.
check() {
    local name=$1 found
    shift
    if found=$("$@" 2>&1); then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'lint: FAILED %s\n%s\n\n' "$name" "$found"
    fi
}

# A file that was in order is checked again only after it, the rules or this script have changed.
check_format() {
    local clean=build/layout-clean began=build/layout-began
    mkdir -p build
    [[ $clean -nt .clang-format && $clean -nt scripts/lint.sh ]] || rm -f "$clean"
    touch "$began"
    # shellcheck disable=SC2046
    find . \( -path ./build -o -path ./.git \) -prune -o \( -name '*.h' -o -name '*.cpp' \) \
        $([[ ! -e $clean ]] || echo -newer "$clean") -print0 |
        xargs -0 -r -n16 -P"$(nproc)" clang-format --dry-run -Werror && mv "$began" "$clean"
}

began=$SECONDS
check "that native can be configured" scripts/build.sh native build.ninja
check "that win64 can be configured" scripts/build.sh win64 build.ninja
check layout check_format
check portability python3 -B scripts/check_portable.py build/native
check help python3 -B scripts/check_help.py
check includes python3 -B scripts/check_includes.py
check "of the checks" python3 -B -m unittest discover -s tests/scripts
check clang-tidy python3 -B scripts/tidy.py build/native build/win64
[[ -z ${1:-} ]] || echo "$passed $failed 0" >>"$1"
echo "lint: $passed passed, $failed failed, 0 skipped ($((SECONDS - began)) s)"
[[ $failed -eq 0 ]]
