"""The changes to try, what is known of each, and which ones make no difference."""

import collections
import dataclasses
import hashlib
import pathlib
import re
import tomllib

import changes

@dataclasses.dataclass(frozen=True)
class Area:
    """Sources that are changed, and the programs that test them."""

    folder: pathlib.PurePath  # of the sources
    parts: tuple  # of the folder, as paths in it
    omitted: frozenset  # files, as paths in the folder
    libraries: str  # that the sources are compiled for, as a regular expression
    programs: tuple  # as paths in the build
    slow_tests: str  # of the programs, as a filter of GoogleTest
    needs_tools: bool


# What takes long: many random inputs against the plain versions, large inputs.
LIBRARY = Area(
    folder=pathlib.PurePath("src/module/querypackage"), parts=("",),
    omitted=frozenset({"querypackage.cpp"}),  # the facade: it is tested through the shared library
    libraries="querypackage_(rules|core|test_support)", programs=("tests/unit_tests", "tests/pipeline_tests"),
    slow_tests=":".join((
        "*Plain*", "HostileFolderTest.*", "*LoadLimits*", "*LongText*", "TextMode.IsThat*",
        "CimXmlLoadFile.GivesWhatTinyXmlGives", "XmlLimits.FindsAFaultExactly*",
        "DescriptorMarkers.AreFoundAs*")),
    needs_tools=False)
# The reasons of explain, the remedies and the rules of lint.
APPLICATION = Area(
    folder=pathlib.PurePath("src/app/querypackage-cli"), parts=("explain", "lint", "remedy"),
    omitted=frozenset(), libraries="querypackage_cli_objects", programs=("tests/cli/cli_tests",),
    slow_tests="*Random*:*Order*:*Permut*", needs_tools=True)

SURVIVED = "SURVIVED"
UNDECIDED = "UNDECIDED"  # survived the fast tests; the slow ones have not run
UNCOMPILED = "does not compile"


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str  # its path in the area's folder
    checksum: str  # of the file that is changed
    line: int
    column: int
    function: str  # or variable; empty outside any
    source: str  # the line where the change begins
    nth: int  # among the same changes of such lines in the function, from 1
    before: str
    after: str
    text: str  # of the whole file, changed

    @property
    def key(self):
        return f"{self.file}:{self.line}:{self.column}: {self.before} => {self.after or 'nothing'}"

    @property
    def change(self):
        return "removed" if self.after in ("", ";") else f"{self.before} => {self.after}"

    @property
    def identity(self):
        """What stays the same when other functions change."""
        return (self.file, self.function, self.source, self.change, self.nth)


def one_line(text):
    return re.sub(r"\s+", " ", text).strip()


def source_files(root, area):
    """The sources, headers included, as paths in the area's folder."""
    folder = root / area.folder
    found = {str(path.relative_to(folder)) for part in area.parts
             for path in (folder / part).rglob("*") if path.suffix in (".cpp", ".h")}
    return sorted(found - area.omitted)


def files_named(root, area, name):
    """The paths in the area's folder that end in this path."""
    known = source_files(root, area)
    wanted = pathlib.PurePath(name).parts
    found = [file for file in known if pathlib.PurePath(file).parts[-len(wanted):] == wanted]
    if not found and pathlib.PurePath(name).is_relative_to(area.folder):
        found = [str(pathlib.PurePath(name).relative_to(area.folder))]
    if not set(found) <= set(known) or not found:
        raise SystemExit(f"mutate: no source of {area.folder} is named {name}")
    return found


def mutants_of(root, area, file):
    text = (root / area.folder / file).read_text()
    checksum = hashlib.sha256(text.encode()).hexdigest()[:12]
    declarations = changes.declarations_of(changes.tokens_of(text))
    counts = collections.Counter()
    for change in changes.find_changes(text):
        line_begin = text.rfind("\n", 0, change.begin) + 1
        mutant = Mutant(file=file, checksum=checksum,
                        line=text.count("\n", 0, change.begin) + 1,
                        column=change.begin - line_begin + 1,
                        function=changes.function_at(declarations, change.begin),
                        source=text[line_begin:text.index("\n", change.begin)].strip(), nth=1,
                        before=one_line(text[change.begin:change.end]),
                        after=one_line(change.after),
                        text=text[:change.begin] + change.after + text[change.end:])
        counts[mutant.identity] += 1
        yield dataclasses.replace(mutant, nth=counts[mutant.identity])


class Results:
    """What all runs have found, in a text file: a line for each trial, of which the last counts."""

    def __init__(self, path):
        self._path = path
        self._known = {}
        if path.exists():
            for line in path.read_text().splitlines():
                checksum, outcome, key = line.split("\t")
                self._known[checksum, key] = outcome

    def get(self, mutant):
        return self._known.get((mutant.checksum, mutant.key))

    def add(self, mutant, outcome):
        self._known[mutant.checksum, mutant.key] = outcome
        with self._path.open("a") as out:
            out.write(f"{mutant.checksum}\t{outcome}\t{mutant.key}\n")


class Explanations:
    """Why changes make no difference: explained.toml. A row has the file, the function, the line
    where the change begins, the change, its number where the function has more than one of these
    (nth), and the reason. It explains one change."""

    def __init__(self, path):
        rows = tomllib.loads(path.read_text()).get("change", [])
        self._rows = set()
        for row in rows:
            identity = (row["file"], row["function"], row["line"], row["change"], row.get("nth", 1))
            if identity in self._rows or not row["reason"]:
                raise SystemExit(f"mutate: {path.name}: twice, or without a reason: {identity}")
            self._rows.add(identity)

    def hold(self, mutant):
        return mutant.identity in self._rows

    def stale(self, mutants):
        """The rows that explain none of all changes."""
        return sorted(self._rows - {mutant.identity for mutant in mutants})
