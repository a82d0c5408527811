#!/usr/bin/env bash
# Makes the template's picture, button and sound anew, with ImageMagick and sox.
set -euo pipefail
cd "$(dirname "$0")/assets"

convert -size 1600x1200 gradient:'#f6efe1-#e9d8bd' \
    -fill '#e07a5f' -draw 'circle 360,580 360,400' \
    -fill '#3d405b' -draw 'roundrectangle 620,400 980,760 48,48' \
    -fill '#81b29a' -draw 'polygon 1060,760 1420,760 1240,400' \
    -resize 800x600 -depth 8 -define png:compression-level=9 PNG24:picture.png

# Frames: normal, pressed, under the mouse, unused, disabled.
plate() { convert -size 800x256 xc:none -fill "$1" -draw 'roundrectangle 8,8 792,248 96,96' -resize 200x64 PNG32:"$2"; }
plate '#3d405b' 0.png
plate '#2b2d42' 1.png
plate '#555a80' 2.png
plate '#3d405b' 3.png
plate '#a8a6a1' 4.png
convert [0-4].png +append -depth 8 PNG32:button.png
rm [0-4].png

sox -R -V1 -n -r 22050 -c 1 -b 16 click.wav synth 0.06 sine 900-500 fade l 0.002 0.06 0.055 gain -n -9
