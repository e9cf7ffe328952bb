#!/usr/bin/env bash
# Fetches the sources of libharu into build/libharu-src. The Windows builds cannot use the library
# of this machine, so they compile libharu. The sources are the original archive in Debian's
# package, whose hash must be the one in the signed description of the package. When they are there
# already, the script prints nothing and contacts no server. It changes nothing outside the build
# folder.
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
