#!/usr/bin/env bash
# Records what the engine plays and measures it; then plays without any card. $1: sound_player.exe. $2: folder
# for the recording.
set -euo pipefail
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/with_sound.sh"
trap 'sound_cleanup; e2e_cleanup' EXIT

mkdir -p "$2"
folder=$(cd "$2" && pwd)
rm -f "$folder"/*.wav
# The tones: 441 Hz, half of full scale. short.wav holds ten whole periods.
sox -R -D -r 44100 -n -b 16 -c 1 "$folder/tone.wav" synth 0.5 sine 441 gain -6.02
sox -R -D -r 44100 -n -b 16 -c 1 "$folder/short.wav" synth 1000s sine 441 gain -6.02
sox -R -D -r 44100 -n -b 16 -c 1 "$folder/other.wav" synth 1000s sine 882 gain -6.02

play() {
    start_program "$1"
    wait "$program" || fail "the player ended with code $?"
}
start_program() { (cd "$(dirname "$1")" && first "$WINE_RUN" "$1" "$folder/") & program=$!; }

start_screen 320x240
echo "without a card the same program ends in time"
PULSE_SERVER=unix:/nowhere
export PULSE_SERVER
begin=$SECONDS
play "$1"
((SECONDS - begin < 30)) || fail "it took $((SECONDS - begin)) s"
grep -q "channels run silently" "$(dirname "$1")/game.log" || fail "the log does not say that there is no card"

start_sound
# Room between the program and the server, for a busy machine.
export PULSE_LATENCY_MSEC=150
play_recorded() {
    rm -f "$folder"/part*.wav
    record "$folder/recording.wav"
    play "$1"
    stop_recording
    grep -q "sound: xaudio2" "$(dirname "$1")/game.log" || fail "the log names no card"
}

# level PART CHANNEL: of full scale, from its middle. pitch PART: in Hz, from its zero crossings.
stat_of() { sox "${parts[$1]}" -n remix "$2" trim 0.05 0.2 stat 2>&1 | awk -F: -v key="$3" '$1 ~ key {print $2 + 0}'; }
level() { stat_of "$1" "$2" '^RMS +amplitude'; }
length() { soxi -D "${parts[$1]}"; }
pitch() {
    sox "${parts[$1]}" -t dat - remix 1 trim "$2" 0.2 | awk '
        /^;/ {next}
        was < 0 && $2 >= 0 { at = $1 - $2 / ($2 - was) / 44100; if (!first) first = at; last = at; ++count }
        { was = $2 }
        END { printf "%.2f", (count - 1) / (last - first) }'
}
near() {
    echo "$1: $2, expected $3"
    awk -v a="$2" -v b="$3" -v tolerance="$4" 'BEGIN { exit !(a >= b - tolerance && a <= b + tolerance) }' ||
        fail "$1 is off by more than $4"
}
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.4f", a / b }'; }

measure() {
    # A part is a sound with at least 20 ms of silence behind it: a gap in one would make two of it.
    sox "$folder/recording.wav" "$folder/part.wav" silence 1 0.005 0.2% 1 0.02 0.2% : newfile : restart
    parts=("$folder"/part*.wav)
    # The last one is the silence at the end.
    ((${#parts[@]} == 4)) || fail "3 sounds and the end are expected, there are ${#parts[@]} parts"
    plain=$(level 0 1)
    near "level of the plain sound" "$plain" 0.3535 0.004
    near "its length in s" "$(length 0)" 0.5 0.02
    near "its pitch in Hz" "$(pitch 0 0.05)" 441 0.5
    near "pan -100, left to plain" "$(ratio "$(level 1 1)" "$plain")" 1 0.01
    near "pan -100, right to plain" "$(ratio "$(level 1 2)" "$plain")" 0 0.001
    near "length of the music in s" "$(length 2)" 2 0.12
    near "pitch of the loop in Hz" "$(pitch 2 0.3)" 441 0.5
    steepest=$(sox "${parts[2]}" -n remix 1 trim 0.05 0.8 stat 2>&1 | awk -F: '/^Maximum delta/ {print $2 + 0}')
    near "steepest step in the loop" "$steepest" 0.0314 0.002
    near "pitch after the music is replaced in Hz" "$(pitch 2 1.3)" 882 1
    near "level after it" "$(sox "${parts[2]}" -n remix 1 trim 1.3 0.2 stat 2>&1 | awk -F: '/^RMS +amplitude/ {print $2 + 0}')" 0.3535 0.004
}

# A machine whose cores are busy tears holes into what its sound server plays, whoever plays.
for attempt in 1 2 3; do
    play_recorded "$1"
    (measure) && exit 0
    echo "attempt $attempt of 3 was not as expected"
done
exit 1
