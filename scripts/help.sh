#!/usr/bin/env bash
# Compiles the pages of the help and the pictures of docs/images into one file.
# Usage: help.sh STAGE OUT.chm   (STAGE is a folder that this script empties and fills)
set -euo pipefail

repo=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
stage=${1:?usage: help.sh STAGE OUT.chm}
out=${2:?usage: help.sh STAGE OUT.chm}

rm -rf "$stage"
mkdir -p "$stage/images"
cp -r "$repo"/help/html "$repo"/help/quillmark.hh? "$stage"
cp "$repo"/docs/images/*.png "$stage/images"
# chmcmd looks for the files of a project in the current folder. When one is missing, it only warns,
# and this script fails.
if ! log=$(cd "$stage" && chmcmd --no-html-scan quillmark.hhp 2>&1) || [[ $log == *Warning* ]]; then
    echo "$log" >&2
    exit 1
fi
# chmcmd writes the time of day in two places. They become zero, so that the same pages always give
# the same bytes.
perl -0777 -pi -e 'substr($_, 16, 4) = "\0" x 4;
    s/\x0a\0\x04\0.{4}(?=\x09\0)/\x0a\0\x04\0\0\0\0\0/s or die "no time found"' \
    "$stage/quillmark.chm"
cp "$stage/quillmark.chm" "$out"
