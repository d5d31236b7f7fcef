#!/usr/bin/env bash
# Builds the benchmarks and prints the cost of a query: the ratios with their bounds, the growth of
# the filters in instructions, and Google Benchmark's rows for the rules. Takes some ten minutes.
#
#   scripts/bench.sh           a table
#   scripts/bench.sh --json    only the ratios, as JSON
#   scripts/bench.sh --check   the ratios and the growth; fails when one of them is over its bound
#
# --check counts processor time and allows 10 % more than the bounds of the ratios. It makes sense on
# a machine that does nothing else, has two cores or more and keeps its clock rate, with TMPDIR on a
# tmpfs: memory and caches that other programs use change the ratios by more than that.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

mode=${1:-}
case $mode in
  '' | --json | --check) ;;
  *) echo "bench: unknown option $mode" >&2; exit 64 ;;
esac

scripts/setup.sh test
{
  cmake --preset release
  cmake --build --preset release --target bounds_benchmark query_benchmark instruction_probe \
    querypackage-cli
} >&2
programs=build/release/benchmarks
bounds=("$programs/bounds_benchmark" --program build/release/src/app/querypackage-cli/querypackage-cli)

if [ "$mode" = --json ]; then exec "${bounds[@]}" --json; fi

failed=0
if [ "$mode" = --check ]; then
  "${bounds[@]}" --check --cpu || failed=1
else
  "${bounds[@]}"
fi

# The instructions of each filter as callgrind counts them, as sorted "FILTER COUNT" lines.
count_filters() {
  valgrind --quiet --tool=callgrind --callgrind-out-file="$work/$1.out" \
    --toggle-collect='*::Probe*' "$programs/instruction_probe" filters "$1"
  callgrind_annotate --inclusive=yes --threshold=100 "$work/$1.out" |
    sed -nE 's/^ *([0-9,]+) .*::Probe([A-Za-z]+)\(.*/\2 \1/p' | tr -d , | sort > "$work/$1"
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
bound=13
echo
echo "instructions of a filter, ten times the records (bound $bound)"
count_filters 10000
count_filters 100000
[ "$(wc -l < "$work/100000")" -eq 8 ]
join "$work/10000" "$work/100000" |
  awk -v bound="$bound" '
    { over = $3 > bound * $2; any = any || over }
    { printf "%8.2f  %s%s\n", $3 / $2, $1, over ? "  OVER" : "" }
    END { exit any }' || failed=1

if [ "$mode" = --check ]; then exit "$failed"; fi
echo
"$programs/query_benchmark"
