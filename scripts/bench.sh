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

# The instructions of each filter that callgrind finds, as "FILTER COUNT" lines.
count_filters() {
  valgrind --quiet --tool=callgrind --callgrind-out-file="$1" \
    --toggle-collect='Vornik::QueryPackageImp::Filter*' "$programs/instruction_probe" filters "$2"
  callgrind_annotate --inclusive=yes --threshold=100 "$1" |
    sed -n 's/^ *\([0-9,]*\) .*QueryPackageImp::\(Filter[A-Za-z]*\)(.*/\2 \1/p' | tr -d ,
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
echo
echo "instructions of a filter, ten times the records (bound 11)"
count_filters "$work/few.out" 10000 | sort -k1,1 -k2,2nr | sort -u -k1,1 > "$work/few"
count_filters "$work/many.out" 100000 | sort -k1,1 -k2,2nr | sort -u -k1,1 > "$work/many"
join "$work/few" "$work/many" | awk '{ printf "%8.2f  %s\n", $3 / $2, $1 }'
echo
"$programs/query_benchmark"
