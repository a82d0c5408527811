#!/usr/bin/env bash
# Runs the hello example on a screen of its own and plays with it. $1: hello.exe. $2: folder for pictures.
set -euo pipefail
. "$(dirname "$0")/lib.sh"

start_screen 800x600
mkdir -p "$2"
pictures=$(cd "$2" && pwd)
log=$(dirname "$1")/game.log
rm -f "$log"
start_program "$1"

picture() { import -window root "$pictures/$1.png"; }
# colour FILE X Y: the pixel as r,g,b.
colour() { convert "$pictures/$1.png" -format "%[fx:int(255*p{$2,$3}.r+.5)],%[fx:int(255*p{$2,$3}.g+.5)],%[fx:int(255*p{$2,$3}.b+.5)]" info:; }
differ() { [ "$(compare -metric AE "$pictures/$1.png" "$pictures/$2.png" null: 2>&1)" != 0 ]; }
shows() {
    picture now
    [ "$(colour now "$1" "$2")" = "$3" ]
}

echo "background and knob are drawn"
wait_for 30 shows 610 170 255,233,184
wait_for 5 shows 350 532 247,243,233

echo "the ball flies"
picture first
sleep 0.3
picture second
differ first second || fail "two pictures 0.3 s apart are the same"

echo "the knob lights up under the mouse"
xdotool mousemove 360 532
wait_for 5 shows 350 532 247,199,93

echo "pressing it stops the ball"
xdotool click 1
sleep 0.3
picture first
sleep 0.3
picture second
! differ first second || fail "the ball still flies"

echo "the ball follows a drag"
xdotool mousemove 100 100 mousedown 1 mousemove 150 120 sleep 0.2
wait_for 5 grep -q "left button down at 100, 100" "$log"
picture dragged
[ "$(colour dragged 120 120)" != "$(colour first 120 120)" ] || fail "the ball is not at the mouse"
xdotool mouseup 1
wait_for 5 grep -q "left button up at 150, 120" "$log"

end_program
