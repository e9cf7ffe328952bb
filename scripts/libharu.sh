#!/usr/bin/env bash
# libharu's sources for the Windows builds, which cannot use this machine's library: the original
# archive of Debian's own package, checked against the hash in the package's signed description, in
# build/libharu-src. Says nothing and asks no server where they are there already. Changes nothing
# on the machine.
# Usage: libharu.sh
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

source scripts/debiansource.sh

# The line of the archive among the hashes of the description.
check_hash() {
    awk '/^Checksums-Sha256:/ { found = 1; next } /^[^ ]/ { found = 0 }
         found && $3 ~ /\.orig\.tar/ { print $1 "  " $3 }' ./*.dsc >hash
    [[ -s hash ]] && sha256sum --check --strict hash
}

# Debian's patches are not needed: they are about building the package.
fetch_version() {
    local part
    for part in --dsc-only --tar-only; do
        on_sources apt-get source --only-source --download-only "$part" "libharu=$1" || return 1
    done
    check_hash && tar -xf ./*.orig.tar.*
}

provide_sources libharu src/hpdf_doc.c
