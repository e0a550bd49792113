#!/usr/bin/env bash
# Renders the star icon (data/icons/pentalink.svg) to the PNG sizes of the hicolor theme under
# packaging/icons/. The PNGs are committed, so building needs no SVG renderer; run this again
# whenever the SVG changes. Needs rsvg-convert (Debian package librsvg2-bin).
set -euo pipefail
cd "$(dirname "$0")/.."
svg=data/icons/pentalink.svg
id=io.github.pentalink.Pentalink
if ! command -v rsvg-convert >/dev/null; then
    echo "make-icons.sh: rsvg-convert is missing; install it with: apt-get install librsvg2-bin" >&2
    exit 1
fi
for size in 16 22 24 32 48 64 128 256; do
    dir=packaging/icons/${size}x${size}
    mkdir -p "$dir"
    rsvg-convert --width "$size" --height "$size" --keep-aspect-ratio "$svg" --output "$dir/$id.png"
done
echo "make-icons.sh: wrote packaging/icons/*/$id.png from $svg"
