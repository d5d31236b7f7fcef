#!/usr/bin/env bash
# Builds the fuzzers and runs them all, two at a time, for about that many seconds in all. The last
# lines say how many inputs each has run.
#
#   scripts/fuzz.sh SECONDS
#
# Each starts from the project's corpus and from the inputs that earlier runs kept in
# build/fuzz/corpus. A finding ends its fuzzer, and this script then fails; the input and the fuzzer's
# output are in build/fuzz/findings.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
seconds=${1:?usage: scripts/fuzz.sh SECONDS}
build=build/fuzz
targets=(reader markers values query cost)
atOnce=2

scripts/setup.sh fuzz
cmake --preset fuzz
cmake --build --preset fuzz

# The query target fills a folder for each input: in memory, if the system has such a folder.
memory=/dev/shm
[ -w "$memory" ] || memory=${TMPDIR:-/tmp}
TMPDIR=$(mktemp -d "$memory/querypackage-fuzz.XXXXXX")
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT
# A small quarantine of freed memory and no stacks of allocations: most of the time would be spent on
# them. To get both for a finding, run it again without these options.
export ASAN_OPTIONS=quarantine_size_mb=8:malloc_context_size=0

# The longest inputs of each, in bytes; a target whose cost grows faster than the length gets less.
declare -A longest=([reader]=2048 [markers]=4096 [values]=256 [query]=6144 [cost]=4096)
findings=$build/findings
mkdir -p "$findings"

run() {
  local target=$1 dictionary=$TMPDIR/$1.dict corpora=()
  mkdir -p "$build/corpus/$target"
  corpora=("$build/corpus/$target" "fuzz/corpus/$target")
  case $target in
    reader | cost) cp fuzz/dictionaries/cimxml.dict "$dictionary" ;;
    query) cat fuzz/dictionaries/{cimxml,query}.dict >"$dictionary" ;;
    *) cp "fuzz/dictionaries/$target.dict" "$dictionary" ;;
  esac
  case $target in reader | markers) corpora+=(examples/repository) ;; esac
  "$build/fuzz/${target}_fuzzer" -dict="$dictionary" -max_len="${longest[$target]}" \
    -max_total_time=$((seconds * atOnce / ${#targets[@]})) -timeout=600 -print_final_stats=1 \
    -artifact_prefix="$findings/$target-" "${corpora[@]}" >"$findings/$target.log" 2>&1
}

failed=()
for ((first = 0; first < ${#targets[@]}; first += atOnce)); do
  declare -A running=()
  for target in "${targets[@]:first:atOnce}"; do
    run "$target" &
    running[$target]=$!
  done
  for target in "${!running[@]}"; do wait "${running[$target]}" || failed+=("$target"); done
done

total=0
for target in "${targets[@]}"; do
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$findings/$target.log")
  printf 'fuzz: %-8s %12d executions\n' "$target" "${runs:-0}"
  total=$((total + ${runs:-0}))
done
printf 'fuzz: %-8s %12d executions\n' total "$total"
[ "${#failed[@]}" -gt 0 ] || exit 0
for target in "${failed[@]}"; do
  echo "fuzz: $target has a finding; more in $findings/$target.log:"
  sed -n '/expected, but not so\|ERROR:/,$p' "$findings/$target.log"
done >&2
exit 1
