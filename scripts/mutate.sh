#!/usr/bin/env bash
# Changes the rules and the stages in small ways, one at a time, and lists the changes that neither
# the unit tests nor the pipeline tests notice; of the command line, what cli_tests does not notice.
# Works on copies, in build/mutate. Takes hours.
#
#   scripts/mutate.sh [FILE...]           all of src/module/querypackage, or these files of it
#   scripts/mutate.sh --list [FILE...]    prints the changes, and makes none
#   scripts/mutate.sh --survivors         prints what earlier runs have found
#   scripts/mutate.sh --again [FILE...]   tries what survived once more, after a change of the tests
#   scripts/mutate.sh --quick [FILE...]   leaves the slow tests for a run without it
#   scripts/mutate.sh --changed-since REV [--minutes N]
#                                         only lines that differ from REV, and no longer than that
#   scripts/mutate.sh --application ...   all of this for explain, lint and the remedies
#   scripts/mutate.sh --sample N ...      only N of the changes, the same ones each time
#   scripts/mutate.sh --check             finds explanations of changes that no longer exist
#
# FILE is a path in src/module/querypackage or src/app/querypackage-cli, or the end of one, such as
# filters/sep.h or sep.h.
#
# Results go to build/mutate/*/results.txt as they come; a run goes on from there. A file that has
# changed is tried anew. What makes no difference is explained in scripts/mutation/explained.toml, and not
# tried again; the script fails when a change survives that is not in it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

case " $* " in
  *" --list "* | *" --survivors "* | *" --check "*) ;;
  *) scripts/setup.sh test ;;
esac
exec python3 -B scripts/mutation "$@"
