#!/usr/bin/env bash
# A second compiler's opinion of the Windows build: Clang reads the sources in src, and with them the
# public headers, with the flags and definitions that MinGW's compiler gets, warnings as errors. It
# makes no files. The tests are read by Clang in the build of the preset asan.
#
#   scripts/windows-clang.sh [BUILD]    BUILD: a configured build folder, build/windows-mingw by default
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=${1:-build/windows-mingw}
[ -f "$build/build.ninja" ] || cmake --preset windows-mingw >&2
root=$PWD
cd "$build"

# The commands as Ninja would run them, one for each source, less what names an output and what only
# GCC knows.
commands() {
  ninja -t commands |
    sed -nE 's/^.*(x86_64-w64-mingw32-g\+\+-posix) (.* -c .*)$/\2/p' |
    sed -E 's/ -(MT|MF|o) [^ ]+//g; s/ -(MD|fno-keep-inline-dllexport)( |$)/\2/g' |
    awk -v "src=$root/src/" 'index($NF, src) == 1 && !seen[$NF]++'
}

clang=(clang++ --target=x86_64-w64-mingw32 -fsyntax-only -nostdinc++)
# Clang does not look where Debian puts this runtime's C++ headers.
while read -r folder; do
  clang+=(-isystem "$(readlink -f "$folder")")
done < <(x86_64-w64-mingw32-g++-posix -E -v -x c++ /dev/null 2>&1 | sed -n 's/^ \(.*c++.*\)/\1/p')

count=$(commands | wc -l)
[ "$count" -gt 0 ]
commands | sed "s|^|${clang[*]} |" | tr '\n' '\0' | xargs -0 -n 1 -P "$(nproc)" sh -c
echo "clang for Windows: $count sources, no finding"
