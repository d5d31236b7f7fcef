#!/usr/bin/env bash
# Builds the benchmarks and prints what a query costs: the ratios with their bounds, the growth of
# the filters in instructions, and Google Benchmark's rows for the rules. Takes some ten minutes.
#
#   scripts/bench.sh          a table
#   scripts/bench.sh --json   the ratios as JSON, nothing else
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh test
{
  cmake --preset release
  cmake --build --preset release --target bounds_benchmark query_benchmark instruction_probe
} >&2
programs=build/release/benchmarks

if [ "${1:-}" = --json ]; then exec "$programs/bounds_benchmark" --json; fi
"$programs/bounds_benchmark"

# The instructions of each filter as callgrind counts them, as sorted "FILTER COUNT" lines.
count_filters() {
  valgrind --quiet --tool=callgrind --callgrind-out-file="$work/$1.out" \
    --toggle-collect='*::Probe*' "$programs/instruction_probe" filters "$1"
  callgrind_annotate --inclusive=yes --threshold=100 "$work/$1.out" |
    sed -nE 's/^ *([0-9,]+) .*::Probe([A-Za-z]+)\(.*/\2 \1/p' | tr -d , | sort > "$work/$1"
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
echo
echo "instructions of a filter, ten times the records (bound 11)"
count_filters 10000
count_filters 100000
[ "$(wc -l < "$work/100000")" -eq 8 ]
join "$work/10000" "$work/100000" | awk '{ printf "%8.2f  %s\n", $3 / $2, $1 }'
echo
"$programs/query_benchmark"
