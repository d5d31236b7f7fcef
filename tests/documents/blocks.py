"""Runs the code blocks of the documents, or finds the reason why one is not run.

    blocks.py ROOT PROGRAM BLOCKS_TXT

BLOCKS_TXT has a line for each block with a language: document | first line | what is done, which is

    run STATUS...   its commands are run on the sample repository, and end with these statuses
    descriptor      it is XML, in which lint finds no error
    otherwise       the reason why it is not run here

The first line is without a comment. The scripts and presets that a block names must exist.
"""

import json
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

SAMPLE = "examples/repository"
PLACEHOLDERS = {"FOLDER": SAMPLE, "packages": SAMPLE, "/srv/packages": SAMPLE,
                "ID": "orx_drv_ethlan_1_2", "orx_drv_a": "orx_drv_ethlan_1_2"}
PACK = """<?xml version="1.0" encoding="utf-8"?>
<CIM><DECLARATION><DECLGROUP><VALUE.OBJECT>{}</VALUE.OBJECT></DECLGROUP></DECLARATION></CIM>
"""


def documents_of(root):
    return sorted(root.glob("*.md")) + sorted(root.glob("docs/*.md")) + [root / "examples/README.md"]


def blocks_of(text):
    """Of all blocks, so that the end of one does not begin another, those with a language."""
    blocks = re.findall(r"^```([a-z]*)\n(.*?)^```$", text, re.M | re.S)
    return [block for language, block in blocks if language]


def first_line_of(block):
    return re.sub(r"\s+# .*", "", block.splitlines()[0]).strip()


def missing_names(root, block):
    presets = json.loads((root / "CMakePresets.json").read_text(encoding="utf-8"))
    known = {preset["name"] for kind in presets.values() if isinstance(kind, list)
             for preset in kind if not preset.get("hidden")}
    scripts = re.findall(r"\bscripts/[a-z./-]+\b", block)
    return ([f"no file {script}" for script in scripts if not (root / script).is_file()] +
            [f"no preset {preset}" for preset in re.findall(r"--preset (\S+)", block)
             if preset not in known])


def run_commands(root, program, block, statuses):
    commands = [shlex.split(line, comments=True) for line in block.splitlines()]
    if len(commands) != len(statuses):
        return [f"{len(commands)} commands, {len(statuses)} statuses"]
    faults = []
    for command, status in zip(commands, statuses):
        arguments = [PLACEHOLDERS.get(argument, argument) for argument in command[1:]]
        if command[0] == "scripts/query.sh":  # which builds the program first
            arguments.insert(0, "query")
        elif command[0] != "querypackage-cli":
            faults.append(f"{command[0]} cannot be run here")
        real = subprocess.run([program, *arguments], cwd=root, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, timeout=120).returncode
        if real != int(status):
            faults.append(f"{shlex.join(command)} ends with {real}")
    return faults


def value_of(name, block):
    return re.search(rf'NAME="{name}".*?<VALUE>(.*?)</VALUE>', block, re.S).group(1)


def check_descriptor(program, block):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        text = block if block.startswith("<?xml") else PACK.format(block)
        (folder / value_of("xmlFilename", block)).write_text(text, encoding="utf-8")
        if 'NAME="payload"' in block:
            (folder / value_of("payload", block)).write_text("payload", encoding="utf-8")
        lint = subprocess.run([program, "lint", name], stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, timeout=120)
        found = lint.stdout.decode()
        return [] if lint.returncode == 0 and "in 1 descriptor file" in found else [found]


def check(root, program, block, handling):
    words = handling.split()
    if words[0] == "run":
        return run_commands(root, program, block, words[1:])
    if handling == "descriptor":
        return check_descriptor(program, block)
    return [] if len(words) > 2 else ["no reason"]


def main(root_path, program, list_path):
    root = pathlib.Path(root_path)
    listed = {}
    for line in pathlib.Path(list_path).read_text(encoding="utf-8").splitlines():
        document, first, handling = [part.strip() for part in line.split(" | ")]
        listed[document, first] = handling
    faults = []
    seen = set()
    for path in documents_of(root):
        document = str(path.relative_to(root))
        for block in blocks_of(path.read_text(encoding="utf-8")):
            key = document, first_line_of(block)
            if key in seen:
                faults.append(f"{key}: another block begins with the same line")
            seen.add(key)
            faults += [f"{key}: {fault}" for fault in missing_names(root, block)]
            if key in listed:
                faults += [f"{key}: {fault}" for fault in check(root, program, block, listed[key])]
            else:
                faults.append(f"{key}: not in the list of blocks")
    faults += [f"{key}: in the list, but in no document" for key in sorted(set(listed) - seen)]
    print("\n".join(faults) if faults else f"{len(seen)} blocks")
    return 1 if faults or not seen else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
