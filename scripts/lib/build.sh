# shellcheck shell=bash disable=SC2154
# Configuring and building the checkout into build/. Uses: root, cache, progress.sh.

build=$root/build
# Archives hold names that the C locale of a bare machine cannot express.
export LC_ALL=C.UTF-8

# build_targets TARGET...
build_targets() {
    mkdir -p "$build/logs" 2>/dev/null || die "cannot create $build/logs"
    exec 8>>"$build/.lock"
    wait_for_lock 8 "this checkout"
    export CCACHE_DIR=$cache/ccache CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1
    configure
    compile "$@"
}

configure() {
    local log=$build/logs/configure.log
    [[ ! -e $build/build.ninja ]] || return 0
    step 5 "Build: configuring, about 10 s"
    rm -rf "$build/CMakeCache.txt" "$build/CMakeFiles"
    # The build file is CMake's last: an interrupted configuration leaves none.
    watch "$log" no_counter cmake --preset linux-mingw -S "$root" || fail "configuring" "$log"
}

compile() {
    local log=$build/logs/build.log late_title=build_title
    NINJA_STATUS='[%f/%t] ' watch "$log" build_counter nice ninja -C "$build" "$@" || build_failed "$log"
}

# How much there is to do shows when Ninja has begun.
build_title() {
    local count=0 tries
    # Its first two steps only look whether CMake has to run again.
    for ((tries = 0; tries < 40 && count <= 2; tries++)); do
        count=$(tail -n 1 "$1" | sed -nE 's/^\[[0-9]+\/([0-9]+)\].*/\1/p')
        ((${count:=0} > 2)) || sleep 0.5
    done
    step 5 "Build: $count steps, about $((count / 60 + 1)) min"
}

build_counter() { tail -n 1 "$1" | sed -nE 's/^\[([0-9]+)\/([0-9]+)\].*/Build: \1 of \2 steps/p'; }

# A compiler's first errors are what the reader needs, and they fit on a screen.
build_failed() {
    clear_line
    grep -E '(fatal )?error: |undefined reference|CMake Error' "$1" | head -n 12 >&2 || :
    fail "building" "$1"
}
