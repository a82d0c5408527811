#!/usr/bin/env bash
# Draws the pictures in assets/ with ImageMagick.
set -euo pipefail
cd "$(dirname "$0")/assets"

hills="polygon 0,330 110,250 220,310 330,220 460,300 590,235 700,290 800,250 800,400 0,400"
near="polygon 0,390 160,340 330,385 520,345 690,390 800,360 800,430 0,430"
trees() { for x in 40 95 150 560 610 700 760; do echo "polygon $((x - 18)),395 $x,$((300 + x % 37)) $((x + 18)),395"; done; }

# scene FILE SKY-TOP SKY-BOTTOM DISC HILLS NEAR TREES WATER-TOP WATER-BOTTOM
scene() {
    convert -size 800x400 "gradient:$2-$3" -fill "$4" -draw "circle 600,120 600,72" \
        -fill "$5" -draw "$hills" -fill "$6" -draw "$near" -fill "$7" -draw "$(trees)" sky.miff
    # The water mirrors the land, dimmed.
    convert sky.miff -crop 800x170+0+230 +repage -flip -resize 800x200! \( -size 800x200 "gradient:$8-$9" \) \
        -compose blend -define compose:args=62,38 -composite water.miff
    convert sky.miff water.miff -append -quality 88 "$1"
    rm sky.miff water.miff
}
scene day.jpg "#3f8fd8" "#d9f0fb" "#fff3b0" "#7fa8a0" "#5f9a5a" "#2f6d43" "#9fd3ea" "#1f5f8f"
scene night.jpg "#060a20" "#2a2f63" "#f4f1d6" "#1b2447" "#121a36" "#0b1226" "#27306a" "#04081a"

convert -size 200x70 xc:none -fill white -draw "ellipse 100,45 90,18 0,360 ellipse 70,35 40,24 0,360 ellipse 125,30 45,28 0,360" \
    -channel A -evaluate multiply 0.85 +channel cloud.png

# Red and green point away from the middle, half being none; alpha fades towards both edges of the ring.
layer() { convert -size 128x128 xc:black -fx "xx=i-63.5; yy=j-63.5; rr=hypot(xx,yy)+0.001; tt=(rr-24)/38; $2" "$1.miff"; }
layer red '0.5+0.5*sin(tt*6.28318)*xx/rr'
layer green '0.5+0.5*sin(tt*6.28318)*yy/rr'
layer blue 0
layer alpha 'tt<0?0:(tt>1?0:sin(tt*3.14159))'
convert red.miff green.miff blue.miff alpha.miff -channel RGBA -combine -depth 8 PNG32:ring.png
rm red.miff green.miff blue.miff alpha.miff

convert -size 256x256 radial-gradient:white-black -evaluate pow 1.6 glow.miff
convert -size 256x256 xc:white glow.miff -alpha off -compose CopyOpacity -composite glow.png
rm glow.miff

convert -size 96x96 xc:none -fill "#1d3557" -draw "circle 48,48 48,4" -fill "#f1faee" -draw "circle 48,48 48,12" \
    -fill "#e76f51" -draw "polygon 38,28 38,68 70,48" next.png
