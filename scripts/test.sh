#!/usr/bin/env bash
# Installs what is needed, builds, and runs every test and check; the last lines say what passed.
#
#   release        the tests as the library ships, with the installed package and the example hosts
#   asan           the same under AddressSanitizer, UndefinedBehaviorSanitizer and LeakSanitizer
#   tsan           what runs on several threads, under ThreadSanitizer
#   coverage       the same once more for the line coverage of src/module
#   windows-mingw  the same as programs for Windows, under Wine
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

step() { printf '\n== %s\n' "$*"; }

scripts/setup.sh test

step "formatting"
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run --Werror

for preset in release asan tsan coverage windows-mingw; do
  step "$preset: build"
  cmake --preset "$preset"
  cmake --build --preset "$preset"
  step "$preset: tests"
  [ "$preset" != coverage ] || find build/coverage -name '*.gcda' -delete
  ctest --preset "$preset" --schedule-random --output-junit "$PWD/build/$preset/tests.xml"
done

step "line coverage of src/module"
gcovr --root . --filter src/module/ --exclude-throw-branches --print-summary build/coverage

step "static analysis"
scripts/tidy.sh
scripts/analyze.sh

step "a second compiler for Windows"
scripts/windows-clang.sh

step "result"
scripts/summary.sh build/*/tests.xml
