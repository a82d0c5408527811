#!/usr/bin/env bash
# Runs the soak on a screen of its own, with a sound card that nobody hears where there is PulseAudio. $1: soak.exe.
# Further arguments are the program's.
set -euo pipefail
. "$(dirname "$0")/lib.sh"

start_screen 800x600
if command -v pulseaudio pactl parec sox >/dev/null; then
    . "$(dirname "$0")/with_sound.sh"
    trap 'sound_cleanup; e2e_cleanup' EXIT
    start_sound
else
    export PULSE_SERVER=unix:/nowhere
fi
start_program "$@"
wait "$program" || fail "the soak ended with code $?"
