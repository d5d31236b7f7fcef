"""The changes to try, what is known of each, and which ones make no difference."""

import dataclasses
import hashlib
import pathlib
import re

import changes

MODULE = pathlib.PurePath("src/module/querypackage")
OTHERS_TEST = {"querypackage.cpp"}  # the facade: it is tested through the shared library

SURVIVED = "SURVIVED"
UNDECIDED = "UNDECIDED"  # survived the fast tests; the slow ones have not run
UNCOMPILED = "does not compile"


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str
    checksum: str  # of the file that is changed
    line: int
    column: int
    source: str  # the line where the change begins
    before: str
    after: str
    text: str  # of the whole file, changed

    @property
    def key(self):
        return f"{self.file}:{self.line}:{self.column}: {self.before} => {self.after or 'nothing'}"

    @property
    def change(self):
        return "removed" if self.after in ("", ";") else f"{self.before} => {self.after}"


def one_line(text):
    return re.sub(r"\s+", " ", text).strip()


def source_files(root):
    """The rules and the stages, as file names."""
    return sorted(path.name for path in (root / MODULE).iterdir()
                  if path.suffix in (".cpp", ".h") and path.name not in OTHERS_TEST)


def mutants_of(root, file):
    text = (root / MODULE / file).read_text()
    checksum = hashlib.sha256(text.encode()).hexdigest()[:12]
    for change in changes.find_changes(text):
        line_begin = text.rfind("\n", 0, change.begin) + 1
        yield Mutant(file=file, checksum=checksum,
                     line=text.count("\n", 0, change.begin) + 1,
                     column=change.begin - line_begin + 1,
                     source=text[line_begin:text.index("\n", change.begin)].strip(),
                     before=one_line(text[change.begin:change.end]),
                     after=one_line(change.after),
                     text=text[:change.begin] + change.after + text[change.end:])


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


class Equivalents:
    """The table of changes that make no difference, from a Markdown document: file, line, change
    and reason. A star in the first three stands for any text."""

    HEADER = ["File", "Line", "Change", "Why nothing can notice it"]

    def __init__(self, document):
        self._rows = []
        inside = False
        for line in document.read_text().splitlines():
            cells = [cell.strip().strip("`").replace("\\|", "|")
                     for cell in re.split(r"(?<!\\)\|", line)[1:-1]]
            if cells == self.HEADER:
                inside = True
            elif not cells:
                inside = False
            elif inside and set(cells[0]) != {"-"}:
                self._rows.append([self._pattern(cell) for cell in cells[:3]])

    @staticmethod
    def _pattern(cell):
        return re.compile(".*".join(map(re.escape, cell.split("*"))))

    def hold(self, mutant):
        for row in self._rows:
            texts = (mutant.file, mutant.source, mutant.change)
            if all(pattern.fullmatch(text) for pattern, text in zip(row, texts)):
                return True
        return False
