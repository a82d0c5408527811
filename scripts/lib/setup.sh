# shellcheck shell=bash disable=SC2154
# What a fresh machine needs: the tools, a 32-bit Wine and a Wine prefix. Every step can be interrupted: what
# proves it complete is written last, and a half-done one is done again. Uses: cache, progress.sh, wine.sh.

# Debian package and what shows that it is there (a command or a file).
tools=(
    "g++-mingw-w64-i686-posix i686-w64-mingw32-g++-posix"
    "cmake cmake"
    "ninja-build ninja"
    "ccache ccache"
    "libz-mingw-w64-dev /usr/i686-w64-mingw32/include/zlib.h"
    "googletest /usr/src/googletest/CMakeLists.txt"
    "libstb-dev /usr/include/stb/stb_vorbis.h"
    "fonts-wqy-zenhei /usr/share/fonts/truetype/wqy/wqy-zenhei.ttc"
    "patchelf patchelf"
    "xvfb Xvfb"
    "xdotool xdotool"
    "imagemagick import"
    "zip zip"
    "unzip unzip"
    "pulseaudio pulseaudio"
    "pulseaudio-utils parec"
    "sox sox"
    "clang-14 clang++-14"
    "libclang-rt-14-dev /usr/lib/llvm-14/lib/clang/14.0.6/lib/linux/libclang_rt.fuzzer-i386.a"
    "lib32stdc++-12-dev /usr/lib/gcc/x86_64-linux-gnu/12/32/libstdc++.so"
    "zlib1g-dev /usr/include/zlib.h"
    "lib32z1-dev /usr/lib32/libz.so"
)
wine_packages=(wine32 libgl1 libgl1-mesa-dri libgnutls30 libpulse0)
# Packages, the tree they unpack to, and the prefix.
wine_megabytes=1800

set_up() {
    [[ -z ${WINE:-} ]] || command -v "$WINE" >/dev/null || die "WINE=$WINE is no program"
    tools_and_wine_are_there || one_at_a_time install_tools choose_wine
    claim_prefix "$(chosen_wine)"
    prefix_is_ready "$DRILL2D_PREFIX" || one_at_a_time make_prefix
}

tools_and_wine_are_there() {
    [[ $(chosen_wine) && -z $(missing_tools) && ! -e $cache/tools.unfinished ]]
}

# one_at_a_time STEP...: the steps that change what all checkouts share.
one_at_a_time() {
    mkdir -p "$cache/logs" "$cache/wine" 2>/dev/null || die "cannot create the cache folder $cache"
    exec 9>>"$cache/lock"
    wait_for_lock 9 "set-up"
    local each
    for each in "$@"; do "$each"; done
    exec 9>&-
}

# wait_for_lock FD WHAT: two commands at once take turns.
wait_for_lock() {
    flock -n "$1" && return
    say "Waiting for another ./run or ./test ($2) ..."
    flock "$1" &
    wait $!
}

# stamp FILE TEXT: the proof that a step is complete.
stamp() {
    { echo "$2" >"$1.new" && mv "$1.new" "$1"; } 2>/dev/null || die "cannot write $1: $(reason_in "$1.new")"
}

need_space() {
    local free
    free=$(free_megabytes "$1")
    ((free >= $2)) || die "the disk is full: $1 has $free MB free, $2 MB are needed for $3"
}

