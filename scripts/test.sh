#!/usr/bin/env bash
# Installs what is needed, builds and tests. The last lines say how long each step took and how many
# tests passed.
#
#   scripts/test.sh            the step release: what ships, and every native test
#   scripts/test.sh --all      all steps
#   scripts/test.sh STEP...    these steps
#
#   format         the sources are formatted
#   shell          shellcheck over the scripts
#   release        the tests of what ships, with the installed package and the example hosts
#   headers        each header compiles by itself
#   asan           the tests, built with Clang, under AddressSanitizer, UndefinedBehaviorSanitizer and
#                  LeakSanitizer
#   tsan           what runs on several threads, under ThreadSanitizer
#   coverage       the tests once more, for the line coverage of src/module and src/app
#   windows        the tests as programs for Windows, under Wine
#   windows-clang  a second compiler reads src as for Windows
#   tidy           clang-tidy
#   analyze        cppcheck, and GCC's analyzer
#   mutation       the tests notice small changes of the lines that the last commit changed
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

all=(format shell release headers asan tsan coverage windows windows-clang tidy analyze mutation)
CTEST_PARALLEL_LEVEL=${CTEST_PARALLEL_LEVEL:-$(nproc)}
export CTEST_PARALLEL_LEVEL

# The preset that a step tests, if it does.
preset_of() {
  case $1 in
    release | asan | tsan | coverage) echo "$1" ;;
    windows) echo windows-mingw ;;
  esac
}

test_preset() {
  cmake --preset "$1"
  cmake --build --preset "$1"
  scripts/ctest-order.sh "build/$1" --output-junit "$PWD/build/$1/tests.xml"
}

run_step() {
  case $1 in
    format)
      scripts/setup.sh check
      git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run --Werror
      ;;
    shell)
      scripts/setup.sh check
      git ls-files -z '*.sh' .ci/run | xargs -0 shellcheck
      ;;
    release)
      scripts/setup.sh test
      test_preset release
      ;;
    headers)
      scripts/setup.sh test
      scripts/headers.sh
      ;;
    asan | tsan)
      scripts/setup.sh sanitize
      test_preset "$1"
      ;;
    coverage)
      scripts/setup.sh coverage
      [ ! -d build/coverage ] || find build/coverage -name '*.gcda' -delete
      test_preset coverage
      gcovr --root . --filter src/module/ --exclude-throw-branches --print-summary \
        --fail-under-line 98 build/coverage
      gcovr --root . --filter src/app/ --exclude-throw-branches --print-summary \
        --fail-under-line 95 build/coverage
      ;;
    windows)
      scripts/setup.sh windows
      test_preset windows-mingw
      ;;
    windows-clang)
      scripts/setup.sh windows
      scripts/windows-clang.sh
      ;;
    tidy)
      scripts/setup.sh check
      scripts/tidy.sh
      ;;
    analyze)
      scripts/setup.sh check
      scripts/analyze.sh
      ;;
    mutation)
      scripts/setup.sh test
      if ! git rev-parse --quiet --verify HEAD~1 >/dev/null; then
        echo "there is no commit before this one"
        return
      fi
      scripts/mutate.sh --changed-since HEAD~1 --minutes 2
      scripts/mutate.sh --application --changed-since HEAD~1 --minutes 2
      ;;
  esac
}

if [ "${1:-}" = --run-step ]; then
  run_step "$2"
  exit
fi

case ${1:-} in
  "") steps=(release) ;;
  --all) steps=("${all[@]}") ;;
  *) steps=("$@") ;;
esac
for step in "${steps[@]}"; do
  case " ${all[*]} " in
    *" $step "*) ;;
    *)
      echo "test: there is no step $step; there are ${all[*]}" >&2
      exit 2
      ;;
  esac
done

reports=()
for step in "${steps[@]}"; do
  preset=$(preset_of "$step")
  [ -z "$preset" ] || rm -f "build/$preset/tests.xml"
done

table=
failed=
for step in "${steps[@]}"; do
  printf '\n== %s\n' "$step"
  SECONDS=0
  # A process of its own, so that its first failing command ends it.
  bash scripts/test.sh --run-step "$step" || failed=$step
  printf -v line '%-14s %3d:%02d  %s' "$step" $((SECONDS / 60)) $((SECONDS % 60)) \
    "${failed:+failed}"
  printf '== %s\n' "$line"
  table+=$line$'\n'
  preset=$(preset_of "$step")
  [ -z "$preset" ] || [ ! -f "build/$preset/tests.xml" ] || reports+=("build/$preset/tests.xml")
  [ -z "$failed" ] || break
done

printf '\n== steps, in minutes\n%s' "$table"
[ -z "$failed" ] || echo "The step $failed failed. Repeat it with: scripts/test.sh $failed"
status=0
[ "${#reports[@]}" -eq 0 ] || scripts/summary.sh "${reports[@]}" || status=1
[ -z "$failed" ] && [ "$status" -eq 0 ]
