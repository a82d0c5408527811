#!/usr/bin/env bash
# Makes two packs of 200 pictures with the ordinary tools: make_packs.sh FOLDER
set -euo pipefail
cd "$1"
rm -rf work one.zip two.zip
mkdir work
cd work
for pack in one two; do
    convert -size 640x320 -seed "${#pack}" plasma:red-blue -crop 32x32 +repage -depth 8 "${pack}_%03d.png"
    zip -q "../$pack.zip" "$pack"_*.png
done
cd ..
rm -r work
