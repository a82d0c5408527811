# shellcheck shell=bash disable=SC2154
# ./run soak: everything at once, at random, for a long time. Uses: root, build.

soak_usage() {
    cat <<END
usage: ./run soak [--minutes N] [--seed S]

Uses everything at once, at random, on a virtual screen and a sound card that nobody hears. Each ten seconds a line says
how the frames went and what is alive; in brackets what was left when all was given back last. At the end: what has
grown, frames over 100 ms that loaded nothing, and unexpected lines of the log. Any of them makes the exit code 1.

  --minutes N  how long, 0.1 to 1440 (default 30)
  --seed S     repeats the actions of a run that began with this number (0 to 4294967295); drawn anew without it
END
}

# soak ARGUMENT...
soak() {
    local minutes=30 seed='' status=0
    while (($#)); do
        case $1 in
        -h | --help) soak_usage; exit 0 ;;
        --minutes | --seed)
            (($# > 1)) || usage_error "$1 needs a value (./run soak --help)"
            local "${1#--}=${2:-(nothing)}"
            shift ;;
        *) usage_error "unknown argument $1 (./run soak --help)" ;;
        esac
        shift
    done
    check_soak_arguments
    set_up
    build_targets soak
    # From here on another command may build: nothing that runs is written again while it does.
    exec 8>&-
    say "Soak for $minutes min ..."
    WINE_RUN=$root/scripts/wine-run bash "$root/tests/e2e/soak.sh" "$build/bin/soak.exe" --minutes "$minutes" \
        ${seed:+--seed "$seed"} 2>"$build/logs/soak.log" </dev/null &
    wait $! || status=$?
    ((status != 77)) || die "a tool is missing; see $build/logs/soak.log"
    leave "$status"
}

check_soak_arguments() {
    { [[ $minutes =~ ^[0-9]{1,4}(\.[0-9]{1,3})?$ ]] && awk -v n="$minutes" 'BEGIN { exit !(n >= 0.1 && n <= 1440) }'; } ||
        usage_error "--minutes takes a number from 0.1 to 1440, not '$minutes'"
    [[ -z $seed ]] || { [[ $seed =~ ^[0-9]{1,10}$ ]] && ((10#$seed <= 4294967295)); } ||
        usage_error "--seed takes a whole number from 0 to 4294967295, not '$seed'"
}
