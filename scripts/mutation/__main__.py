"""Tries small changes of the rules and the stages; mutate.sh says how."""

import argparse
import collections
import pathlib

from build import Builder, build_tests, copy_sources
from mutants import (SURVIVED, UNDECIDED, Equivalents, Results, mutants_of, source_files)
from trial import Tests, outcome_of

ROOT = pathlib.Path(__file__).resolve().parents[2]
WORK = ROOT / "build" / "mutate"


def options_of_call():
    parser = argparse.ArgumentParser(prog="scripts/mutate.sh")
    mode = parser.add_mutually_exclusive_group()
    mode.add_argument("--list", action="store_true", help="print the changes, make none")
    mode.add_argument("--survivors", action="store_true", help="print what earlier runs found")
    mode.add_argument("--again", action="store_true", help="try what survived once more")
    parser.add_argument("--quick", action="store_true", help="leave the slow tests for later")
    parser.add_argument("files", nargs="*", metavar="FILE")
    return parser.parse_args()


def try_changes(mutants, results, equivalents, again, quick):
    open_outcomes = (set() if quick else {UNDECIDED}) | ({SURVIVED, UNDECIDED} if again else set())
    wanted = [one for one in mutants if results.get(one) is None or
              (results.get(one) in open_outcomes and not equivalents.hold(one))]
    print(f"mutate: {len(wanted)} of {len(mutants)} changes to try", flush=True)
    if not wanted:
        return
    copy_sources(ROOT, WORK / "src")
    build_tests(WORK / "src", WORK / "build")
    builder = Builder(WORK)
    all_rounds = (False,) if quick else (False, True)
    tests = Tests(builder.build, all_rounds)
    for mutant in wanted:
        is_half_done = results.get(mutant) == UNDECIDED and not again
        outcome = outcome_of(mutant, builder, tests, (True,) if is_half_done else all_rounds)
        results.add(mutant, outcome)
        if outcome in (SURVIVED, UNDECIDED):
            print(f"{outcome}: {mutant.key}", flush=True)


def report(mutants, results, equivalents):
    """Whether every change that survived is explained."""
    counts = collections.Counter()
    unexplained = []
    for mutant in mutants:
        outcome = results.get(mutant) or "not tried"
        if outcome in (SURVIVED, UNDECIDED):
            if equivalents.hold(mutant):
                outcome = "survived, explained in docs/testing.md"
            else:
                unexplained.append(f"{outcome}: {mutant.key}")
        counts[outcome] += 1
    print("\n".join(unexplained))
    for outcome, count in sorted(counts.items()):
        print(f"mutate: {count:5} {outcome}")
    return not unexplained


def main():
    options = options_of_call()
    names = [pathlib.Path(file).name for file in options.files] or source_files(ROOT)
    mutants = [mutant for name in names for mutant in mutants_of(ROOT, name)]
    if options.list:
        print("\n".join(mutant.key for mutant in mutants))
        return 0
    WORK.mkdir(parents=True, exist_ok=True)
    results = Results(WORK / "results.txt")
    equivalents = Equivalents(ROOT / "docs" / "testing.md")
    if not options.survivors:
        try_changes(mutants, results, equivalents, options.again, options.quick)
    return 0 if report(mutants, results, equivalents) else 1


if __name__ == "__main__":
    raise SystemExit(main())
