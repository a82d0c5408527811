#!/usr/bin/env bash
# Draws the pictures of this example anew, with ImageMagick.
set -euo pipefail
cd "$(dirname "$0")/assets"

# A night sky over two hills.
convert -size 800x600 gradient:'#1b2a49-#d98c6a' \
    -fill '#ffe9b8' -stroke none -draw 'circle 610,170 610,128' \
    -fill '#2c3e5c' -draw "path 'M 0,470 C 160,360 300,400 430,455 S 700,520 800,420 L 800,600 L 0,600 Z'" \
    -fill '#1a2740' -draw "path 'M 0,540 C 140,500 260,440 420,500 S 690,560 800,510 L 800,600 L 0,600 Z'" \
    -depth 8 -define png:compression-level=9 background.png

# A ball with a light from the upper left, drawn large and scaled down for smooth edges.
convert -size 384x384 xc:none \
    -fill '#f25f5c' -draw 'circle 192,192 192,12' \
    \( -size 384x384 radial-gradient:'#ffffffb0-#ffffff00' -distort SRT '192,192 0.55 0 130,120' \) -compose atop -composite \
    -compose over -fill none -stroke '#ffffff50' -strokewidth 10 -draw 'ellipse 192,192 100,172 0,360' \
    -resize 96x96 -depth 8 PNG32:ball.png

# The knob of the GUI object: a rounded plate with a triangle.
convert -size 640x256 xc:none \
    -fill '#00000050' -draw 'roundrectangle 16,28 632,248 100,100' \
    -fill '#f7f3e9' -draw 'roundrectangle 12,12 628,232 100,100' \
    -fill '#1b2a49' -draw 'polygon 270,62 270,182 390,122' \
    -resize 160x64 -depth 8 PNG32:knob.png