missing_tools() {
    local entry package proof
    for entry in "${tools[@]}"; do
        read -r package proof <<<"$entry"
        if [[ $proof == /* ]]; then
            [[ -e $proof ]]
        else
            command -v "$proof" >/dev/null
        fi || echo "$package"
    done
}

# ---- tools

as_root() {
    if ((EUID == 0)); then "$@"; else sudo "$@"; fi
}

# How far it is comes on a descriptor of its own, into the same log: apt takes that one away from its children.
apt() {
    # shellcheck disable=SC2016
    as_root env LC_ALL=C DEBIAN_FRONTEND=noninteractive sh -c 'exec apt-get -o APT::Status-Fd=3 "$@" 3>&1' apt \
        -o DPkg::Lock::Timeout=600 -o Dpkg::Use-Pty=0 "$@"
}

install_tools() {
    local log=$cache/logs/tools.log packages
    mapfile -t packages < <(missing_tools)
    if [[ -e $cache/tools.unfinished ]]; then
        mapfile -t packages <"$cache/tools.unfinished"
    fi
    ((${#packages[@]})) || return 0
    get_root_rights "${packages[*]}"
    step 1 "Tools: reading the package lists, a few seconds"
    # A foreign source that does not answer must not stop us: what counts is whether the packages can be had.
    watch "$log.update" no_counter apt update || :
    finish_interrupted_install
    announce_packages 1 Tools "$log" apt install --no-install-recommends --assume-no "${packages[@]}"
    printf '%s\n' "${packages[@]}" >"$cache/tools.unfinished"
    watch "$log" apt_counter apt install -y --no-install-recommends \
        -o Dpkg::Options::=--force-confold "${packages[@]}" || fail "installing tools" "$log"
    [[ -z $(missing_tools) ]] || die "installed, but not found: $(missing_tools | paste -sd' '); see $log"
    rm -f "$cache/tools.unfinished"
}

get_root_rights() {
    command -v apt-get >/dev/null || die "these tools are missing and there is no apt-get to install them: $1"
    ((EUID == 0)) && return
    command -v sudo >/dev/null || die "root rights or sudo are needed to install: $1"
    sudo -n true 2>/dev/null || { [[ -t 0 ]] && sudo -v; } ||
        die "root rights are needed to install: $1"
}

finish_interrupted_install() {
    local log=$cache/logs/dpkg.log broken
    [[ -e $cache/tools.unfinished || -n $(ls /var/lib/dpkg/updates 2>/dev/null) ]] || return 0
    step 1 "Tools: finishing an interrupted installation, under a minute"
    # A package that was cut off while it was unpacked can only be unpacked again.
    mapfile -t broken < <(dpkg-query -W -f '${db:Status-Eflag} ${binary:Package}\n' | sed -n 's/^reinstreq //p')
    ((${#broken[@]} == 0)) || watch "$log" no_counter apt install -y --reinstall --no-install-recommends "${broken[@]}" || :
    watch "$log" no_counter as_root env DEBIAN_FRONTEND=noninteractive dpkg --force-confold --configure -a || :
    watch "$log" no_counter apt install -y --no-install-recommends --fix-broken || :
}

# announce_packages STEP WHAT LOG COMMAND...: COMMAND only asks what there is to do.
announce_packages() {
    local number=$1 what=$2 log=$3 count size
    shift 3
    "$@" >"$log" 2>&1 </dev/null || :
    count=$(sed -n 's/.* \([0-9]*\) newly installed.*/\1/p' "$log")
    size=$(sed -n 's/^Need to get \(.*\) of archives.*/\1/p' "$log")
    [[ -z $size ]] || step "$number" "$what: $count packages, ${size/\// of } to download, about 2 min"
}

apt_counter() {
    tail -n 30 "$1" | sed -nE 's/^(dl|pm)status:.*:([0-9]+)(\.[0-9]+)?:(.*)/\2 % \4/p' | tail -n 1
}

# ---- Wine

choose_wine() {
    local program
    [[ -z $(chosen_wine) ]] || return 0
    if program=$(command -v wine) && runs_32_bit "$program"; then
        stamp "$wine_choice" "$wine_recipe $program"
        return
    fi
    if [[ $(cat "$wine_root/.drill2d" 2>/dev/null) != "$wine_recipe" ]]; then
        need_space "$cache" "$wine_megabytes" "32-bit Wine"
        fetch_wine
        unpack_wine
    fi
    stamp "$wine_choice" "$wine_recipe own"
}

runs_32_bit() {
    local trial=$cache/wine/trial status=0
    step 2 "Wine: trying $1 with a 32-bit program, about 10 s"
    rm -rf "$trial"
    use_wine "$1" "$trial"
    watch "$cache/logs/wine-trial.log" no_counter run_wine cmd /c exit 7 || status=$?
    stop_wine
    rm -rf "$trial"
    ((status == 7))
}

# The mirror and suite of the machine's own package sources: "URI SUITE" of the first that has Debian's main.
debian_source() {
    local folder=$1 suite=$2
    {
        { cat "$folder"/sources.list.d/*.sources 2>/dev/null || :; } | awk -v suite="$suite" '
            function stanza() {
                if (types ~ /(^| )deb( |$)/ && on && (" " suites " ") ~ (" " suite " ") && (" " parts " ") ~ / main /)
                    print uris
                types = suites = uris = parts = ""; on = 1
            }
            BEGIN { on = 1 }
            /^[ \t]*$/ { stanza(); next }
            { key = tolower($1); value = $0; sub(/^[^:]*:[ \t]*/, "", value) }
            key == "types:" { types = value }
            key == "uris:" { split(value, list, " "); uris = list[1] }
            key == "suites:" { suites = value }
            key == "components:" { parts = value }
            key == "enabled:" { on = value !~ /^(no|false|0|off)/ }
            END { stanza() }'
        { cat "$folder"/sources.list "$folder"/sources.list.d/*.list 2>/dev/null || :; } | awk -v suite="$suite" '
            $1 == "deb" {
                sub(/^deb[ \t]+(\[[^]]*\][ \t]*)?/, "")
                if ($1 !~ /^cdrom:/ && $2 == suite && (" " $0 " ") ~ / main /) print $1
            }'
    } | sed -n 1p
}

wine_apt() {
    local apt=$cache/wine/apt
    LC_ALL=C apt-get -o Dir::State="$apt/state" -o Dir::State::status=/dev/null -o Dir::Cache="$apt/cache" \
        -o Dir::Etc::sourcelist="$apt/sources.list" -o Dir::Etc::sourceparts=/dev/null \
        -o APT::Architecture=i386 -o APT::Architectures=i386 -o APT::Install-Recommends=false \
        -o APT::Sandbox::User="$(id -un)" -o Acquire::Retries=3 -o Acquire::Languages=none \
        -o APT::Status-Fd=3 "$@" 3>&1
}

fetch_wine() {
    local apt=$cache/wine/apt log=$cache/logs/wine.log suite mirror key=
    suite=$(. /etc/os-release 2>/dev/null && echo "${VERSION_CODENAME:-}") || :
    mirror=$(debian_source /etc/apt "$suite")
    [[ $mirror ]] || die "no Debian mirror for '$suite' in /etc/apt to take a 32-bit Wine from; set WINE to one"
    [[ ! -e /usr/share/keyrings/debian-archive-keyring.gpg ]] ||
        key=" signed-by=/usr/share/keyrings/debian-archive-keyring.gpg"
    mkdir -p "$apt/state/lists/partial" "$apt/cache/archives/partial"
    echo "deb [arch=i386$key] $mirror $suite main" >"$apt/sources.list"
    step 2 "32-bit Wine: reading the package list, a few seconds"
    watch "$log.update" apt_counter wine_apt update || :
    announce_packages 2 "32-bit Wine" "$log" wine_apt install --assume-no "${wine_packages[@]}"
    watch "$log" apt_counter wine_apt install -y --download-only "${wine_packages[@]}" ||
        fail "downloading 32-bit Wine" "$log"
}

# The package files of the plan: older ones may lie beside them.
wine_files() {
    wine_apt install -s "${wine_packages[@]}" 2>/dev/null |
        sed -n 's/^Inst \([^ ]*\) (\([^ ]*\) .*\[\([^]]*\)\]).*/\1_\2_\3.deb/p' | sed 's/:/%3a/g'
}

unpack_wine() {
    local log=$cache/logs/wine-unpack.log
    wine_files >"$cache/wine/files"
    wine_file_count=$(wc -l <"$cache/wine/files")
    step 3 "32-bit Wine: unpacking $wine_file_count packages to 900 MB, about 1 min"
    rm -rf "$wine_root"
    watch "$log" unpack_counter unpack_files || fail "unpacking 32-bit Wine" "$log"
    stamp "$wine_root/.drill2d" "$wine_recipe"
}

unpack_counter() { echo "$(grep -c '\.deb$' "$1") of $wine_file_count packages"; }

unpack_files() {
    local file
    mkdir -p "$wine_root" || return 1
    while read -r file; do
        echo "$file"
        dpkg -x "$cache/wine/apt/cache/archives/$file" "$wine_root" || return 1
    done <"$cache/wine/files"
    make_it_run_here
}

# What the packages' own installation would have done, and programs that find their libraries in this folder.
make_it_run_here() {
    local bin=$wine_root/usr/lib/wine loader=$wine_root/lib/i386-linux-gnu/ld-linux.so.2
    cp "$wine_root/usr/i686-w64-mingw32/lib/zlib1.dll" "$wine_root/usr/lib/i386-linux-gnu/wine/i386-windows/" &&
        patchelf --set-interpreter "$loader" "$bin/wine" &&
        patchelf --set-interpreter "$loader" "$bin/wineserver32" &&
        ln -sf wineserver32 "$bin/wineserver"
}

# ---- prefix

make_prefix() {
    local choice prefix making log=$cache/logs/prefix.log
    choice=$(chosen_wine)
    prefix=$DRILL2D_PREFIX
    step 4 "Wine prefix: $prefix, about 15 s"
    making=$prefix
    # A folder that somebody else made keeps what it has.
    if [[ ! -e $prefix || -e $prefix/.drill2d ]]; then making=$prefix.new; fi
    use_wine "$choice" "$making"
    if [[ $making != "$prefix" && -e $making ]]; then
        stop_wine
        rm -rf "$making"
    fi
    mkdir -p "$(dirname "$making")" 2>/dev/null || die "cannot create $(dirname "$making")"
    watch "$log" no_counter fill_prefix || fail "making the Wine prefix" "$log"
    stop_wine
    if [[ $making != "$prefix" ]]; then
        rm -rf "$prefix"
        mv "$making" "$prefix"
    fi
    stamp "$prefix/.drill2d" "$prefix_recipe"
}

fill_prefix() {
    local settings=$cache/wine/settings.reg
    { printf '\xff\xfe' && iconv -f utf-8 -t utf-16le "$root/scripts/prefix.reg"; } >"$settings" || return 1
    add_zlib || return 1
    run_wine wineboot -i && run_wine reg import "$(windows_path "$settings")"
}

# The user32 of Debian's Wine needs a library that is none of Wine's own: it is looked for in the prefix.
add_zlib() {
    local folder
    for folder in "$(dirname "$wine")/../i386-linux-gnu" /usr/lib/i386-linux-gnu; do
        [[ -e $folder/wine/i386-windows/zlib1.dll ]] || continue
        mkdir -p "$WINEPREFIX/drive_c/windows/system32" &&
            cp "$folder/wine/i386-windows/zlib1.dll" "$WINEPREFIX/drive_c/windows/system32/"
        return
    done
}
