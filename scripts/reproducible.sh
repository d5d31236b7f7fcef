#!/usr/bin/env bash
# Builds the libraries and the program twice, in two folders, and compares the bytes.
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

# What is delivered: shared libraries, import libraries and programs.
delivered() { # FOLDER PRESET
  (cd "$1/build/$2" && find . -path ./CMakeFiles -prune -o -type f \
    \( -name 'lib*.so.*' -o -name '*.dll' -o -name '*.dll.a' -o -name 'querypackage-cli*' \) -print |
    grep -v '/CMakeFiles/' | sort)
}

status=0
for preset; do
  for folder in "${folders[@]}"; do build "$folder" "$preset"; done
  count=0
  while read -r file; do
    if cmp "${folders[0]}/build/$preset/$file" "${folders[1]}/build/$preset/$file"; then
      count=$((count + 1))
    else
      status=1
    fi
  done < <(delivered "${folders[0]}" "$preset")
  [ "$count" -ge 3 ] || status=1
  echo "$preset: $count files are the same bytes"
done
exit "$status"
