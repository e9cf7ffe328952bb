#!/usr/bin/env bash
# libharu's sources for the Windows builds, which cannot use this machine's library: the original
# archive of Debian's own package, fetched from where this machine gets its packages, held against
# the hash in the package's signed description, and put under build/. Says nothing and asks no
# server where they are there already. Changes nothing on the machine.
# Usage: libharu.sh
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

repo=$PWD
sources=$repo/build/libharu-src
work=$repo/build/libharu-fetch
log=$repo/build/logs/libharu.log

die() {
    echo "libharu: $*" >&2
    exit 1
}

source scripts/debiansource.sh

# Debian's patches are not needed: they are about building the package.
fetch_version() {
    local part
    for part in --dsc-only --tar-only; do
        on_sources apt-get source --only-source --download-only "$part" "libharu=$1" || return 1
    done
}

# The line of the archive among the hashes of the description.
check_hash() {
    awk '/^Checksums-Sha256:/ { found = 1; next } /^[^ ]/ { found = 0 }
         found && $3 ~ /\.orig\.tar/ { print $1 "  " $3 }' ./*.dsc >hash
    [[ -s hash ]] && sha256sum --check --strict hash
}

fetch() {
    local version
    get_indexes || return 1
    for version in $(list_versions libharu); do
        (cd "$work/unpacked" && fetch_version "$version" && check_hash &&
            tar -xf ./*.orig.tar.*) && return
        rm -rf --one-file-system "$work"/unpacked/*
    done
    return 1
}

unpacked() {
    local found
    for found in "$work"/unpacked/*/src/hpdf_doc.c; do
        [[ ! -f $found ]] || { dirname "$(dirname "$found")" && return; }
    done
    return 1
}

provide() {
    fetch || { sleep 5 && fetch; } || return 1
    rm -rf --one-file-system "$sources" && mv "$(unpacked)" "$sources"
}

[[ ! -f $sources/src/hpdf_doc.c ]] || exit 0
echo "setup: fetching the sources of libharu"
mkdir -p "$(dirname "$log")"
provide >"$log" 2>&1 </dev/null || {
    cat "$log" >&2
    die "could not fetch the source package libharu; is a network at hand?"
}
rm -rf --one-file-system "$work"
