#!/usr/bin/env bash
# A real mouse on buttons, a check box, a window with a child and the ground behind them: the notifications and the
# host's presses are compared record by record. $1: controls_trace.exe. WINE_RUN: what starts a Windows program.
set -euo pipefail
. "$(dirname "$0")/lib.sh"

# The game's window is 800 x 600 in the middle of a larger screen, so that the mouse can leave it.
start_screen 1024x768
trace=$(dirname "$1")/controls_trace.txt
rm -f "$trace"
start_program "$1"
wait_for 30 grep -q OnInit "$trace"
sleep 1

seen=1
# expect RECORD...: these come next and, after a moment, nothing else.
expect() {
    local want
    for want in "$@"; do
        seen=$((seen + 1))
        wait_for 10 lines_are "$seen"
        local got
        got=$(sed -n "${seen}p" "$trace")
        [ "$got" = "$want" ] || fail "record $seen is '$got', not '$want'"
    done
    sleep 0.15
    [ "$(wc -l <"$trace")" = "$seen" ] || fail "too much: $(tail -n +$((seen + 1)) "$trace")"
}
lines_are() { [ "$(wc -l <"$trace")" -ge "$1" ]; }
at() { xdotool mousemove $(($1 + 112)) $(($2 + 84)); sleep 0.1; }
down() { xdotool mousedown 1; sleep 0.1; }
up() { xdotool mouseup 1; }
rested() { sleep 0.6; }

# A click is a command: the GUI leaves, enters again and finds the mouse over the control once more.
echo "hover, press, release inside"
at 100 70
expect "first over 1"
down
expect "first down 1"
up
expect "first click 1" "first over 1"

echo "the press debounce over two buttons"
rested
down
up
expect "first down 1" "first click 1" "first over 1"
at 250 70
expect "first over 0" "second over 1"
at 100 70
expect "second over 0" "first over 1"
rested
xdotool mousedown 1 sleep 0.05 mouseup 1 sleep 0.05 \
    mousemove 362 154 sleep 0.05 mousedown 1 sleep 0.05 mouseup 1
wait_for 10 grep -q "second click" "$trace"
sleep 0.3
# Where the mouse is noticed first depends on the frames' times; presses and clicks do not.
clicks=$(tail -n +$((seen + 1)) "$trace" | grep -v over | tr '\n' ',')
[ "$clicks" = "first down 1,first click 1,second click 1," ] || fail "the debounce gave $clicks"
seen=$(wc -l <"$trace")

echo "press, drag out, release outside"
rested
down
expect "second down 1"
at 250 400
up
at 30 400
expect

echo "drags, notified and not"
rested
at 100 170
down
at 110 180
up
expect "dragged over 1" "dragged down 1" "dragged drag 0 60,30" "dragged click 1" "dragged over 1"
rested
at 100 70
down
at 110 75
up
expect "dragged over 0" "first over 1" "first down 1" "first click 1" "first over 1"

echo "a click-through and a disabled button"
rested
at 250 170
down
up
expect "first over 0"
at 100 270
down
up
expect "left down 100,270" "left up 100,270"

echo "a check box pressed three times"
at 220 270
for _ in 1 2 3; do
    down
    up
    sleep 0.1
done
expect "box checked 1" "box checked 1"

echo "a window dragged with its child, whose button works after it"
at 700 250
down
at 720 280
up
expect "panel 470,130 child 490,160"
at 520 180
down
up
expect "child over 1" "child down 1" "child click 1" "child over 1"

echo "clicks on the ground, left and right"
at 100 420
down
xdotool click 3 sleep 0.1
up
expect "child over 0" "left down 100,420" "right down 100,420" "right up 100,420" "left up 100,420"

echo "two clicks faster than frames come"
xdotool click --repeat 2 --delay 0 1
expect "left down 100,420" "left up 100,420" "left down 100,420" "left up 100,420"

echo "a drag out of the window"
at 20 300
down
at -50 300
up
expect "left down 20,300" "left up -50,300"

echo "the image cursor follows the mouse"
# The ball's disc is 96 pixels wide, its corner at the mouse; the game's ground is black.
ball_at() {
    local centre="p{$(($1 + 112 + 48)),$(($2 + 84 + 75))}"
    [ "$(import -window root -depth 8 png:- | convert - -format "%[fx:$centre.r>.8&&$centre.g<.5]" info:)" = 1 ]
}
at 600 400
wait_for 5 ball_at 600 400
at 100 420
wait_for 5 ball_at 100 420
! ball_at 600 400 || fail "a second cursor stays where the first was"

end_program
expect end
echo "all records as they should be"
