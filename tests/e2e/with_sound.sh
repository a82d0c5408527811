#!/usr/bin/env bash
# A sound card that nobody hears, and what is played on it as a file. Run as
#   with_sound.sh RECORDING.wav COMMAND...
# or sourced for start_sound, stop_sound and record. Exit code 77 means skipped.

for tool in pulseaudio pactl parec sox; do
    command -v "$tool" >/dev/null || { echo "skipped: $tool is not installed"; exit 77; }
done

sound_folder=$(mktemp -d)
sound_pid=
record_pid=
# Sound that is late is lost: on a busy machine it must go first, where that is allowed.
first() { if nice -n -15 true 2>/dev/null; then exec nice -n -15 "$@"; else exec "$@"; fi; }

end_process() {
    [ -n "$1" ] || return 0
    kill "$1" 2>/dev/null || true
    wait "$1" || true
}

# start_sound: a PulseAudio server of our own in $PULSE_SERVER, silent and without a real card.
start_sound() {
    export PULSE_SERVER=unix:$sound_folder/socket
    HOME=$sound_folder XDG_RUNTIME_DIR=$sound_folder first pulseaudio -n --daemonize=no --use-pid-file=no \
        --exit-idle-time=-1 --disable-shm=yes \
        -L "module-null-sink sink_name=drill rate=44100 channels=2" \
        -L "module-native-protocol-unix socket=$sound_folder/socket auth-anonymous=1" \
        2>"$sound_folder/log" &
    sound_pid=$!
    local tries=0
    until pactl info >/dev/null 2>&1; do
        ((++tries < 100)) || { cat "$sound_folder/log"; echo "PulseAudio does not start"; exit 1; }
        sleep 0.05
    done
}

# record FILE.wav: until stop_recording. Returns when it runs.
record() {
    rm -f "$1"
    PULSE_LATENCY_MSEC="" first parec --device=drill.monitor --rate=44100 --channels=2 --format=s16le \
        --file-format=wav --latency-msec=20 "$1" &
    record_pid=$!
    # More than a header: a tenth of a second.
    local tries=0
    until [ "$(stat -c %s "$1" 2>/dev/null || echo 0)" -gt 20000 ]; do
        ((++tries < 100)) || { echo "nothing is recorded"; exit 1; }
        sleep 0.05
    done
}

stop_recording() {
    # What is under way is still written.
    sleep 0.3
    end_process "$record_pid"
    record_pid=
}

# stop_sound: the card is gone, also for who plays on it.
stop_sound() {
    end_process "$sound_pid"
    sound_pid=
}

sound_cleanup() {
    stop_recording
    stop_sound
    rm -rf "$sound_folder"
}

if [ "${BASH_SOURCE[0]}" = "$0" ]; then
    set -eu
    trap sound_cleanup EXIT
    recording=$1
    shift
    start_sound
    record "$recording"
    (first "$@")
fi
