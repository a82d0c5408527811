#!/usr/bin/env bash
# Plays every sound and the music out of plucked and pure tones. One scale for all: C major pentatonic.
set -euo pipefail
cd "$(dirname "$0")/assets"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

scale=(261.63 293.66 329.63 392.00 440.00 523.25 587.33 659.26 783.99 880.00 1046.50 1174.66)
sox_() { sox -R -V1 "$@"; }

# bell HERTZ SECONDS FILE: a pure tone with an octave and a twelfth above it that die away.
bell() {
    sox_ -n -r 22050 -c 1 -b 16 "$3" synth "$2" sine "$1" synth "$2" sine mix "$(awk "BEGIN { print $1 * 2 }")" \
        fade l 0.004 "$2" "$(awk "BEGIN { print $2 - 0.01 }")" gain -n -6
}
# chime SECONDS_BETWEEN FILE HERTZ...: bells one after the other, each over the last.
chime() {
    local gap=$1 file=$2 inputs=() i=0 hertz
    shift 2
    for hertz in "$@"; do
        bell "$hertz" 0.6 "$work/bell.wav"
        sox_ "$work/bell.wav" "$work/part$i.wav" pad "$(awk "BEGIN { print $i * $gap }")"
        inputs+=("$work/part$i.wav")
        i=$((i + 1))
    done
    sox_ -m "${inputs[@]}" -b 16 "$file" gain -n -6
}

effects() {
    local i
    for i in "${!scale[@]}"; do bell "${scale[i]}" 0.45 "play/$(printf tone%02d "$i").wav"; done
    sox_ -n -r 22050 -c 1 -b 16 ui/click.wav synth 0.06 sine 900-500 fade l 0.002 0.06 0.055 gain -n -12
    sox_ -n -r 22050 -c 1 -b 16 play/light.wav synth 0.12 sine 520-700 fade l 0.01 0.12 0.1 gain -n -16
    sox_ -n -r 22050 -c 1 -b 16 play/miss.wav synth 0.35 triangle 220-98 fade l 0.004 0.35 0.33 lowpass 900 gain -n -7
    chime 0.06 play/hit.wav 783.99 1174.66
    chime 0.09 play/level.wav 523.25 659.26 783.99 1046.50
    chime 0.12 play/win.wav 392.00 523.25 659.26 783.99 1046.50 1318.51
}

# voice NAME PITCH... : eight bars of one voice, a quarter of a bar a note, on the semitone line from A 440.
note() { sox_ -n -r 44100 -c 1 "$work/n.wav" synth "$2" "$3" "%$1" fade l "$4" "$2" "$5" gain -n "$6"; }

# Four chords of two bars of 2 s: C, A minor, F, G; a pad below, a plucked figure above. The end meets the beginning.
music() {
    local chords=('-9 -5 -2 3' '-12 -9 -5 0' '-16 -12 -9 -4' '-14 -10 -7 -2') figure=(0 1 2 3 2 1 2 3)
    local chord pitches pitch step part=0
    : >"$work/list"
    for chord in 0 1 2 3; do
        read -ra pitches <<<"${chords[chord]}"
        for pitch in "${pitches[@]:0:3}"; do
            note $((pitch - 12)) 4.4 sine 0.6 1.2 -16
            place "$(awk "BEGIN { print $chord * 4 }")"
        done
        for step in {0..15}; do
            note $((pitches[figure[step % 8]] + 12)) 1.1 pluck 0.004 0.9 -13
            place "$(awk "BEGIN { print $chord * 4 + $step * 0.25 }")"
        done
    done
    mapfile -t parts <"$work/list"
    sox_ -m "${parts[@]}" "$work/mixed.wav" gain -n -3
    # What sounds beyond 16 s goes to the front: the loop has no seam.
    sox_ "$work/mixed.wav" "$work/body.wav" trim 0 16
    sox_ "$work/mixed.wav" "$work/tail.wav" trim 16
    sox_ -m "$work/body.wav" "$work/tail.wav" "$work/loop.wav" gain -n -12
    sox_ "$work/loop.wav" -C 3 -r 44100 -c 2 ui/music.ogg remix 1 1 delay 0 0.011 trim 0 16 lowpass 5200
}
# place SECONDS: the last note goes into the mix there.
place() {
    sox_ "$work/n.wav" "$work/m$part.wav" pad "$1"
    echo "$work/m$part.wav" >>"$work/list"
    part=$((part + 1))
}

effects
music
