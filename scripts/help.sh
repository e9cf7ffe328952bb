#!/usr/bin/env bash
# Compiles the help: its pages with the pictures of docs/images make one file.
# Usage: help.sh STAGE OUT.chm   (STAGE is a folder that this script empties and fills)
set -euo pipefail

repo=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
stage=${1:?usage: help.sh STAGE OUT.chm}
out=${2:?usage: help.sh STAGE OUT.chm}

rm -rf "$stage"
mkdir -p "$stage/images"
cp -r "$repo"/help/html "$repo"/help/quillmark.hh? "$stage"
cp "$repo"/docs/images/*.png "$stage/images"
# chmcmd finds the files of a project from the folder that it stands in. It only warns of a
# missing file. Then its output is removed.
if ! log=$(cd "$stage" && chmcmd --no-html-scan quillmark.hhp 2>&1) || [[ $log == *Warning* ]]; then
    echo "$log" >&2
    exit 1
fi
# The same pages give the same bytes: the two places where chmcmd writes the time of day are zeroed.
perl -0777 -pi -e 'substr($_, 16, 4) = "\0" x 4;
    s/\x0a\0\x04\0.{4}(?=\x09\0)/\x0a\0\x04\0\0\0\0\0/s or die "no time found"' \
    "$stage/quillmark.chm"
cp "$stage/quillmark.chm" "$out"
