#!/usr/bin/env bash
# make_packs.sh FOLDER: packs of 1,000, 10,000 and 60,000 small images for the benchmarks, and two larger pictures.
set -euo pipefail
mkdir -p "$1"
packs=$(cd "$1" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
for side in 32 512; do
    convert -seed 1 -size "${side}x$side" plasma:red-blue -depth 8 "$packs/picture_$side.png"
done
mkdir images
# A TGA picture of 4 x 4 pixels with 32 bits.
header='\0\0\2\0\0\0\0\0\0\0\0\0\4\0\4\0\40\0'
pixels='\100\200\300\377\100\200\300\377\100\200\300\377\100\200\300\377'
for ((i = 0; i < 60000; i++)); do
    printf "$header$pixels$pixels$pixels$pixels" >"images/image_$i.tga"
    case $((i + 1)) in 1000 | 10000 | 60000)
        rm -f "$packs/pack_$((i + 1)).zip"
        zip -q -r -X "$packs/pack_$((i + 1)).zip" images ;;
    esac
done
