#!/usr/bin/env bash
# Draws the diagrams of the guides: docs/NAME.dot becomes docs/images/NAME.png.
# Needs the package graphviz and the Liberation fonts (scripts/setup.sh window pictures).
# Usage: render_guides.sh [FOLDER]   (FOLDER: where the pictures go instead of docs/images)
set -euo pipefail

repo=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
out=${1:-$repo/docs/images}

command -v dot >/dev/null || {
    echo "render_guides: dot is missing (package graphviz)" >&2
    exit 1
}
mkdir -p "$out"
for source in "$repo"/docs/*.dot; do
    name=$(basename "$source" .dot)
    dot -Tpng -Gdpi=110 "$source" -o "$out/$name.png"
    echo "render_guides: $out/$name.png"
done
