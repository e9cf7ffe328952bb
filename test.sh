#!/usr/bin/env bash
# Runs all the checks on a Debian machine, installing what is missing.
# Usage: ./test.sh [quick | RING...]   (without RING: all of them; quick: lint and core)
# The last line tells the counts of all rings together; the exit code is 1 if anything failed.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")"

began=$SECONDS
scripts/setup.sh run test || exit 1
echo "setup: ok ($((SECONDS - began)) s)"
exec python3 -B scripts/testrun.py "$@"
