#!/usr/bin/env bash
# Draws every picture four times too large and scales it down: smooth edges from plain shapes.
set -euo pipefail
cd "$(dirname "$0")/assets"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

night='#14163a' panel='#272c66' edge='#4a529f' ink='#f6f2e6' muted='#8f96cc'
amber='#ffc857' teal='#3ddbc2' coral='#ff6b7a'

# shape WIDTH HEIGHT FILE DRAWING...: draws at four times the size on nothing.
shape() {
    local width=$1 height=$2 file=$3
    shift 3
    convert -size $((width * 4))x$((height * 4)) xc:none "$@" -filter Box -resize "${width}x$height!" -strip \
        -depth 8 "PNG32:$file"
}
# save FILE: what a finished picture goes through.
save() { convert - +repage -strip -define png:compression-level=9 -define png:exclude-chunk=date,time "$1"; }
# strip FILE FRAME...: frames side by side.
strip() {
    local file=$1
    shift
    convert "$@" +append PNG32:- | save "PNG32:$file"
}
# glow SIZE RADIUS COLOUR FILE: a soft round light, SIZE pixels wide.
glow() {
    convert -size "$1x$1" xc:none -fill "$3" -draw "circle $(($1 / 2)),$(($1 / 2)) $(($1 / 2)),$(($1 / 2 - $2))" \
        -channel RGBA -blur "0x$(($1 / 10))" "PNG32:$4"
}

