"""Tries small changes of the rules and the stages; mutate.sh says how."""

import argparse
import collections
import pathlib
import random
import re
import subprocess
import time

from build import Builder, build_tests, copy_sources
from mutants import (APPLICATION, LIBRARY, SURVIVED, UNDECIDED, Explanations, Results, files_named,
                     mutants_of, source_files)
from trial import Tests, outcome_of

ROOT = pathlib.Path(__file__).resolve().parents[2]


def work_of(area):
    return ROOT / "build" / "mutate" / area.folder.name


def options_of_call():
    parser = argparse.ArgumentParser(prog="scripts/mutate.sh")
    mode = parser.add_mutually_exclusive_group()
    mode.add_argument("--check", action="store_true",
                      help="find explanations of changes that there are no longer")
    mode.add_argument("--list", action="store_true", help="print the changes, make none")
    mode.add_argument("--survivors", action="store_true", help="print what earlier runs found")
    mode.add_argument("--again", action="store_true", help="try what survived once more")
    parser.add_argument("--quick", action="store_true", help="leave the slow tests for later")
    parser.add_argument("--changed-since", metavar="REV", help="only changes of lines that differ")
    parser.add_argument("--application", action="store_true",
                        help="change explain, lint and the remedies in place of the library")
    parser.add_argument("--sample", type=int, metavar="N", help="only N of the changes")
    parser.add_argument("--minutes", type=float, metavar="N",
                        help="begin no further trial after that time, without the build")
    parser.add_argument("files", nargs="*", metavar="FILE")
    return parser.parse_args()


def changed_lines(rev, area):
    """The numbers of the lines that differ from that revision, by path in the area's folder."""
    diff = subprocess.run(["git", "diff", "-U0", "--no-renames", "--relative", rev, "--", "."],
                          cwd=ROOT / area.folder, check=True, stdout=subprocess.PIPE, text=True).stdout
    lines = collections.defaultdict(set)
    file = None
    for line in diff.splitlines():
        if line.startswith("+++ "):
            file = line.removeprefix("+++ b/")
        hunk = re.match(r"@@ -\S+ \+(\d+)(?:,(\d+))? @@", line)
        if hunk:
            begin, count = int(hunk[1]), int(hunk[2] or 1)
            lines[file].update(range(begin, begin + count))
    return lines


def try_changes(area, mutants, results, equivalents, options):
    again, quick = options.again, options.quick
    open_outcomes = (set() if quick else {UNDECIDED}) | ({SURVIVED, UNDECIDED} if again else set())
    wanted = [one for one in mutants if results.get(one) is None or
              (results.get(one) in open_outcomes and not equivalents.hold(one))]
    print(f"mutate: {len(wanted)} of {len(mutants)} changes to try", flush=True)
    if not wanted:
        return
    work = work_of(area)
    copy_sources(ROOT, work / "src")
    build_tests(work / "src", work / "build", area)
    builder = Builder(work, area)
    all_rounds = (False,) if quick else (False, True)
    tests = Tests(builder.build, area)
    if options.minutes:  # a sample of all files
        random.Random(0).shuffle(wanted)
    begin = time.monotonic()
    for mutant in wanted:
        if options.minutes and time.monotonic() - begin > 60 * options.minutes:
            print("mutate: the time is over", flush=True)
            break
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
                outcome = "survived, explained"
            else:
                unexplained.append(f"{outcome}: {mutant.key}")
        counts[outcome] += 1
    print("\n".join(unexplained))
    for outcome, count in sorted(counts.items()):
        print(f"mutate: {count:5} {outcome}")
    return not unexplained


def main():
    options = options_of_call()
    area = APPLICATION if options.application else LIBRARY
    names = [file for name in options.files for file in files_named(ROOT, area, name)] or \
        source_files(ROOT, area)
    mutants = [mutant for name in names for mutant in mutants_of(ROOT, area, name)]
    equivalents = Explanations(pathlib.Path(__file__).with_name("explained.toml"))
    if options.check:
        everything = [one for known in (LIBRARY, APPLICATION) for name in source_files(ROOT, known)
                      for one in mutants_of(ROOT, known, name)]
        stale = equivalents.stale(everything)
        print("".join(f"explains no change: {row}\n" for row in stale), end="")
        return 1 if stale else 0
    if options.changed_since:
        lines = changed_lines(options.changed_since, area)
        mutants = [mutant for mutant in mutants if mutant.line in lines[mutant.file]]
    if options.sample is not None:  # the same ones each time, in the order of the files
        chosen = random.Random(0).sample(range(len(mutants)), min(options.sample, len(mutants)))
        mutants = [mutants[index] for index in sorted(chosen)]
    if options.list:
        print("\n".join(mutant.key for mutant in mutants))
        return 0
    work_of(area).mkdir(parents=True, exist_ok=True)
    results = Results(work_of(area) / "results.txt")
    if not options.survivors:
        try_changes(area, mutants, results, equivalents, options)
    return 0 if report(mutants, results, equivalents) else 1


if __name__ == "__main__":
    raise SystemExit(main())
