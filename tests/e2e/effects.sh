#!/usr/bin/env bash
# Runs the effects example from a folder with a Chinese name: three effects from the pack, and a screenshot.
# $1: effects.exe. $2: folder for pictures.
set -euo pipefail
. "$(dirname "$0")/lib.sh"

start_screen 800x600
mkdir -p "$2"
pictures=$(cd "$2" && pwd)
# The second byte of the last character is a backslash in code page 936.
folder=$(dirname "$1")/effects_e2e/训练乗
rm -rf "$folder"
mkdir -p "$folder"
cp "$1" "$(dirname "$1")"/{hge,drill2d}.dll "$(dirname "$1")/effects.zip" "$folder"
log=$folder/game.log

picture() { import -window root "$pictures/$1.png"; }
# brightness X Y: of a spot of the last picture, in percent.
brightness() { convert "$pictures/now.png" -crop "9x9+$1+$2" -resize 1x1! -format '%[fx:int(100*mean)]' info:; }
brighter() {
    picture now
    (($(brightness "$1" "$2") > $3))
}
darker() {
    picture now
    (($(brightness "$1" "$2") < $3))
}
differ() { [ "$(compare -metric AE "$pictures/$1.png" "$pictures/$2.png" null: 2>&1)" != 0 ]; }
loaded() { grep -q "effect \"$1.hlsl\" loaded" "$log"; }
saved() { compgen -G "$folder/pic/effects20*年*月*日 *时*分*秒_*.bmp"; }

start_program "$folder/effects.exe"

echo "waves run over the water, the land lies still"
wait_for 30 brighter 20 20 40
wait_for 5 loaded ripple
picture first
sleep 0.5
picture second
for side in first second; do
    convert "$pictures/$side.png" -crop 800x200+0+400 "$pictures/water_$side.png"
    convert "$pictures/$side.png" -crop 800x190+0+200 "$pictures/land_$side.png"
done
differ water_first water_second || fail "the water is still"
! differ land_first land_second || fail "the land moves"
mv "$pictures/second.png" "$pictures/ripple.png"

echo "a screenshot lands beside the program"
xdotool key s
wait_for 5 saved
[ "$(identify -format '%wx%h %m' "$(saved)")" = "800x600 BMP3" ] || fail "it is no picture of the screen"

echo "night falls, the mouse carries a light"
xdotool mousemove 738 538 sleep 0.1 click 1
wait_for 10 loaded lantern
wait_for 5 darker 20 20 15
xdotool mousemove 60 60
wait_for 5 brighter 56 56 50
mv "$pictures/now.png" "$pictures/lantern.png"

echo "the disc of the other scene grows from the middle to the corners and back"
xdotool key space
wait_for 10 loaded crossfade
wait_for 10 brighter 20 20 40
wait_for 10 darker 400 300 25
mv "$pictures/now.png" "$pictures/crossfade.png"
wait_for 10 darker 20 20 15
wait_for 10 brighter 20 20 40

end_program
