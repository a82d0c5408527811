#!/usr/bin/env bash
# Makes the sounds of the tests anew; needs sox and lame. A 441 Hz tone at half of full scale, 0.5 s.
set -eu
cd "$(dirname "$0")"
tone=(synth 0.5 sine 441 gain -6.02)
sox -R -D -n -r 22050 -b 16 -c 1 tone.ogg "${tone[@]}"
# Channel 1 of 6 holds the tone, the rest is silent.
sox -R -D -n -r 22050 -b 16 -c 1 tone.wav "${tone[@]}"
sox -R -D tone.wav -C 2 surround.ogg remix 1 0 0 0 0 0
sox -R -D tone.wav -e ima-adpcm ima.wav
sox -R -D tone.wav -e ms-adpcm ms.wav
lame --quiet -m m --resample 22.05 -b 64 tone.wav tone.mp3
rm tone.wav
