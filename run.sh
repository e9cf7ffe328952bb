#!/usr/bin/env bash
# Shows the register of an account.
# Usage: ./run.sh [FILE.qmk] [OPTION...]   (without FILE: the sample; options as of `qmktool list`)
set -euo pipefail

repo=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

# Standard output belongs to the register alone.
{
    "$repo/scripts/setup.sh" run
    "$repo/scripts/build.sh" native qmktool
} >&2

file=$repo/samples/household.qmk
if [[ $# -gt 0 && $1 != -* ]]; then
    file=$1
    shift
fi
exec "$repo/build/native/bin/qmktool" list "$file" "$@"
