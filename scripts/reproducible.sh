#!/usr/bin/env bash
# Builds twice, in two folders, and compares the bytes of everything that is installed.
#
#   scripts/reproducible.sh [PRESET]...    release and windows-mingw by default
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
[ "$#" -gt 0 ] || set -- release windows-mingw
export CCACHE_DISABLE=1 # a cache would hand out the first build's objects again

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
folders=("$work/one" "$work/another and longer/two")

build() { # FOLDER PRESET
  mkdir -p "$1"
  git ls-files -z --cached --others --exclude-standard |
    tar --null --files-from=- --ignore-failed-read -cf - | tar -xf - -C "$1"
  (cd "$1" && cmake --preset "$2" -DQUERYPACKAGE_BUILD_TESTS=OFF -DQUERYPACKAGE_BUILD_EXAMPLES=OFF \
    -DQUERYPACKAGE_BUILD_BENCHMARKS=OFF && cmake --build --preset "$2") >"$work/log" 2>&1 ||
    { cat "$work/log"; return 1; }
}

status=0
for preset; do
  installed=()
  for folder in "${folders[@]}"; do
    build "$folder" "$preset"
    installed+=("$folder/installed/$preset")
    cmake --install "$folder/build/$preset" --strip --prefix "${installed[-1]}" >/dev/null
  done
  diff -r "${installed[@]}" || status=1
  count=$(find "${installed[0]}" -type f | wc -l)
  [ "$count" -gt 0 ] || status=1
  echo "$preset: $count installed files compared"
done
[ "$status" -ne 0 ] || echo "the same bytes"
exit "$status"
