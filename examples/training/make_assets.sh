#!/usr/bin/env bash
# Makes the pictures, sounds and music of this example anew, with ImageMagick and SoX: ./make_assets.sh
set -euo pipefail
cd "$(dirname "$0")"
mkdir -p assets/ui/game assets/play
./make_pictures.sh
./make_sounds.sh
