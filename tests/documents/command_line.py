"""Compares docs/command-line.md with the program.

    command_line.py COMMAND_LINE_MD PROGRAM REPOSITORY SOURCES

Each option of a subcommand's --help is documented and each documented one exists; the same for exit
statuses and for the keys of the JSON documents that queries of REPOSITORY give. Each documented
word of a reason is in one of the program's sources, and each word that is given is documented.
"""

import json
import pathlib
import re
import subprocess
import sys

WORD = re.compile(r"`([A-Za-z]+)`")
MACHINE = ["--machine-type", "1234", "--os", "10", "--arch", "9"]
PACKAGES = ["orx_drv_ethlan_1_2", "ORX_UTL_KEYMAP_1", "orx_drv_blkstor_10_1", "orx_drv_touchpad_5",
            "orx_drv_monitor_1", "orx_drv_dock_4", "orx_drv_bluetooth_4", "catalog_notes", "",
            "pack_desktop_1234", "orx_drv_blkstor_8_0", "nothing_of_this_name"]


class Comparison:
    def __init__(self):
        self.failed = False

    def equal(self, what, documented, real):
        self.contained(f"{what}: not documented", real, documented)
        self.contained(f"{what}: documented, but not the program's", documented, real)

    def contained(self, what, part, whole):
        if not part or not whole:
            self.fail(f"{what}: nothing to compare")
        for item in sorted(part - whole):
            self.fail(f"{what}: {item}")

    def fail(self, message):
        self.failed = True
        print(message)


def section(document, title):
    """From a heading to the next one of its level or a higher one."""
    level = title.split()[0]
    lines = document.splitlines()
    begin = lines.index(title)
    for end in range(begin + 1, len(lines)):
        heading = re.match(r"#+ ", lines[end])
        if heading and len(heading.group().strip()) <= len(level):
            return "\n".join(lines[begin:end])
    return "\n".join(lines[begin:])


def first_cells(text):
    return [row.split("|")[1] for row in text.splitlines() if row.startswith("| ")]


def options_in(text):
    return set(re.findall(r"--[a-z][a-z-]*", text))


def documented_options(document):
    common, _, rest = section(document, "## Options").partition("`query` also takes")
    of_query, _, of_explain = rest.partition("`explain` also takes")
    common, of_query, of_explain = (options_in(" ".join(first_cells(text)))
                                    for text in (common, of_query, of_explain))
    return {"list": options_in(" ".join(first_cells(section(document, "## `list`")))),
            "query": common | of_query, "explain": common | of_explain,
            "matrix": options_in(" ".join(first_cells(section(document, "## `matrix`")))),
            "lint": options_in(" ".join(first_cells(section(document, "## `lint`")))),
            "check": options_in(" ".join(first_cells(section(document, "## `check`"))))}


def words_of_tables(text, header):
    """The words of the first cells of the tables with that header."""
    words, inside = set(), False
    for row in text.splitlines():
        inside = row.startswith(header) or (inside and row.startswith("|"))
        if inside:
            words |= set(WORD.findall(row.split("|")[1]))
    return words


class Program:
    def __init__(self, path):
        self.path = path

    def run(self, *arguments):
        return subprocess.run([self.path, *arguments], stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, timeout=120).stdout.decode()

    def options(self, *subcommand):
        return set(re.findall(r"^ +(?:-h,)?(--[a-z][a-z-]*)", self.run(*subcommand, "--help"), re.M))

    def statuses(self, subcommand):
        text = self.run(subcommand, "--help").partition("Exit status:")[2]
        return set(re.findall(r"^  (\d+) ", text, re.M))

    def document(self, *arguments):
        return json.loads(self.run(*arguments, "--format", "json"))


def keys_of(value):
    """The keys of all objects, but for those of records, which are the members of the record."""
    if isinstance(value, list):
        return set().union(*[keys_of(item) for item in value])
    if not isinstance(value, dict):
        return set()
    inner = [keys_of(item) for key, item in value.items() if key != "records"]
    return set(value).union(*inner)


