# shellcheck shell=bash disable=SC2154
# Running the benchmarks. Uses: root, build.

bench_usage() {
    cat <<END
usage: ./run bench [--scene REGEX] [--csv FILE] [--hold SECONDS] [--quick] [--list]

Builds the benchmarks as the product is built and runs them on a virtual screen, some minutes. Each scene is timed beside
its bare limit; what the columns mean is in docs/benchmarks.md. Let nothing else run meanwhile.

  --scene REGEX  only scenes whose names match
  --csv FILE     where the table is kept (default: build/benchmarks.csv)
  --hold SECONDS runs our side of the scenes only, each for so long, for a profiler to look at
  --quick        tiny sizes and few rounds: shows that all scenes run, measures nothing
  --list         names of the scenes
END
}

# parse_bench_arguments ARGUMENT...
parse_bench_arguments() {
    bench_arguments=()
    bench_csv=
    bench_table=yes
    while (($#)); do
        case $1 in
        -h | --help) bench_usage; exit 0 ;;
        --quick) bench_arguments+=("$1") ;;
        --list) bench_arguments+=("$1"); bench_table= ;;
        --scene | --csv | --hold)
            (($# > 1)) || usage_error "$1 needs a value (./run bench --help)"
            case $1 in
            --csv) bench_csv=$(realpath -m -- "$2") ;;
            --scene) bench_arguments+=("$1" "$2") ;;
            --hold)
                [[ $2 =~ ^[1-9][0-9]*$ ]] || usage_error "--hold wants whole seconds, not '$2'"
                bench_arguments+=("$1" "$2")
                bench_table= ;;
            esac
            shift ;;
        *) usage_error "unknown argument $1 (./run bench --help)" ;;
        esac
        shift
    done
    [[ ! $bench_csv || -d ${bench_csv%/*} ]] || usage_error "cannot write '$bench_csv': no such folder"
}

run_benchmarks() {
    local log=$build/logs/benchmarks.log status=0
    # From here on another command may build.
    exec 8>&-
    bench_csv=${bench_csv:-$build/benchmarks.csv}
    start_screen
    export WINE_LINGER=0
    say "[6/6] Benchmarks: each scene has its line when it is done"
    (cd "$build/bin" && exec "$root/scripts/wine-run" "$build/bin/benchmarks.exe" --csv "$(windows_path "$bench_csv")" \
        "${bench_arguments[@]}") 2>"$log" </dev/null &
    wait $! || status=$?
    ((status == 0)) || die "the benchmarks ended with code $status; see $log and $build/bin/game.log"
    [[ ! $bench_table ]] || say "Table: $bench_csv"
}

# bench ARGUMENT...: ends the command.
bench() {
    parse_bench_arguments "$@"
    set_up
    build_targets benchmarks
    run_benchmarks
    exit 0
}
