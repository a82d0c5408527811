# Shared by the end-to-end tests: a screen of their own, a Windows program on it, a real mouse.
# Exit code 77 means skipped.

for tool in Xvfb xdotool import convert compare; do
    command -v "$tool" >/dev/null || { echo "skipped: $tool is not installed"; exit 77; }
done

e2e_pids=()
e2e_cleanup() {
    local pid
    for pid in "${e2e_pids[@]}"; do kill "$pid" 2>/dev/null || true; done
}
trap e2e_cleanup EXIT

fail() {
    echo "FAILED: $*"
    exit 1
}

# start_screen WIDTHxHEIGHT: an X server on a free display, in $DISPLAY.
start_screen() {
    local pipe number
    pipe=$(mktemp -u)
    mkfifo "$pipe"
    Xvfb -displayfd 3 -screen 0 "$1x24" +extension GLX -nolisten tcp 3>"$pipe" 2>/dev/null &
    e2e_pids+=($!)
    read -r number <"$pipe"
    rm -f "$pipe"
    export DISPLAY=:$number
}

# start_program FILE.exe ARGUMENT...: runs it in its own folder; its process id is in $program.
start_program() {
    cd "$(dirname "$1")"
    "$WINE_RUN" "$@" &
    program=$!
    e2e_pids+=("$program")
}

# wait_for SECONDS COMMAND...: until the command succeeds; the program must live meanwhile.
wait_for() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        ((SECONDS < deadline)) || fail "waited in vain for: $*"
        sleep 0.05
    done
}

# end_program: Escape, then a clean end with code 0, with nothing left but the pictures of packs, the targets and
# the sprite of an effect, and fonts that controls made.
end_program() {
    xdotool key Escape
    wait "$program" || fail "the program ended with code $?"
    local kit framework
    kit=$(sed -n 's/.*shutdown: still alive in the kit: //p' game.log | tr -d '\r')
    framework=$(sed -n 's/.*shutdown: still alive: //p' game.log | tr -d '\r')
    [[ $kit =~ ^(nothing|1 sprite(, [0-9]+ fonts)?)$ ]] || fail "the kit still holds: $kit"
    [[ ", $framework" =~ ^(, (nothing|[0-9]+ (texture|target|resource block|pack)s?))+$ ]] ||
        fail "the framework still holds: $framework"
}
