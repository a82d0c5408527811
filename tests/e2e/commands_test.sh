#!/usr/bin/env bash
# ./run, ./test and what they read from the machine: wrong arguments end with one line, before anything is done.
set -euo pipefail
root=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

# What a command would set up or build would land here.
export DRILL2D_CACHE=$work/cache
unset DISPLAY

# refuses STATUS PATTERN COMMAND...
refuses() {
    local status=0 wanted=$1 pattern=$2
    shift 2
    "$@" >"$work/out" 2>"$work/err" </dev/null || status=$?
    if [[ $status != "$wanted" || $(wc -l <"$work/err") != 1 || -s $work/out ]] || ! grep -qE -- "$pattern" "$work/err"; then
        echo "FAILED: $* gave $status and: $(cat "$work/out" "$work/err")"
        failures=$((failures + 1))
    fi
}

# equal WHAT ACTUAL EXPECTED
equal() {
    [[ $2 == "$3" ]] && return
    echo "FAILED: $1: '$2' instead of '$3'"
    failures=$((failures + 1))
}

refuses 2 "unknown option --fast" "$root/run" --fast
refuses 2 "no example called 'nosuch'; there are: .*hello" "$root/run" nosuch
refuses 2 "no example called '../hge'" "$root/run" ../hge
refuses 2 "no example called ' '" "$root/run" ' '
refuses 2 "one example at a time" "$root/run" hello hello
refuses 2 "--seconds needs a value" "$root/run" hello --seconds
for seconds in 0 -1 1.5 abc 86401 99999999999999999999; do
    refuses 2 "--seconds takes a whole number.*'$seconds'" "$root/run" --seconds "$seconds"
done
refuses 2 "--seconds takes a whole number" "$root/run" --seconds ''
refuses 2 "cannot write a picture into '$work/none'" "$root/run" --screenshot "$work/none/a.png"
refuses 2 "ending in .png" "$root/run" --screenshot "$work/a.txt"
for minutes in 0 -1 1441 abc ''; do
    refuses 2 "--minutes takes a number" "$root/run" soak --minutes "$minutes"
done
refuses 2 "--seed takes a whole number" "$root/run" soak --seed 4294967296
refuses 2 "unknown argument hello" "$root/run" soak hello
refuses 2 "unknown argument --fast" "$root/run" bench --fast
refuses 2 "--scene needs a value" "$root/run" bench --scene
refuses 2 "no such folder" "$root/run" bench --csv "$work/none/a.csv"
refuses 2 "unknown argument hello" "$root/test" hello
refuses 2 "-R needs" "$root/test" -R
refuses 2 "no target called 'nosuch'" "$root/scripts/fuzz" nosuch
refuses 2 "--minutes takes a whole number" "$root/scripts/fuzz" all --minutes 0
refuses 2 "which program" "$root/scripts/wine-run"
WINE='' refuses 2 "not set up: run ./test once" "$root/scripts/wine-run" x.exe
equal "folders made by wrong arguments" "$(cd "$work" && echo *)" "err out"
"$root/run" --help | grep -q 'Examples: .*hello' || equal "help" "without the examples" "with them"

WINE=$work/none refuses 1 "WINE=.* is no program" "$root/test"
touch "$work/file"
DRILL2D_CACHE=$work/file/cache refuses 1 "cannot create the cache folder" "$root/test"

# The package sources of a machine, in both formats.
command_name='commands_test'
source "$root/scripts/lib/cache.sh"
source "$root/scripts/lib/progress.sh"
source "$root/scripts/lib/wine.sh"
source "$root/scripts/lib/setup.sh"
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/deb822/sources.list.d" "$work/lines/sources.list.d" "$work/none"
cat >"$work/deb822/sources.list.d/debian.sources" <<END
Types: deb-src
URIs: mirror:/sources
Suites: bookworm
Components: main

Types: deb
Enabled: no
URIs: mirror:/off
Suites: bookworm
Components: main

# A comment
Types: deb deb-src
URIs: mirror:/right mirror:/second
Suites: bookworm bookworm-updates
Components: contrib main
Signed-By: /some/key
END
cat >"$work/lines/sources.list" <<END
# deb mirror:/comment bookworm main
deb cdrom:[disc]/ bookworm main
deb mirror:/updates bookworm-updates main
deb [arch=amd64 signed-by=/some/key] mirror:/right bookworm contrib main
END
equal "deb822 source" "$(debian_source "$work/deb822" bookworm)" "mirror:/right"
equal "deb822 source of another suite" "$(debian_source "$work/deb822" trixie)" ""
equal "line source" "$(debian_source "$work/lines" bookworm)" "mirror:/right"
equal "no source" "$(debian_source "$work/none" bookworm)" ""

((failures == 0))
