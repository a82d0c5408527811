# shellcheck shell=bash disable=SC2154
# Running one example. Uses: root, build, example, headless, seconds, screenshot.

known_examples() {
    local folder names=()
    for folder in "$root"/examples/*/; do
        [[ ! -d $folder ]] || names+=("$(basename "$folder")")
    done
    echo "${names[*]:-none}"
}

# Before anything is set up or built.
check_arguments() {
    [[ " $(known_examples) " == *" $example "* ]] ||
        usage_error "no example called '$example'; there are: $(known_examples)"
    if [[ $seconds ]]; then
        { [[ $seconds =~ ^0*[1-9][0-9]{0,4}$ ]] && ((10#$seconds <= 86400)); } ||
            usage_error "--seconds takes a whole number from 1 to 86400, not '$seconds'"
        seconds=$((10#$seconds))
    fi
    [[ ${DISPLAY:-} ]] || headless=yes
    script=$root/tests/e2e/$example.sh
    if [[ ! $headless || $seconds || $screenshot || ! -e $script ]]; then script=; fi
    if [[ $headless ]]; then
        seconds=${seconds:-5}
        screenshot=${screenshot:-$build/screenshots/$example.png}
    fi
    [[ -z $screenshot ]] || check_screenshot
}

check_screenshot() {
    local folder
    [[ $screenshot == *.png ]] || usage_error "--screenshot takes a name ending in .png, not '$screenshot'"
    [[ $seconds ]] || usage_error "--screenshot needs --seconds, which says when it is taken"
    folder=$(dirname "$screenshot")
    [[ $folder != "$build/screenshots" ]] || mkdir -p "$folder" 2>/dev/null || :
    [[ -d $folder && -w $folder ]] || usage_error "cannot write a picture into '$folder'"
}

run_example() {
    local program=$build/bin/$example.exe status=0
    [[ -e $program ]] || die "building $example made no $program"
    # From here on another command may build: the program is started.
    exec 8>&-
    if [[ $script ]] && play_by_script "$program"; then return; fi
    if [[ $headless ]]; then
        start_screen
        export WINE_LINGER=0
    fi
    [[ -z $seconds ]] || say "Running $example for $seconds s ..."
    (cd "$build/bin" && exec "$root/scripts/wine-run" "$program") >"$build/logs/$example.log" 2>&1 </dev/null &
    program_pid=$!
    if [[ $seconds ]]; then
        run_for_a_while
    else
        wait "$program_pid" || status=$?
        ((status == 0)) || die "$example ended with code $status; see $build/logs/$example.log"
    fi
}

# False: a tool that the script needs is missing, and it has said which.
play_by_script() {
    local pictures=$build/screenshots/$example log=$build/logs/$example.log status=0
    say "Playing $example by a script ..."
    WINE_RUN=$root/scripts/wine-run bash "$script" "$1" "$pictures" "$root/tests/golden" 2>"$log" </dev/null || status=$?
    ((status != 77)) || return 1
    ((status == 0)) || fail "playing $example by a script" "$log"
    say "Pictures: $pictures"
}

run_for_a_while() {
    local status=0 sleeper
    [[ -z $headless ]] || wait_for_picture
    sleep "$seconds" &
    sleeper=$!
    wait -n "$sleeper" "$program_pid" || status=$?
    if ! kill -0 "$program_pid" 2>/dev/null; then
        kill "$sleeper" 2>/dev/null || :
        ((status == 0)) || die "$example ended too soon, with code $status; see $build/logs/$example.log"
        say "$example ended by itself."
        return
    fi
    [[ -z $screenshot ]] || take_screenshot
    close_program
}

# On a screen of its own the time counts from when there is something to see: more than one colour.
wait_for_picture() {
    local tries
    for ((tries = 0; tries < 50; tries++)); do
        kill -0 "$program_pid" 2>/dev/null || return 0
        [[ $(import -silent -window root -format %k info: 2>/dev/null) == 1 ]] || return 0
        sleep 0.2
    done
}

take_screenshot() {
    local log=$build/logs/screenshot.log new=$screenshot.new.png
    if ! { import -silent -window root "$new" && mv "$new" "$screenshot"; } >"$log" 2>&1; then
        rm -f "$new"
        fail "taking a picture of the screen" "$log"
    fi
    say "Picture: $screenshot"
}

# As a user would: the window is told to close. A program that does not listen is ended.
close_program() {
    local tries
    "$root/scripts/wine-run" "$build/bin/close_window.exe" "$(windows_path "$build/bin/$example.exe")" \
        >>"$build/logs/$example.log" 2>&1 </dev/null || :
    for ((tries = 0; tries < 50; tries++)); do
        kill -0 "$program_pid" 2>/dev/null || return 0
        sleep 0.1
    done
    say "$example did not close its window within 5 s and was ended."
    kill -KILL "$program_pid" 2>/dev/null || :
}
