#!/usr/bin/env bash
# Expat's sources for the Windows builds, which cannot use this machine's library: those of Debian's
# own package, fetched from where this machine gets its packages and put under build/. Says nothing
# and asks no server where they are there already. Changes nothing on the machine.
# Usage: expat.sh
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

repo=$PWD
sources=$repo/build/expat-src
work=$repo/build/expat-fetch
log=$repo/build/logs/expat.log

die() {
    echo "expat: $*" >&2
    exit 1
}

source scripts/debiansource.sh

# One place of many may have no sources and is not needed, and a server may name a version that it
# does not have yet: the next one then does.
fetch() {
    local version
    get_indexes || return 1
    for version in $(list_versions expat); do
        (cd "$work/unpacked" && on_sources apt-get source --only-source "expat=$version") && return
    done
    return 1
}

# The folder with Expat's own CMakeLists.txt, patched as Debian patches it.
unpacked() {
    local found
    for found in "$work"/unpacked/expat-*/{,expat/}lib/xmlparse.c; do
        [[ ! -f $found ]] || { dirname "$(dirname "$found")" && return; }
    done
    return 1
}

provide() {
    fetch || { sleep 5 && fetch; } || return 1
    rm -rf --one-file-system "$sources" && mv "$(unpacked)" "$sources"
}

[[ ! -f $sources/lib/xmlparse.c ]] || exit 0
echo "setup: fetching the sources of expat"
mkdir -p "$(dirname "$log")"
provide >"$log" 2>&1 </dev/null || {
    cat "$log" >&2
    die "could not fetch the source package expat; is a network at hand?"
}
rm -rf --one-file-system "$work"
