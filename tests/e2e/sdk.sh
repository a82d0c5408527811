#!/usr/bin/env bash
# What a new user does: unpacks the archive, copies the template, builds and plays it. $1: the archive.
set -euo pipefail
. "$(dirname "$0")/lib.sh"
work=$(mktemp -d)
trap 'e2e_cleanup; rm -rf "$work"' EXIT

echo "the archive holds stripped DLLs and no path of the machine that made it"
# Its file names are in UTF-8, which tar takes only where the locale says so.
(cd "$work" && LC_ALL=C.UTF-8 cmake -E tar xf "$1")
sdk=$(echo "$work"/drill2d-*)
for dll in hge drill2d; do
    ! i686-w64-mingw32-objdump -h "$sdk/bin/$dll.dll" | grep -q '\.debug' || fail "$dll.dll has debug information"
done
! grep -rl "$(cd "$(dirname "$0")/../.." && pwd)" "$sdk" || fail "the build's folder is named in it"

echo "the template builds"
cp -r "$sdk/examples/template" "$work/game"
cd "$work/game"
cmake -G Ninja -B build --toolchain "$sdk/cmake/mingw-w64-i686.cmake" >"$work/log" || { cat "$work/log"; fail "configuring"; }
cmake --build build >"$work/log" || { cat "$work/log"; fail "building"; }

if command -v c++ >/dev/null; then
    echo "without the toolchain file the package says what is wrong"
    ! cmake -G Ninja -B native -DCMAKE_PREFIX_PATH="$sdk" >"$work/log" 2>&1 || fail "a native build was configured"
    tr -s ' \n' ' ' <"$work/log" | grep -q 'give --toolchain cmake/mingw-w64-i686.cmake' || { cat "$work/log"; fail "no word of it"; }
else
    echo "no compiler of this machine that the toolchain file could be forgotten for"
fi

echo "it shows its picture"
start_screen 800x600
start_program "$PWD/build/game.exe"
shows() { [ "$(import -window root -crop "1x1+$1+$2" -depth 8 rgb:- | od -An -tu1 | tr -s ' ')" = " $3" ]; }
wait_for 30 shows 180 290 '224 122 95'
end_program
