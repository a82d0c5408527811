# shellcheck shell=bash disable=SC2154
# A virtual screen for programs where nobody watches.

# Sets DISPLAY to a new 800 x 600 screen that ends with this process.
start_screen() {
    local number='' answer
    exec {answer}< <(exec setpriv --pdeathsig TERM Xvfb -displayfd 3 -screen 0 800x600x24 +extension GLX \
        -nolisten tcp 3>&1 >/dev/null 2>&1 7>&- 8>&- 9>&-)
    screen_pid=$!
    read -r -t 30 -u "$answer" number || die "the virtual screen (Xvfb) does not start"
    exec {answer}<&-
    export DISPLAY=:$number
}

stop_screen() {
    kill "$screen_pid" 2>/dev/null || :
    wait "$screen_pid" 2>/dev/null || :
}
