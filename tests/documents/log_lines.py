"""Compares docs/log-lines.md with the texts of the log: log_lines.py LOG_LINES_MD LOG_TEXTS_H

Every text is in a line of the document, and every line of the document consists of texts and of
placeholders such as <path>.
"""

import re
import sys

TEXT = re.compile(r'"((?:[^"\\]|\\.)*)"')
LINE_COLUMNS = {"Line", "Begins", "Ends", "Instead of both, if it is switched off"}


def texts_of(header):
    """The string literals of the namespace LogText, neighbouring ones joined."""
    code = re.sub(r"//.*", "", header[header.index("namespace LogText") :])
    joined = re.sub(r'"\s*\n\s*"', "", code)
    return set(TEXT.findall(joined))


def cells_of(row):
    return [cell.strip() for cell in row.strip().strip("|").split("|")]


def lines_of(document):
    """The cells of the columns that hold lines of the log, without their backticks."""
    columns = []
    for row in document.splitlines():
        if not row.startswith("|"):
            columns = []
            continue
        cells = cells_of(row)
        if not columns:
            columns = [title in LINE_COLUMNS for title in cells]
            continue
        for cell, is_line in zip(cells, columns):
            if is_line and cell.startswith("`"):
                yield cell.strip("`")


def main(document_path, header_path):
    with open(header_path, encoding="utf-8") as file:
        texts = texts_of(file.read())
    with open(document_path, encoding="utf-8") as file:
        lines = list(lines_of(file.read()))
    documented = {part for line in lines for part in re.split(r"<[a-z]+>", line) if part}
    for text in sorted(texts - documented):
        print(f"not in the document: {text!r}")
    for part in sorted(documented - texts):
        print(f"not a text of the log: {part!r}")
    print(f"{len(texts)} texts, {len(lines)} lines of the document")
    return 0 if texts and texts == documented else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
