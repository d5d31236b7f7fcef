#!/usr/bin/env bash
# clang-tidy over src.
#
#   scripts/tidy.sh [BUILD]    BUILD: a folder configured for Clang, build/asan by default
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=${1:-build/asan}
[ -f "$build/compile_commands.json" ] || cmake --preset asan >&2

# What clang-tidy writes to standard error is shown if it fails by itself.
errors=$build/tidy-errors.txt
run-clang-tidy -quiet -p "$build" "^$PWD/src/.*\.cpp$" >"$build/tidy.txt" 2>"$errors" || {
  grep -E '(warning|error):' "$build/tidy.txt" "$errors" || cat "$errors"
  exit 1
}
read=$(grep -c '^clang-tidy' "$build/tidy.txt" || true)
[ "$read" -gt 0 ] || {
  echo "clang-tidy: no source was read" >&2
  exit 1
}
if grep -vE '^clang-tidy' "$build/tidy.txt" | grep -E '(warning|error):'; then exit 1; fi
echo "clang-tidy: $read sources, clean"
