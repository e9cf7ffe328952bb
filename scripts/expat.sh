#!/usr/bin/env bash
# Fetches the sources of Expat into build/expat-src. The Windows builds cannot use the library of
# this machine, so they compile Expat. The sources are those of Debian's package with Debian's
# patches. When they are there already, the script prints nothing and contacts no server. It changes
# nothing outside the build folder.
# Usage: expat.sh
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

source scripts/debiansource.sh

fetch_version() {
    on_sources apt-get source --only-source "expat=$1"
}

provide_sources expat lib/xmlparse.c
