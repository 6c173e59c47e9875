#!/usr/bin/env bash
# Renders the icon's sizes from the drawing. Needs rsvg-convert (librsvg2-bin).
set -euo pipefail
cd "$(dirname "$0")"

for size in 16 32 48 64 128 256 512; do
    rsvg-convert --width "$size" --height "$size" --output "bravona-$size.png" bravona.svg
done
