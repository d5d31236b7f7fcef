#!/usr/bin/env bash
# Adds up CTest's JUnit reports: one line a report, then the sum.
#
#   scripts/summary.sh REPORT...
set -euo pipefail
count() { sed -n "s/.*[[:space:]]$2=\"\([0-9]*\)\".*/\1/p" "$1" | head -n 1; }

passed=0 failed=0
for report in "$@"; do
  tests=$(count "$report" tests) bad=$(count "$report" failures) skipped=$(count "$report" skipped)
  disabled=$(count "$report" disabled)
  good=$((tests - bad - skipped - disabled))
  printf '%s: %d passed, %d failed, %d skipped\n' "$(basename "$(dirname "$report")")" \
    "$good" "$bad" "$((skipped + disabled))"
  passed=$((passed + good)) failed=$((failed + bad))
done
printf '%d passed, %d failed\n' "$passed" "$failed"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
