#!/usr/bin/env bash
# Runs the tests of a build in a random order and stores it, or in an order that was stored.
#
#   scripts/ctest-order.sh build/release [ctest's options...]
#   scripts/ctest-order.sh --replay build/release/order.txt build/release [ctest's options...]
#
# The order is that in which the tests start, in order.txt of the build's folder. A replay starts
# them in that order too; with several at a time, what runs beside what may still differ.
set -euo pipefail

replay=
if [ "${1:-}" = --replay ]; then
  replay=$(realpath "$2")
  shift 2
fi
build=$(realpath "$1")
shift

if [ -z "$replay" ]; then
  status=0
  ctest --preset "${build##*/}" --schedule-random "$@" | tee "$build/ctest.log" ||
    status=$?
  sed -nE 's/^ *Start +[0-9]+: //p' "$build/ctest.log" > "$build/order.txt"
  echo "The order is in $build/order.txt; repeat it with"
  printf "  scripts/ctest-order.sh --replay %q %q" "$build/order.txt" "$build"
  [ "$#" -eq 0 ] || printf " %q" "$@"
  echo
  exit "$status"
fi

# ctest starts the tests with the highest recorded cost first, where it runs several at a time, and
# before them those that failed in its last run.
costs=$build/Testing/Temporary/CTestCostData.txt
mkdir -p "$(dirname "$costs")"
awk '{ name[NR] = $0 } END { for (i = 1; i <= NR; ++i) print name[i], 1, NR - i + 1; print "---" }' \
  "$replay" > "$costs"
rm -f "$build/Testing/Temporary/LastTestsFailed.log"
ctest --preset "${build##*/}" --parallel 2 "$@"
