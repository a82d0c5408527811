# shellcheck shell=bash disable=SC2154
# What the commands say while they work, how they fail and how they end. Uses: command_name.

[[ -t 1 ]] && moving=yes || moving=

say() { printf '%s\n' "$*"; }

die() {
    clear_line
    printf '%s: %s\n' "$command_name" "$*" >&2
    leave 1
}

usage_error() {
    printf '%s: %s\n' "$command_name" "$*" >&2
    leave 2
}

# leave STATUS: an end whose reason has been said.
leave() {
    explained=yes
    exit "$1"
}

clear_line() { [[ -z $moving ]] || printf '\r\e[K'; }

# step NUMBER TEXT: a step that takes longer than two seconds says so when it starts.
step() {
    step_title="[$1/6] $2"
    say "$step_title ..."
}

free_megabytes() { df -Pm "$1" 2>/dev/null | awk 'NR == 2 { print $4 }'; }

# The one sentence that a failed tool's log boils down to.
reason_in() {
    local log=$1 line
    # A package is unknown when its list could not be had.
    if [[ -e $log.update ]] && grep -q '^E: Unable to locate' "$log"; then log=$log.update; fi
    if grep -qiE 'no space left|enough free space|disk quota exceeded' "$log" 2>/dev/null ||
        [[ $(free_megabytes "$(dirname "$log")") -lt 8 ]]; then
        echo "the disk is full"
    elif line=$(grep -m1 -oiE "could not resolve '[^']*'|temporary failure resolving '[^']*'|failed to fetch [^ ]*|(could not|unable to) connect to [^ ]*|network is unreachable" "$log"); then
        echo "no network? (${line,})"
    elif line=$(grep -m1 -E '^E: |(^|[: ])(fatal )?error: |^CMake Error' "$log"); then
        echo "${line#E: }"
    else
        echo "it failed"
    fi
}

# fail WHAT LOG: the end of a step whose tool failed.
fail() { die "$1: $(reason_in "$2"); see $2"; }

# watch LOG COUNTER COMMAND...: runs a tool with its output in a log. "COUNTER LOG" tells how far it is. On a
# terminal that moves, elsewhere it is a line now and then. "$late_title LOG" announces a step that may be short.
# Returns the tool's status.
watch() {
    local log=$1 counter=$2 ticker status=0
    shift 2
    : 2>/dev/null >"$log" || die "cannot write $log"
    "$@" >>"$log" 2>&1 </dev/null &
    local tool=$!
    # Its last pause may outlive it by seconds: without our locks.
    tick "$log" "$counter" 7>&- 8>&- 9>&- &
    ticker=$!
    wait "$tool" || status=$?
    kill "$ticker" 2>/dev/null || :
    wait "$ticker" 2>/dev/null || :
    clear_line
    return "$status"
}

tick() {
    local pause=10 text last=
    [[ -z $moving ]] || pause=0.3
    if [[ ${late_title:-} ]]; then
        sleep 1.5
        "$late_title" "$1"
    fi
    while sleep "$pause"; do
        text=$("$2" "$1" 2>/dev/null) || continue
        [[ -n $text && $text != "$last" ]] || continue
        last=$text
        if [[ $moving ]]; then
            printf '\r\e[K      %.70s' "$text"
        else
            printf '      %s\n' "$text"
        fi
    done
}

no_counter() { :; }

descendants() {
    local children child
    children=$(cat "/proc/$1"/task/*/children 2>/dev/null) || return 0
    for child in $children; do
        echo "$child"
        descendants "$child"
    done
}

stop_children() {
    local pids pid tries
    mapfile -t pids < <(descendants $$)
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || :; done
    for ((tries = 0; tries < 30; tries++)); do
        kill -0 "${pids[@]}" 2>/dev/null || return 0
        sleep 0.1
    done
    for pid in "${pids[@]}"; do kill -KILL "$pid" 2>/dev/null || :; done
}

# Background tools ignore the terminal's interrupt: whoever stops a command stops what it started.
finish() {
    local status=$? last=$BASH_COMMAND
    trap '' INT TERM HUP
    stop_children
    if ((status == 129 || status == 130 || status == 143)); then
        clear_line
        echo "$command_name: stopped; the next start goes on from here" >&2
    elif ((status)) && [[ -z ${explained:-} ]]; then
        echo "$command_name: failed unexpectedly at: $last" >&2
    fi
    exit "$status"
}

trap finish EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM
