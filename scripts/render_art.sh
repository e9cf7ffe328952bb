#!/usr/bin/env bash
# Renders resources/art into the pictures that the resource compiler and the installer take:
# resources/pictures.
# Needs the packages librsvg2-bin and imagemagick; the same sources give the same bytes.
# Usage: render_art.sh [FOLDER]   (FOLDER: where the pictures go, to compare them with those there)
set -euo pipefail

readonly ICON_SIZES=(16 20 24 32 40 48 64 256)
readonly BITMAPS=(splash setup_side heading_cleared heading_tag mark_tax mark_expense mark_voided mark_cleared
    sign_tax sign_expense sign_voided sign_cleared arrow_strip)
readonly ALPHA_BITMAPS=(button_add button_print button_preview button_setup arrow_first arrow_previous arrow_next arrow_last)
readonly BITMAP_HEADERS=54

repo=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
art=$repo/resources/art
out=$(realpath -m "${1:-$repo/resources/pictures}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

require() {
    command -v "$1" >/dev/null || {
        echo "render_art: $1 is missing (package $2)" >&2
        exit 1
    }
}

# render NAME: draws the picture in its own size as $work/NAME.png.
render() {
    rsvg-convert "$art/$1.svg" -o "$work/$1.png"
}

# le32 NUMBER...: writes each number as four bytes, the lowest first.
le32() {
    local n
    for n in "$@"; do
        # shellcheck disable=SC2059
        printf "$(printf '\\x%02x' $((n & 255)) $((n >> 8 & 255)) $((n >> 16 & 255)) $((n >> 24)))"
    done
}

# bitmap_headers WIDTH HEIGHT BYTES: writes the headers of an uncompressed bitmap of 32 bits a
# pixel. ImageMagick would write headers of a later version, which not every tool reads.
bitmap_headers() {
    printf 'BM'
    le32 $((BITMAP_HEADERS + $3)) 0 "$BITMAP_HEADERS" 40 "$1" "$2" $((1 | 32 << 16)) 0 "$3" 0 0 0 0
}

write_opaque_bitmap() {
    render "$1"
    convert "$1.png" -background white -alpha remove -alpha off -strip -type TrueColor \
        "BMP3:$out/$1.bmp"
}

# write_alpha_bitmap TARGET NAME...: writes a strip of pictures of 16 by 16 pixels for an image list
# of ILC_COLOR32. The image list multiplies the colours by the alpha channel itself. So the colours
# must not be multiplied here, or the pictures would have dark edges.
write_alpha_bitmap() {
    local target=$1 name names=("${@:2}")
    for name in "${names[@]}"; do
        render "$name"
    done
    local width=$((16 * ${#names[@]}))
    {
        bitmap_headers "$width" 16 $((width * 16 * 4))
        convert "${names[@]/%/.png}" +append -flip -depth 8 bgra:-
    } >"$out/$target.bmp"
}

write_toolbar() {
    local source names=()
    for source in "$art"/toolbar_*.svg; do
        names+=("$(basename "$source" .svg)")
    done
    write_alpha_bitmap toolbar "${names[@]}"
}

# convert stores the largest size as PNG and the others as bitmaps with alpha channel and mask.
write_icon() {
    local size names=()
    for size in "${ICON_SIZES[@]}"; do
        render "$1_$size"
        names+=("PNG32:$1_$size.png")
    done
    convert "${names[@]}" -strip "$out/$1.ico"
}

require rsvg-convert librsvg2-bin
require convert imagemagick
mkdir -p "$out"
cd "$work"
write_icon quillmark
write_icon document
write_toolbar
for name in "${BITMAPS[@]}"; do
    write_opaque_bitmap "$name"
done
for name in "${ALPHA_BITMAPS[@]}"; do
    write_alpha_bitmap "$name" "$name"
done
echo "render_art: $(find "$out" -name '*.bmp' -o -name '*.ico' | wc -l) pictures in $out"