def reasons_of(explanation):
    filters = [one for package in explanation["packages"] for one in package["filters"]]
    return {one["reason"] for one in filters + explanation["absence"]}


def compare_options(compare, document, program):
    for subcommand, documented in documented_options(document).items():
        compare.equal(f"option of {subcommand}", documented, program.options(subcommand) - {"--help"})
    general = options_in(section(document, "## Options").partition("`query` and `explain` take")[0])
    top = {line for line in program.options() if line in {"--help", "--version"}}
    compare.equal("general option", general, top)


def compare_statuses(compare, document, program):
    rows = [[cell.strip() for cell in row.split("|")[1:-1]]
            for row in section(document, "## Exit statuses").splitlines() if row.startswith("| ")]
    subcommands = [WORD.findall(cell)[0] for cell in rows[0][1:]]
    compare.equal("subcommand with exit statuses", set(subcommands), set(documented_options(document)))
    for column, subcommand in enumerate(subcommands, 1):
        used = {row[0] for row in rows[1:] if row[column] and not row[column].startswith("Not used")}
        compare.equal(f"exit status of {subcommand}", used, program.statuses(subcommand))


def compare_json(compare, document, program, repository):
    query = section(document, "## `query`")
    keys = keys_of(program.document("query", repository, *MACHINE))
    compare.contained("key of query: documented, but not given", words_of_tables(query, "| Key |"), keys)
    compare.contained("key of query: not documented", keys, set(WORD.findall(query)))

    explain = section(document, "## `explain`")
    explained = [program.document("explain", repository, *MACHINE, "--package", package)
                 for package in PACKAGES]
    all_of_explain = keys_of(explained)
    compare.contained("key of explain: documented, but not given",
                      words_of_tables(explain, "| Key |"), all_of_explain)
    compare.contained("key of explain: not documented", all_of_explain - keys,
                      set(WORD.findall(explain)))

    listing = section(document, "## `list`")
    of_list = keys_of(program.document("list", repository))
    compare.contained("key of list: documented, but not given", words_of_tables(listing, "| Key |"),
                      of_list)
    compare.contained("key of list: not documented", of_list, set(WORD.findall(listing)))

    matrix = section(document, "## `matrix`")
    of_matrix = keys_of(program.document("matrix", repository, "--with-reasons", "--debug-records"))
    compare.contained("key of matrix: documented, but not given", words_of_tables(matrix, "| Key |"),
                      of_matrix)
    compare.contained("key of matrix: not documented", of_matrix - keys,
                      set(WORD.findall(matrix)))

    lint = section(document, "## `lint`")
    of_lint = keys_of(program.document("lint", repository))
    compare.contained("key of lint: documented, but not given", words_of_tables(lint, "| Key |"),
                      of_lint)
    compare.contained("key of lint: not documented", of_lint, set(WORD.findall(lint)))
    return set().union(*[reasons_of(explanation) for explanation in explained])


def compare_reasons(compare, document, given, sources):
    explain = section(document, "## `explain`")
    absent = words_of_tables(explain, "| `reason` | Meaning |") - {"reason"}
    rows = explain.partition("| `filter` | `reason` |")[2].partition("\n\n")[0]
    of_filters = {word for row in rows.splitlines()[2:] for word in WORD.findall(row.split("|")[2])}
    compare.contained("reason: not documented", given, absent | of_filters)
    literals = set()
    for path in pathlib.Path(sources).rglob("*.cpp"):
        literals |= set(re.findall(r'"([A-Za-z]+)"', path.read_text(encoding="utf-8")))
    compare.contained("reason: documented, but in no source", absent, literals)
    compare.contained("reason: documented, but in no source", of_filters, literals)


def main(document_path, program_path, repository, sources):
    document = pathlib.Path(document_path).read_text(encoding="utf-8")
    program = Program(program_path)
    compare = Comparison()
    compare_options(compare, document, program)
    compare_statuses(compare, document, program)
    given = compare_json(compare, document, program, repository)
    compare_reasons(compare, document, given, sources)
    return 1 if compare.failed else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
