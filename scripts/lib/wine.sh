# shellcheck shell=bash disable=SC2154
# Where Wine is and how a program is started under it. Uses: cache.
# A Wine named by WINE comes first, then a system Wine that runs 32-bit programs, then one of our own in the cache.

wine_recipe=1
prefix_recipe=4

wine_root=$cache/wine/root
wine_choice=$cache/wine/choice

# The Wine to start ("own" or a program), or nothing before it has been set up.
chosen_wine() {
    local recipe wine
    if [[ ${WINE:-} ]]; then
        echo "$WINE"
    elif read -r recipe wine 2>/dev/null <"$wine_choice" && [[ $recipe == "$wine_recipe" ]] &&
        [[ $wine == own || -x $wine ]]; then
        echo "$wine"
    fi
}

# A prefix belongs to one Wine, as another version would convert it, and to one command at a time, as its desktop is
# on one display: prefixes_of WINE lists those to choose from.
prefixes_of() {
    local id=own
    [[ $1 == own ]] || id=$(cksum <<<"$1" | cut -d' ' -f1)
    if [[ ${DRILL2D_PREFIX:-} ]]; then
        echo "$DRILL2D_PREFIX"
    else
        printf '%s\n' "$cache/prefix-$id" "$cache/prefix-$id-"{2..8}
    fi
}

# claim_prefix WINE: takes the first prefix that is free, on descriptor 7, and leaves its name to what we start.
claim_prefix() {
    local candidate
    while read -r candidate; do
        mkdir -p "$(dirname "$candidate")" 2>/dev/null || die "cannot create $(dirname "$candidate")"
        { exec 7>>"$candidate.lock"; } 2>/dev/null || die "cannot write $candidate.lock"
        if flock -n 7; then
            export DRILL2D_PREFIX=$candidate
            return
        fi
    done < <(prefixes_of "$1")
    wait_for_lock 7 "its Wine prefix, $candidate"
    export DRILL2D_PREFIX=$candidate
}

# free_prefix WINE: the first ready one that no command has claimed, for a program started by hand.
free_prefix() {
    local candidate
    while read -r candidate; do
        prefix_is_ready "$candidate" || continue
        if [[ ${DRILL2D_PREFIX:-} ]] || flock -n "$candidate.lock" true 2>/dev/null; then
            echo "$candidate"
            return
        fi
    done < <(prefixes_of "$1")
}

prefix_is_ready() { [[ $(cat "$1/.drill2d" 2>/dev/null) == "$prefix_recipe" ]]; }

# use_wine WINE PREFIX: sets the environment in which run_wine starts programs.
use_wine() {
    export WINEPREFIX=$2 WINEARCH=win32 WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree,mshtml="
    wine=$1 wine_server=${WINESERVER:-$(dirname "$1")/wineserver}
    [[ -x $wine_server ]] || wine_server=wineserver
    wine_environment=("LC_ALL=zh_CN.UTF-8")
    if [[ $1 == own ]]; then
        local libraries=$wine_root/usr/lib/i386-linux-gnu
        wine=$wine_root/usr/lib/wine/wine wine_server=$wine_root/usr/lib/wine/wineserver
        wine_environment+=(
            "LD_LIBRARY_PATH=$libraries:$libraries/pulseaudio:$wine_root/lib/i386-linux-gnu"
            "LIBGL_DRIVERS_PATH=$libraries/dri"
            "WINESERVER=$wine_server")
    fi
    offer_locale
}

# Wine takes the code page from the locale's name, which needs no such locale, but names files in Chinese only where
# the C library has one. The data of any UTF-8 locale serve.
offer_locale() {
    local data=/usr/lib/locale/C.utf8
    [[ -d $data ]] || return 0
    mkdir -p "$cache/locale" 2>/dev/null && ln -sfn "$data" "$cache/locale/zh_CN.utf8" 2>/dev/null || return 0
    wine_environment+=("LOCPATH=$cache/locale")
}

# Wine's server outlives the program: it must not inherit the locks.
run_wine() { env "${wine_environment[@]}" "$wine" "$@" 7>&- 8>&- 9>&-; }

# Wine's desktop belongs to the display of the program that started it. Before a program comes to another
# display it waits for the old desktop to go, which it does a few seconds after its last program.
settle_on_display() {
    local note=$WINEPREFIX/.display number=${DISPLAY#*:} display
    # Numbers are used again: the time of its socket tells two displays apart.
    display="$DISPLAY $(stat -c %y "/tmp/.X11-unix/X${number%.*}" 2>/dev/null)" || :
    [[ $(cat "$note" 2>/dev/null) != "$display" ]] || return 0
    env "${wine_environment[@]}" timeout 10 "$wine_server" -w 7>&- 8>&- 9>&- >/dev/null 2>&1 || :
    { echo "$display" >"$note"; } 2>/dev/null || :
    # A single program need not keep the next one waiting: its desktop may go with it.
    [[ -z ${WINE_LINGER:-} ]] ||
        env "${wine_environment[@]}" "$wine_server" "-p$WINE_LINGER" 7>&- 8>&- 9>&- >/dev/null 2>&1 || :
}

# Ends what runs in the prefix in use.
stop_wine() {
    env "${wine_environment[@]}" "$wine_server" -k 7>&- 8>&- 9>&- >/dev/null 2>&1 || :
}

windows_path() {
    local path=Z:$1
    echo "${path//\//\\}"
}
