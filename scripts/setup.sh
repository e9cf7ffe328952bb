#!/usr/bin/env bash
# Installs the packages that a group of tasks needs and that this Debian machine lacks. When nothing
# is missing, it prints nothing and contacts no server. It never removes or downgrades a package.
# Usage: setup.sh GROUP...
#   run          build and run the programs for this machine
#   window       build the program and show its window, with a picture of it
#   test         what test.sh needs besides
#   pictures     what draws and takes the pictures of the guides, besides `window`
#   package      make what a release consists of, besides `run`
#   bench        the benchmarks
#   fuzz         coverage-guided fuzzing
#   debootstrap  make a small Debian in a folder
#   wine32       a Wine for 32-bit Windows programs, see wine32.sh
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

declare -rA PACKAGES=(
    [run]="g++ cmake ninja-build libexpat1-dev libhpdf-dev"
    [window]="g++ cmake ninja-build dpkg-dev g++-mingw-w64-x86-64-win32
              fonts-wine fonts-liberation wine wine64 xvfb imagemagick x11-utils fp-utils"
    [test]="python3 dpkg-dev googletest clang-format clang-tidy
            g++-mingw-w64-i686-win32 g++-mingw-w64-x86-64-win32
            fonts-wine fonts-liberation wine wine64 xvfb fp-utils libchm-bin
            cups printer-driver-cups-pdf poppler-utils"
    [pictures]="chromium graphviz librsvg2-bin xdotool"
    [package]="python3 dpkg-dev file g++-mingw-w64-i686-win32 g++-mingw-w64-x86-64-win32
               fp-utils nsis zip p7zip-full man-db mandoc"
    [bench]="libbenchmark-dev"
    [fuzz]="clang libclang-rt-14-dev"
    [debootstrap]="debootstrap mount"
)
log=build/logs/setup.log
service_policy=/usr/sbin/policy-rc.d
# Not every user's PATH has the folders of the administrator's programs.
export PATH=$PATH:/usr/sbin:/sbin

die() {
    echo "setup: $*" >&2
    exit 1
}

# Prints the packages among the arguments that are not installed.
missing_of() {
    local package
    for package in "$@"; do
        [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
            echo "$package"
    done
}

# A server that cannot be reached is no failure yet: the packages may all come from others. If not,
# the installation fails.
update_index() {
    apt-get update || { sleep 5 && apt-get update; } || echo "the package index is incomplete"
}

# A service that comes with a package must not start. Debian asks the program $service_policy before
# it starts a service. If this machine has that program already, it decides.
forbid_services() {
    [[ ! -e $service_policy ]] || return 0
    trap 'rm -f "$service_policy"' EXIT
    printf '#!/bin/sh\nexit 101\n' >"$service_policy"
    chmod 755 "$service_policy"
}

install() {
    export DEBIAN_FRONTEND=noninteractive
    update_index && forbid_services &&
        apt-get install -y --no-install-recommends --no-remove -o DPkg::Lock::Timeout=300 "$@"
}

provide() {
    local missing
    mapfile -t missing < <(missing_of "$@")
    [[ ${#missing[@]} -gt 0 ]] || return 0
    [[ $EUID -eq 0 ]] || die "only root can install what is missing: ${missing[*]}"
    echo "setup: installing ${missing[*]}"
    mkdir -p "$(dirname "$log")"
    install "${missing[@]}" >"$log" 2>&1 </dev/null || {
        cat "$log" >&2
        die "could not install: ${missing[*]}"
    }
}

[[ $# -gt 0 ]] || die "usage: setup.sh GROUP... (known: ${!PACKAGES[*]} wine32)"
packages=()
for group in "$@"; do
    [[ $group == wine32 ]] && continue
    [[ -v PACKAGES[$group] ]] || die "unknown group '$group' (known: ${!PACKAGES[*]} wine32)"
    read -r -d '' -a names <<<"${PACKAGES[$group]}" || true
    packages+=("${names[@]}")
done
provide "${packages[@]}"
# The Windows builds need Expat and libharu.
[[ ! " $* " =~ \ (test|window|package)\  ]] || { scripts/expat.sh && scripts/libharu.sh; }
[[ " $* " != *" wine32 "* ]] || scripts/wine32.sh install
