#!/usr/bin/env bash
# A real mouse clicks, drags, leaves the window and clicks faster than frames come: no call to the sink is lost,
# each frame's calls come in order. $1: sink_trace.exe. WINE_RUN: what starts a Windows program.
set -euo pipefail
. "$(dirname "$0")/lib.sh"

# The game's window is 800 x 600 in the middle of a larger screen, so that the mouse can leave it.
start_screen 1024x768
at() { xdotool mousemove $(($1 + 112)) $(($2 + 84)); }

trace=$(dirname "$1")/sink_trace.txt
rm -f "$trace"
start_program "$1"
wait_for 30 grep -q OnInit "$trace"
sleep 1

lines_are() { [ "$(wc -l <"$trace")" -ge "$1" ]; }
seen=1
expect() {
    wait_for 10 lines_are $((seen + $#))
    local want
    for want in "$@"; do
        seen=$((seen + 1))
        local got
        got=$(sed -n "${seen}p" "$trace")
        [ "$got" = "$want" ] || fail "line $seen of the trace is '$got', not '$want'"
    done
}
frame() { echo "OnFrame(0) $1 OnMouseMove($2) OnRender"; }

echo "a click, left and right"
at 100 120
xdotool mousedown 1
expect "$(frame 'OnLButtonDown(100,120)' 100,120)"
xdotool mouseup 1
expect "$(frame 'OnLButtonUp(100,120)' 100,120)"
xdotool mousedown 3
expect "$(frame 'OnRButtonDown(100,120)' 100,120)"
xdotool mouseup 3
expect "$(frame 'OnRButtonUp(100,120)' 100,120)"

echo "a drag"
at 200 200
xdotool mousedown 1
expect "$(frame 'OnLButtonDown(200,200)' 200,200)"
at 250 220
at 290 240
xdotool mouseup 1
expect "$(frame 'OnLButtonUp(290,240)' 290,240)"

echo "two clicks faster than frames come"
at 60 60
xdotool click --repeat 2 --delay 0 1
sleep 0.5
count() { grep -o "$1(60,60)" "$trace" | wc -l; }
[ "$(count OnLButtonDown)" = 2 ] || fail "$(count OnLButtonDown) presses of 2 arrived"
[ "$(count OnLButtonUp)" = 2 ] || fail "$(count OnLButtonUp) releases of 2 arrived"
seen=$(wc -l <"$trace")

echo "a drag out of the window and back"
at 20 300
xdotool mousedown 1
expect "$(frame 'OnLButtonDown(20,300)' 20,300)"
at -50 300
xdotool mouseup 1
expect "OnFrame(0) OnLButtonUp(-50,300) OnRender"

echo "a click on the control is the control's alone"
at 400 300
sleep 0.2
xdotool mousedown 1
expect "Pad(1) OnFrame(0) OnRender"
xdotool mouseup 1
expect "Pad(0) OnFrame(0) OnRender"

echo "the image cursor follows the mouse"
# The ball's disc is 96 pixels wide, its corner at the mouse; the game's ground is black.
ball_at() {
    local centre="p{$(($1 + 112 + 48)),$(($2 + 84 + 75))}"
    [ "$(import -window root -depth 8 png:- | convert - -format "%[fx:$centre.r>.8&&$centre.g<.5]" info:)" = 1 ]
}
at 600 100
wait_for 5 ball_at 600 100
at 100 420
wait_for 5 ball_at 100 420
! ball_at 600 100 || fail "a second cursor stays where the first was"

end_program
[ "$(tail -n 1 "$trace")" = end ] || fail "InitHge did not return"
[ "$(wc -l <"$trace")" = $((seen + 1)) ] || fail "unexpected calls: $(tail -n +$((seen + 1)) "$trace")"
echo "all calls arrived, in order"
