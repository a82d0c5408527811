#!/usr/bin/env bash
# A real mouse on buttons, a check box and a window with a child: the notifications are compared record by
# record. $1: controls_trace.exe. WINE_RUN: what starts a Windows program.
set -euo pipefail
. "$(dirname "$0")/lib.sh"

start_screen 800x600
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
at() { xdotool mousemove "$1" "$2"; sleep 0.1; }
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
    mousemove 250 70 sleep 0.05 mousedown 1 sleep 0.05 mouseup 1
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
expect

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

end_program
expect end
echo "all records as they should be"
