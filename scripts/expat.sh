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

# on_sources COMMAND...: apt's command with lists and a cache of its own and no places but those of
# sources.
on_sources() {
    local command=$1
    shift
    "$command" -o Dir::Etc::SourceList="$work/places/main.list" \
        -o Dir::Etc::SourceParts="$work/places" \
        -o Dir::State::Lists="$work/lists" -o Dir::Cache="$work/cache" \
        -o APT::Sandbox::User="$(id -un)" "$@"
}

# This machine's places of packages, rewritten as places of their sources.
list_places() {
    local parts file
    eval "$(apt-config shell file Dir::Etc::sourcelist/f parts Dir::Etc::sourceparts/d)"
    for file in "$file" "$parts"/*.list; do
        [[ ! -f $file ]] || sed -nE 's/^\s*deb\s/deb-src /p' "$file"
    done >"$work/places/main.list"
    for file in "$parts"/*.sources; do
        [[ ! -f $file ]] ||
            sed -E 's/^Types:.*/Types: deb-src/I' "$file" >"$work/places/${file##*/}"
    done
}

# The versions that the indexes name, the newest first.
list_versions() {
    on_sources apt-cache madison expat | awk '$2 == "|" { print $3 }' | sort -rV
}

# One place of many may have no sources and is not needed, and a server may name a version that it
# does not have yet: the next one then does.
fetch() {
    local version
    rm -rf --one-file-system "$work" || return 1
    mkdir -p "$work"/{places,lists/partial,cache/archives/partial,unpacked} || return 1
    list_places || return 1
    on_sources apt-get update || echo "the index of sources is incomplete"
    for version in $(list_versions); do
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
