"""Builds the test programs from a copy of the sources, and with a changed file beside that build."""

import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys


def name_of(program):
    return pathlib.PurePath(program).name


def run_quietly(command, **options):
    """What the command prints; the end of this program where it fails."""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          **options)
    if done.returncode != 0:
        sys.exit(f"{done.stdout}\nmutate: failed: {shlex.join(map(str, command))}")
    return done.stdout


def copy_sources(root, copy):
    """Writes only what differs, so that only that is built anew."""
    listed = run_quietly(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                         cwd=root)
    names = {name for name in listed.split("\0") if (root / name).is_file()}
    for name in names:
        target = copy / name
        if target.is_file() and target.read_bytes() == (root / name).read_bytes():
            continue
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(root / name, target)
    for path in [path for path in copy.rglob("*") if path.is_file()]:
        if str(path.relative_to(copy)) not in names:
            path.unlink()


def build_tests(copy, build, area):
    parts = {"TOOLS": area.needs_tools, "EXAMPLES": False, "BENCHMARKS": False}
    wanted = [f"-DQUERYPACKAGE_BUILD_{part}={'ON' if on else 'OFF'}" for part, on in parts.items()]
    run_quietly(["cmake", "-S", copy, "-B", build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                 "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g0", "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=gold",
                 "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON", "-DQUERYPACKAGE_BUILD_TESTS=ON",
                 *wanted])
    run_quietly(["cmake", "--build", build, "--target",
                 *map(name_of, area.programs)])


class Builder:
    """Compiles a changed file and links the test programs with it."""

    def __init__(self, work, area):
        self._area = area
        self.build = work / "build"
        self._root = work / "src"
        self._sources = self._root / area.folder
        self._folder = work / "mutant"
        self._includes = work / "includes"
        self._environment = {**os.environ, "CCACHE_DISABLE": "1"}
        self._calls = self._read_calls()
        self._links = {program: self._link_of(program) for program in area.programs}
        self._prepared = {}

    def _read_calls(self):
        """The compiler's calls by the sources' paths: those of the module, as paths in it, and
        those of the tests, as paths in the project, for the headers that they include."""
        entries = json.loads((self.build / "compile_commands.json").read_text())
        programs = "|".join(map(name_of, self._area.programs))
        targets = rf"/({self._area.libraries}|{programs})\.dir/"
        # Not the sources of precompiled headers, which are in the build.
        return {self._name_of(pathlib.Path(entry["file"])): shlex.split(entry["command"])
                for entry in entries if re.search(targets, entry["command"])
                and pathlib.Path(entry["file"]).is_relative_to(self._root)}

    def _name_of(self, path):
        return str(path.relative_to(self._sources if path.is_relative_to(self._sources)
                                    else self._root))

    def compile(self, mutant):
        """The changed objects by the ones that they replace; None if one does not compile."""
        shutil.rmtree(self._folder, ignore_errors=True)
        module = self._folder / "module"
        if mutant.file in self._calls:
            (module / mutant.file).parent.mkdir(parents=True)
            sources = {mutant.file: module / mutant.file}
            # A source includes its own header without its folder.
            options = ["-include", str(self._prepare(mutant.file)),
                       "-I", str((self._sources / mutant.file).parent)]
        else:
            # Quoted includes look beside the including file first, so everything is copied.
            shutil.copytree(self._sources, module)
            sources = {name: self._root / name if name.startswith("tests/") else module / name
                       for name in self._users_of(mutant.file)}
            options = ["-I", str(module)]
        (module / mutant.file).write_text(mutant.text)
        objects = {}
        for number, (name, path) in enumerate(sources.items()):
            made = str(self._folder / f"{number}.o")
            if not self._call([*self._compiler(name, options), "-c", str(path), "-o", made]):
                return None
            call = self._calls[name]
            objects[call[call.index("-o") + 1]] = made
        return objects

    def link(self, program, objects):
        """The program's path; None if it does not link."""
        made = str(self._folder / name_of(program))
        command = [objects.get(part, part) for part in self._links[program]]
        command[command.index("-o") + 1] = made
        return made if self._call(command) else None

    def _link_of(self, program):
        commands = run_quietly(["ninja", "-C", self.build, "-t", "commands", "-s",
                                program])
        return [part for part in shlex.split(commands.strip().splitlines()[-1])
                if part not in (":", "&&")]

    def _compiler(self, name, options=()):
        """The compiler's call without its files, the options first. A warning is no reason to
        leave a change out."""
        kept, skips = [], False
        for part in self._calls[name]:
            if not skips and part not in ("-o", "-c", "-MD", "-MT", "-MF", "-Werror"):
                kept.append(part)
            skips = part in ("-o", "-c", "-MT", "-MF")
        first = next(i for i, part in enumerate(kept) if part.startswith("-"))
        return [*kept[:first], *options, *kept[first:], "-w"]

    def _call(self, command):
        return subprocess.run(command, cwd=self.build, env=self._environment,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0

    def _prepare(self, name):
        """A header of the file's includes, compiled once: they are most of a compilation."""
        if name not in self._prepared:
            self._includes.mkdir(exist_ok=True)
            header = self._includes / f"of_{name.replace('/', '_')}.h"
            lines = (self._sources / name).read_text().splitlines()
            header.write_text("".join(f"{line}\n" for line in lines if line.startswith("#include")))
            beside = ["-I", str((self._sources / name).parent)]
            run_quietly([*self._compiler(name, beside), "-x", "c++-header", str(header), "-o",
                         f"{header}.gch"], cwd=self.build, env=self._environment)
            self._prepared[name] = header
        return self._prepared[name]

    def _users_of(self, header):
        """The sources that include this header, themselves or through other headers."""
        paths = [path for folder in (self._sources, self._root / "tests")
                 for path in folder.rglob("*.[ch]*")]
        included = {path: {self._included_by(path, name) for name in
                           re.findall(r'^#include "([^"]+)"', path.read_text(), re.M)}
                    for path in paths}
        found, grown = set(), {self._sources / header}
        while grown != found:
            found = grown
            grown = found | {path for path, includes in included.items() if includes & found}
        return sorted(name for name in map(self._name_of, found) if name in self._calls)

    def _included_by(self, path, name):
        """The file that an #include finds; None for one of another library."""
        folders = (path.parent, self._sources, self._root / "tests" / "support")
        files = (folder / name for folder in folders)
        return next((file for file in files if file.is_file()), None)
