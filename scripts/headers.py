"""Compiles each header of the project by itself, with the options of a source that is near it."""
import concurrent.futures
import json
import os
import pathlib
import shlex
import subprocess
import sys

root = pathlib.Path.cwd()
build = pathlib.Path(sys.argv[1])

# What names an output or the precompiled headers, with its argument.
WITH_ARGUMENT = {"-o", "-include", "-MF", "-MT", "-c"}
ALONE = {"-MD", "-Winvalid-pch", "-fpch-preprocess"}


def options(entry):
    words = iter(shlex.split(entry["command"])[1:])
    kept = []
    for word in words:
        if word in WITH_ARGUMENT:
            next(words)
        elif word not in ALONE:
            kept.append(word)
    return kept


def nearest(header, entries):
    """The source with the longest common path; among them its own, or the one with most folders."""
    def shared(entry):
        common = os.path.commonpath([entry["file"], header])
        own = entry["file"].removesuffix(".cpp") == str(header).removesuffix(".h")
        return len(common), own, entry["command"].count(" -I")
    return max(entries, key=shared)


def compile_alone(header, entries):
    command = [os.environ.get("CXX", "g++"), *options(nearest(header, entries)), "-fsyntax-only",
               "-x", "c++", "-include", str(header), os.devnull]
    result = subprocess.run(command, cwd=build, capture_output=True, text=True)
    return header.relative_to(root), result.returncode, result.stderr


def main():
    entries = json.loads((build / "compile_commands.json").read_text())
    listed = subprocess.run(["git", "ls-files", "*.h"], capture_output=True, text=True, check=True)
    headers = [root / name for name in listed.stdout.split() if (root / name).exists()]
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for header, status, errors in pool.map(lambda header: compile_alone(header, entries), headers):
            if status != 0:
                failed += 1
                print(f"{header} does not compile by itself:\n{errors}")
    print(f"{len(headers)} headers, {failed} of which do not compile by themselves")
    return failed != 0 or not headers


sys.exit(main())
