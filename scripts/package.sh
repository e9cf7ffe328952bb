#!/usr/bin/env bash
# Makes everything that a release consists of into build/package/, from the commit at hand:
# installers, portable zips, qmktool for Linux as an archive and as a Debian package, checksums, a
# manifest for scoop and a list of what is inside. The same commit gives the same bytes. Asks a
# server only for Debian packages and sources that are missing here.
# Usage: package.sh [win32] [win64] [linux]   (without arguments: all; otherwise the packages of
#        these builds with their checksums, and no more)
#   QUILLMARK_SIGN     a command that signs the .exe file named after it, run on every program,
#                      installer and uninstaller; unset, nothing is signed
#   QUILLMARK_URL      the address that the packages will be offered at, for the scoop manifest
#   SOURCE_DATE_EPOCH  the time that all files get; unset, that of the commit
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

repo=$PWD
out=$repo/build/package
work=$repo/build/package-work
version=$(sed -nE 's/^project\(Quillmark VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)
url=${QUILLMARK_URL:-https://quillmark.invalid/$version}
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C.UTF-8
umask 022

die() {
    echo "package: $*" >&2
    exit 1
}

wants() {
    [[ " $kinds " == *" $1 "* ]]
}

sign() {
    # The command may come with arguments of its own.
    # shellcheck disable=SC2086
    [[ -z ${QUILLMARK_SIGN:-} ]] || ${QUILLMARK_SIGN} "$1" || die "could not sign $1"
}

# stage PRESET FOLDER [OPTION]: installs what a preset built.
stage() {
    rm -rf "${work:?}/$2"
    cmake --install "build/$1" --prefix "$work/$2" ${3:-} >"$work/$2.log" 2>&1 || {
        cat "$work/$2.log" >&2
        die "could not install what $1 built"
    }
}

set_times() {
    find "$1" -exec touch -hd "@$SOURCE_DATE_EPOCH" {} +
}

# zip_folder FOLDER OUT.zip: the files in the order of their names, without this machine's owner.
zip_folder() {
    (cd "$1" && find . -type f -printf '%P\n' | sort | zip -q -X -9 "$2" -@)
}

# What the installer takes along and what the uninstaller takes away. The sample is not among it:
# its user may have saved something in it.
list_for_installer() {
    local folder=$1 name names=()
    for name in "$folder"/*; do
        [[ $name == */household.qmk ]] || names+=("${name##*/}")
    done
    echo '!macro QM_INSTALL_FILES'
    printf "  File \"$folder/%s\"\n" "${names[@]}"
    echo '!macroend'
    echo '!macro QM_DELETE_FILES'
    printf '  Delete "$INSTDIR\\%s"\n' "${names[@]}"
    echo '!macroend'
    echo "!define QM_SIZE_KB $((($(cat "$folder"/* | wc -c) + 1023) / 1024))"
}

# windows_packages PRESET BITS MARK: an installer and a portable zip; MARK tells them apart by name.
windows_packages() {
    local preset=$1 bits=$2 folder=$work/windows-$2 program
    local setup=$out/quillmark-$version$3-setup.exe zip=$out/quillmark-$version$3-portable.zip
    scripts/build.sh "$preset" quillmark qmktool
    stage "$preset" "windows-$bits"
    python3 -B scripts/check_binaries.py "$folder"/*.exe || die "a program of $preset breaks a rule"
    for program in "$folder"/*.exe; do
        sign "$program"
    done
    set_times "$folder"
    list_for_installer "$folder" >"$work/files-$bits.nsh"
    makensis -V2 -WX -NOCD -DVERSION="$version" -DBITS="$bits" -DSTAGE="$folder" \
        -DLIST="$work/files-$bits.nsh" -DOUT="$setup" \
        ${QUILLMARK_SIGN:+-DSIGN="$QUILLMARK_SIGN"} packaging/quillmark.nsi || {
        # It may be whole and only lack its signature.
        rm -f "$setup"
        die "could not make or sign ${setup##*/}"
    }
    zip_folder "$folder" "$zip"
}

# The archive's program needs nothing of the system that it runs on; the Debian package's one uses
# the system's libraries.
linux_packages() {
    local name=qmktool-$version-linux-x86_64
    scripts/build.sh native qmktool qmktool_portable
    stage native "$name" --strip
    strip -o "$work/$name/bin/qmktool" build/native/bin/qmktool_portable
    python3 -B scripts/check_binaries.py "$work/$name/bin/qmktool" build/native/bin/qmktool ||
        die "a program of native breaks a rule"
    tar -C "$work" --sort=name --mtime="@$SOURCE_DATE_EPOCH" --owner=0 --group=0 --numeric-owner \
        -c "$name" | gzip -9n >"$out/$name.tar.gz"
    cpack --config build/native/CPackConfig.cmake -B "$work/deb" >"$work/cpack.log" 2>&1 || {
        cat "$work/cpack.log" >&2
        die "cpack failed"
    }
    cp "$work/deb/"*.deb "$out"
}

hash_of() {
    sha256sum "$out/$1" | cut -d' ' -f1
}

scoop_manifest() {
    sed -e "s|@VERSION@|$version|g" -e "s|@URL@|$url|g" \
        -e "s|@HASH32@|$(hash_of "quillmark-$version-portable.zip")|" \
        -e "s|@HASH64@|$(hash_of "quillmark-$version-x64-portable.zip")|" packaging/scoop.json.in
}

kinds=${*:-win32 win64 linux}
for kind in $kinds; do
    [[ " win32 win64 linux " == *" $kind "* ]] || die "usage: package.sh [win32] [win64] [linux]"
done
scripts/setup.sh run package
rm -rf "$out" "$work"
mkdir -p "$out" "$work"
! wants win32 || windows_packages win32 32 ""
! wants win64 || windows_packages win64 64 -x64
! wants linux || linux_packages
if [[ $# -eq 0 ]]; then
    scoop_manifest >"$out/quillmark.json"
    python3 -B scripts/spdx.py "$version" "$work" >"$out/quillmark-$version.spdx"
    cp LICENSE THIRD-PARTY-NOTICES.md "$out"
fi
(cd "$out" && sha256sum -- * >"$work/SHA256SUMS" && mv "$work/SHA256SUMS" .)
echo "package: ok, $(find "$out" -type f | wc -l) files in ${out#"$repo/"}"