background() {
    convert -size 800x600 gradient:'#1b1e50-#101230' \
        \( -size 1000x1000 radial-gradient:'#5a4fb0-#000000' -evaluate multiply 0.55 \) \
        -gravity north -geometry +0-480 -compose screen -composite \
        \( -size 800x600 xc:black -fill '#2b3170' \
        -draw 'circle 90,470 90,400 circle 720,140 720,60 circle 640,540 640,430' -blur 0x18 -evaluate multiply 0.5 \) \
        -gravity center -geometry +0+0 -compose screen -composite \
        \( -size 800x600 xc:black -fill '#8088d8' \
        -draw 'circle 60,130 60,128 circle 96,300 96,299 circle 250,18 250,17 circle 566,16 566,15
               circle 716,104 716,103 circle 762,210 762,208 circle 36,250 36,249 circle 742,372 742,371
               circle 84,206 84,205 circle 704,290 704,289' -blur 0x0.7 \) \
        -compose screen -composite -depth 8 PNG24:- | save PNG24:ui/background.png
}

# plate WIDTH HEIGHT RADIUS FILE FILL EDGE DROP: a rounded plate that stands DROP pixels above its foot.
plate() {
    local w=$(($1 * 4)) h=$(($2 * 4)) r=$(($3 * 4)) up=$(((4 - $7) * 4))
    shape "$1" "$2" "$4" -fill '#0a0b22b0' -draw "roundrectangle 8,24 $((w - 9)),$((h - 5)) $r,$r" \
        -fill "$5" -stroke "$6" -strokewidth 8 \
        -draw "roundrectangle 8,$((8 + up)) $((w - 9)),$((h - 25 + up)) $r,$r"
}
# plates WIDTH HEIGHT RADIUS: the five frames of a button.
plates() {
    plate "$@" "$work/0.png" "$panel" "$edge" 4
    plate "$@" "$work/1.png" '#1d2150' "$teal" 1
    plate "$@" "$work/2.png" '#343b85' "$teal" 4
    cp "$work/0.png" "$work/3.png"
    plate "$@" "$work/4.png" '#20234a80' '#3a3f6c80' 4
}
button() {
    plates "$2" "$3" "$4"
    strip "ui/$1.png" "$work"/[0-4].png
}
# icon NAME DRAWING: a round button of 44 pixels with a sign; the drawing uses a square of 176.
icon() {
    plates 44 44 18
    local i shift colour
    for i in 0 1 2 3 4; do
        shift=0 colour=$ink
        [ $i = 1 ] && shift=3
        [ $i = 4 ] && colour='#7078a880'
        shape 44 44 "$work/sign.png" -fill none -stroke "$colour" -strokewidth 16 -draw "stroke-linecap round $2"
        convert "$work/$i.png" "$work/sign.png" -geometry "+0+$((shift - 2))" -composite "$work/icon$i.png"
    done
    strip "ui/$1.png" "$work"/icon[0-4].png
}

# A bar of light that crosses the button under the mouse: ten frames in two rows.
glint() {
    local i x
    shape 240 64 "$work/mask.png" -fill white -draw 'roundrectangle 16,16 943,223 64,64'
    for i in 0 1 2 3 4 5 6 7 8 9; do
        x=$((i * 36 - 40))
        convert -size 240x64 xc:'#ffffff00' -fill '#ffffff50' \
            -draw "polygon $x,0 $((x + 26)),0 $((x + 2)),64 $((x - 24)),64" -channel A -blur 0x5 +channel \
            "$work/mask.png" -compose DstIn -composite "PNG32:$work/g$i.png"
    done
    convert \( "$work"/g[0-4].png +append \) \( "$work"/g[5-9].png +append \) -append PNG32:- | save PNG32:ui/glint.png
}

check_box() {
    local box='roundrectangle 10,10 117,117 30,30'
    local tick="path 'M 34,66 L 56,90 L 96,40'"
    shape 32 32 "$work/0.png" -fill "$night" -stroke "$edge" -strokewidth 8 -draw "$box"
    shape 32 32 "$work/1.png" -fill "$panel" -stroke "$teal" -strokewidth 8 -draw "$box"
    shape 32 32 "$work/2.png" -fill "$teal" -stroke "$teal" -strokewidth 8 -draw "$box" \
        -fill none -stroke "$night" -strokewidth 16 -draw "stroke-linecap round stroke-linejoin round $tick"
    shape 32 32 "$work/3.png" -fill '#7aeedb' -stroke "$ink" -strokewidth 8 -draw "$box" \
        -fill none -stroke "$night" -strokewidth 16 -draw "stroke-linecap round stroke-linejoin round $tick"
    strip ui/check.png "$work"/[0-3].png
}

# panel_picture WIDTH HEIGHT FILE FILL: a panel with a soft shadow of 16 pixels around it.
panel_picture() {
    local w=$1 h=$2
    convert -size "${w}x$h" xc:none -fill '#05061acc' -draw "roundrectangle 16,20 $((w - 17)),$((h - 11)) 22,22" \
        -channel RGBA -blur 0x6 +channel "PNG32:$work/shadow.png"
    shape "$w" "$h" "$work/panel.png" -fill "$4" -stroke "$edge" -strokewidth 6 \
        -draw "roundrectangle 64,64 $((w * 4 - 65)),$((h * 4 - 65)) 88,88"
    convert "$work/shadow.png" "$work/panel.png" -composite PNG32:- | save "PNG32:$3"
}

logo() {
    convert -size 2080x480 xc:none -font DejaVu-Sans-Bold -pointsize 300 -kerning 8 -gravity center \
        -fill "$ink" -annotate +0+0 'Lamplight' -resize 25% "PNG32:$work/text.png"
    convert "$work/text.png" \( +clone -fill "$amber" -colorize 100 -channel RGBA -blur 0x12 -channel A \
        -evaluate multiply 0.75 +channel \) +swap -composite PNG32:- | save PNG32:ui/logo.png
}

# A lamp that breathes while a spark circles it: twelve frames in three rows.
spark() {
    local i angle x y r
    shape 192 192 "$work/bulb.png" \
        -fill "$amber" -draw 'circle 384,336 384,208' -draw 'polygon 290,400 478,400 440,496 328,496' \
        -fill '#fff1c9' -draw 'circle 350,300 350,252' \
        -fill "$muted" -draw 'roundrectangle 324,496 444,528 12,12 roundrectangle 332,540 436,572 12,12' \
        -draw 'roundrectangle 352,584 416,608 12,12'
    for i in 0 1 2 3 4 5 6 7 8 9 10 11; do
        r=$(awk "BEGIN { printf \"%d\", 44 + 10 * sin($i * 3.14159265 / 6) }")
        x=$(awk "BEGIN { printf \"%d\", 384 + 300 * cos($i * 3.14159265 / 6) }")
        y=$(awk "BEGIN { printf \"%d\", 360 + 130 * sin($i * 3.14159265 / 6) }")
        glow 192 "$r" '#ffc857b0' "$work/halo.png"
        shape 192 192 "$work/dot.png" -fill "${teal}60" -draw "circle $x,$y $x,$((y - 34))" \
            -fill "$teal" -draw "circle $x,$y $x,$((y - 18))"
        if ((i > 6)); then layers=("$work/dot.png" "$work/bulb.png"); else layers=("$work/bulb.png" "$work/dot.png"); fi
        convert "$work/halo.png" "${layers[0]}" -composite "${layers[1]}" -composite "PNG32:$work/$(printf s%02d $i).png"
    done
    convert \( "$work"/s0[0-3].png +append \) \( "$work"/s0[4-7].png +append \) \
        \( "$work/s08.png" "$work/s09.png" "$work/s10.png" "$work/s11.png" +append \) -append PNG32:- | save PNG32:ui/spark.png
}

# One lamp of 128 pixels, its light included. $1: file, $2: body, $3: rim, $4: light or none, $5: sign drawn on it.
lamp() {
    if [ "$4" = none ]; then convert -size 128x128 xc:none "PNG32:$work/light.png"; else glow 128 50 "$4" "$work/light.png"; fi
    shape 128 128 "$work/body.png" -fill '#05061a90' -draw 'circle 256,268 256,100' \
        -fill "$2" -stroke "$3" -strokewidth 12 -draw 'circle 256,256 256,94' \
        -fill '#ffffff26' -stroke none -draw 'ellipse 216,178 74,40 0,360' \
        -fill none -stroke "$night" -strokewidth 28 -draw "stroke-linecap round stroke-linejoin round $5"
    convert "$work/light.png" "$work/body.png" -composite "PNG32:$1"
}
lamps() {
    local nothing='line -9,-9 -9,-9'
    lamp "$work/l0.png" '#2a2f6b' "$edge" none "$nothing"
    lamp "$work/l1.png" '#383f8c' "$teal" none "$nothing"
    lamp "$work/l2.png" "$amber" '#ffe7ae' '#ffc857d0' "$nothing"
    lamp "$work/l3.png" "$coral" '#ffc2c8' '#ff6b7ac0' 'line 200,256 312,256'
    lamp "$work/l4.png" "$teal" '#c8fff5' '#3ddbc2c0' "path 'M 196,262 L 240,306 L 324,206'"
    lamp "$work/l5.png" '#5b2c54' "$coral" none 'line 210,210 302,302 line 302,210 210,302'
    strip play/lamp.png "$work"/l[0-5].png
}

# A ring and eight sparks that fly apart: eight frames in two rows.
burst() {
    local i k drawing r x y
    for i in 0 1 2 3 4 5 6 7; do
        r=$((90 + i * 22))
        drawing=
        for k in 0 1 2 3 4 5 6 7; do
            x=$(awk "BEGIN { printf \"%d\", 256 + ($r + 12) * cos($k * 0.785398) }")
            y=$(awk "BEGIN { printf \"%d\", 256 + ($r + 12) * sin($k * 0.785398) }")
            drawing="$drawing circle $x,$y $x,$((y - 17 + i * 2))"
        done
        shape 128 128 "$work/b$i.png" -fill none -stroke "$teal" -strokewidth $((26 - i * 3)) \
            -draw "circle 256,256 256,$((256 - r))" -fill '#fff1c9' -stroke none -draw "$drawing" \
            -channel A -evaluate multiply "$(awk "BEGIN { print 1 - $i / 9 }")"
    done
    convert \( "$work"/b[0-3].png +append \) \( "$work"/b[4-7].png +append \) -append PNG32:- | save PNG32:play/burst.png
}

# Light without a lamp, for the effect: white, brightest in the middle, nothing at the edge.
light() {
    convert -size 256x256 radial-gradient:'#ffffff-#000000' -evaluate pow 1.6 \( -size 256x256 xc:white \) +swap \
        -alpha off -compose CopyOpacity -composite PNG32:- | save PNG32:play/light.png
}

small_things() {
    local heart="path 'M 64,110 C 8,70 4,50 10,34 C 20,12 50,12 64,38 C 78,12 108,12 118,34 C 124,50 120,70 64,110 Z'"
    shape 32 32 "$work/0.png" -fill "$coral" -draw "$heart"
    shape 32 32 "$work/1.png" -fill none -stroke "$edge" -strokewidth 9 -draw "$heart"
    strip play/heart.png "$work/0.png" "$work/1.png"
    shape 320 12 play/bar_back.png -fill '#0c0e2a' -draw 'roundrectangle 0,0 1279,47 24,24'
    shape 8 12 play/bar_fill.png -fill "$teal" -draw 'rectangle 0,8 31,39'
    local star
    star=$(awk 'BEGIN { for (k = 0; k < 10; k++) { r = k % 2 ? 78 : 180
        printf "%d,%d ", 256 + r * sin(k * 0.6283185), 264 - r * cos(k * 0.6283185) } }')
    shape 128 128 "$work/star.png" -fill "$amber" -stroke '#ffe7ae' -strokewidth 10 -draw "stroke-linejoin round polygon $star"
    glow 128 46 '#ffc857a0' "$work/starlight.png"
    convert "$work/starlight.png" "$work/star.png" -composite PNG32:- | save PNG32:play/star.png
    # The engine's notice at the end of the training time lays this over the screen.
    convert -size 16x16 xc:black -depth 8 PNG24:- | save PNG24:ui/game/全黑透明.png
}

background
logo
spark
button button 240 64 16
button button_small 128 48 14
glint
icon icon_settings 'line 48,64 128,64 line 48,92 128,92 line 48,120 128,120 stroke-width 26 line 70,64 71,64 line 106,92 107,92 line 78,120 79,120'
icon icon_close 'line 62,66 114,118 line 114,66 62,118'
icon icon_plus 'line 56,92 120,92 line 88,60 88,124'
icon icon_minus 'line 56,92 120,92'
icon icon_back "path 'M 98,62 L 68,92 L 98,122'"
check_box
panel_picture 432 372 ui/window.png '#222758f4'
panel_picture 592 428 play/board.png '#1b1f4cc8'
panel_picture 480 300 play/card.png '#1b1f4cd8'
lamps
burst
light
small_things
