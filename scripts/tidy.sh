#!/usr/bin/env bash
# clang-tidy over the library, the logging library and the command line.
#
#   scripts/tidy.sh [BUILD]    BUILD: a configured build folder, build/release by default
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=${1:-build/release}
[ -f "$build/compile_commands.json" ] || cmake --preset release >&2
run-clang-tidy -quiet -p "$build" "$PWD/src/.*\.cpp$" 2>/dev/null |
  { grep -vE '^(clang-tidy-|[0-9]+ warnings)' || true; } |
  tee "$build/tidy.txt"
! grep -qE '(warning|error):' "$build/tidy.txt"
echo "clang-tidy: clean"
