#!/usr/bin/env bash
# Packs with something wrong in them, made by the ordinary tools, and what packcheck says. $1: packcheck.exe.
set -euo pipefail
. "$(dirname "$0")/lib.sh"
for tool in zip sox; do
    command -v "$tool" >/dev/null || { echo "skipped: $tool is not installed"; exit 77; }
done
work=$(mktemp -d)
trap 'e2e_cleanup; rm -rf "$work"' EXIT
# One screen for all starts of the tool: Wine takes seconds to change it.
start_screen 320x240
cd "$work"
mkdir good bad
convert -size 40x30 plasma:red-blue good/图片.png
sox -R -n -r 22050 -c 1 -b 16 good/tone.wav synth 0.2 sine 440
echo 'any bytes' >good/level.txt
head -c 900 good/图片.png >bad/cut.png
echo 'no sound' >bad/beep.ogg
echo 'FWS' >bad/intro.swf
echo 'bytes that will change' >bad/damaged.txt
echo 'one' >bad/Same.txt
echo 'two' >bad/same.TXT
echo 'smile' >😀.txt

# expect STATUS PACK [PASSWORD] -- LINE...: the lines are the whole answer.
expect() {
    local wanted=$1 status=0 arguments=()
    shift
    while [[ $1 != -- ]]; do
        arguments+=("$1")
        shift
    done
    shift
    "$WINE_RUN" "$PACKCHECK" "${arguments[@]}" 2>&1 | tr -d '\r' |
        sed -E 's/(decode as a [a-z]*): .*/\1/; s/: .*, or a wrong password/: wrong password/' >answer || status=${PIPESTATUS[0]}
    if [[ $status != "$wanted" ]] || ! printf '%s\n' "$@" | sort | diff - <(sort answer); then
        echo "FAILED: packcheck ${arguments[*]} ended with $status, not $wanted"
        failed=yes
    fi
}
PACKCHECK=$1 failed=

# As docs/packing.md says.
(cd good && LC_ALL=C.UTF-8 cmake -E tar cf ../good.zip --format=zip .)
expect 0 good.zip -- "good.zip: 3 files, all load"
(cd good && zip -q -r -P geheim ../secret.zip .)
expect 0 secret.zip geheim -- "secret.zip: 3 files, all load"
wrong="wrong password"
expect 1 secret.zip falsch -- "level.txt: $wrong" "tone.wav: $wrong" "图片.png: $wrong" \
    "secret.zip: 3 of 3 files would not load"

(cd bad && zip -q -0 ../bad.zip cut.png beep.ogg intro.swf damaged.txt Same.txt same.TXT)
sed -i 's/bytes that will change/bytes that have moved!/' bad.zip
expect 1 bad.zip -- \
    "cut.png: it does not decode as a picture" \
    "beep.ogg: it does not decode as a sound" \
    "intro.swf: movies are opened as files: put it beside the program" \
    "damaged.txt: CRC mismatch" \
    "Same.txt: another entry has the same name (case and the kind of slash do not matter) and hides it" \
    "bad.zip: 5 of 6 files would not load"
LC_ALL=C.UTF-8 cmake -E tar cf smile.zip --format=zip 😀.txt
expect 1 smile.zip -- "😀.txt: its name has characters that this code page lacks" "smile.zip: 1 of 1 files would not load"
head -c 300 bad.zip >cut.zip
expect 2 cut.zip -- "cut.zip: cannot be attached: not a ZIP archive, or cut off"
[[ ! $failed ]] || exit 1
