# shellcheck shell=bash disable=SC2154
# The fuzz targets and what each run keeps to. Uses: root.

fuzz_folder=$root/tests/fuzz
# The longest input in bytes, where more would only cost time.
declare -A longest_input=(
    [pack]=640 [codec]=128 [tga]=128 [dds]=256 [bmp]=256 [wave]=200 [mp3]=600 [ogg]=512 [vorbis]=400
    [ini]=32 [effect]=160 [names]=48 [text]=48
)

fuzz_targets() {
    local file
    for file in "$fuzz_folder"/*_fuzzer.cpp; do basename "$file" _fuzzer.cpp; done
}

# fuzz_limits TARGET: an input that takes seconds or one allocation beyond 64 MB counts as a crash.
fuzz_limits() {
    echo "-timeout=10 -rss_limit_mb=2048 -malloc_limit_mb=64 -print_final_stats=1 -max_len=${longest_input[$1]:-256}"
    [[ ! -e $fuzz_folder/dictionaries/$1.dict ]] || echo "-dict=$fuzz_folder/dictionaries/$1.dict"
}
