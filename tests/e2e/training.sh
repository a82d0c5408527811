#!/usr/bin/env bash
# Plays the training game with a real mouse: settings, both languages, an exercise from the first lamp to the result,
# the end of the training time. $1: training.exe. $2: folder for pictures. $3: folder of golden pictures.
set -euo pipefail
. "$(dirname "$0")/lib.sh"

start_screen 800x600
mkdir -p "$2"
pictures=$(cd "$2" && pwd)
golden=$(cd "$3" && pwd)
folder=$(dirname "$1")
log=$folder/game.log
ini=$folder/training_e2e.ini
rm -f "$log" "$ini"
rm -rf "$folder/pic"

picture() { import -window root "$pictures/$1.png"; }
# colour FILE X Y: the pixel as r,g,b.
colour() { convert "$pictures/$1.png" -format "%[fx:int(255*p{$2,$3}.r+.5)],%[fx:int(255*p{$2,$3}.g+.5)],%[fx:int(255*p{$2,$3}.b+.5)]" info:; }
shows() {
    picture now
    [ "$(colour now "$1" "$2")" = "$3" ]
}
# changed X Y: the pixel is not as in the picture of the start scene.
changed() {
    picture now
    [ "$(colour now "$1" "$2")" != "$(colour start "$1" "$2")" ]
}
as_at_start() { ! changed "$1" "$2"; }
lines() { grep -c "$1" "$log" || true; }
lines_are() { [ "$(lines "$1")" -ge "$2" ]; }
# click X Y COMMAND...: clicks there until the command succeeds. A click may fall into the few frames in which the
# controls take no mouse.
click() {
    local try x=$1 y=$2
    shift 2
    for try in 1 2 3; do
        xdotool mousemove "$x" "$y" sleep 0.2 click 1
        (wait_for 8 "$@") >/dev/null && return
    done
    fail "clicked in vain at $x, $y for: $*"
}
# press N: the lamp of the N-th cue.
press() {
    wait_for 20 lines_are ' press ' "$1"
    read -r x y < <(grep ' press ' "$log" | sed -n "$1s/.* press //p" | tr -d '\r')
    xdotool mousemove "$x" "$y" sleep 0.05 click 1
}
has() { grep -q "^$1" "$ini"; }

# Slowly: a loaded machine must not lose lamps.
start_program "$1" --seed 7 --ini training_e2e.ini --pace 40
wait_for 30 lines_are 'scene: start' 1
wait_for 10 shows 170 440 39,44,102


echo "the start scene looks as it should, its moving picture aside"
sleep 0.5
picture start
for side in start golden; do
    [ $side = golden ] && from=$golden/training_start.png || from=$pictures/start.png
    convert "$from" -fill black -draw 'rectangle 300,196 500,396' "$pictures/still_$side.png"
done
# 3 %: rounding differs between graphics drivers.
wrong=$(compare -metric AE -fuzz 3% "$pictures/still_start.png" "$pictures/still_golden.png" "$pictures/difference.png" 2>&1 || true)
[ "$wrong" = 0 ] || fail "$wrong pixels of the start scene differ: $pictures/difference.png"

echo "the settings window is dragged, its check box turns the music off"
click 754 46 changed 400 458
xdotool mousemove 400 175 sleep 0.2 mousedown 1 sleep 0.3 mousemove 440 195 sleep 0.3 mousemove 460 215 sleep 0.3 mouseup 1
wait_for 15 changed 640 300
picture settings
click 316 336 has music=0
click 626 208 as_at_start 640 300

echo "the language changes and is kept"
click 650 46 has language=zh

echo "an exercise is played"
click 268 432 lines_are 'scene: play' 1
for cue in 1 2 3 4 5 6 7; do press "$cue"; done
wait_for 20 lines_are ' press ' 8
sleep 0.1
picture play
press 8

echo "three lamps that nobody presses end it"
wait_for 90 lines_are 'scene: result' 1
sleep 1.2
picture result
score=$(sed -n 's/^reaction=\([0-9]*\).*/\1/p' "$ini")
[ "${score:-0}" -gt 300 ] || fail "eight presses brought only '${score:-}' points"

echo "again, and back"
click 268 508 lines_are 'scene: play' 2
click 46 46 lines_are 'scene: start' 2

echo "a key takes a picture"
xdotool key F12
picture_is_there() { [ -n "$(ls "$folder/pic" 2>/dev/null)" ]; }
wait_for 15 picture_is_there
end_program

echo "the training time ends the game"
start_program "$1" --seed 7 --ini training_e2e.ini --limit 2
wait_for 30 lines_are 'scene: start' 1
sleep 4
picture end
wait "$program" || fail "the program ended with code $? at the end of the training time"
[ "$(colour end 60 530)" != "$(colour start 60 530)" ] || fail "no notice covers the screen"
