"""Runs the test programs on one change after the other."""

import os
import pathlib
import resource
import shutil
import signal
import subprocess
import sys
import time

from build import name_of
from mutants import SURVIVED, UNCOMPILED, UNDECIDED

SAME_EVERY_TIME = {"CI": "1", "GTEST_SHUFFLE": "0"}  # the seeds and the order of the tests
MEMORY = 4 << 30  # bytes of address space for a test program


class Tests:
    """The test programs, with bounds for changes that never end or take all memory: ten times the
    processor time that the tests take unchanged, and for what only waits ten times their time."""

    def __init__(self, build, area):
        self.programs = area.programs
        self._slow_tests = area.slow_tests
        memory = pathlib.Path("/dev/shm")
        self._folder = (memory if os.access(memory, os.W_OK) else build) / f"mutate.{os.getpid()}"
        self._build = build
        self._bounds = {}

    def pass_with(self, path, program, slow):
        if (program, slow) not in self._bounds:
            self._bounds[program, slow] = self._measure(program, slow)
        return self._run(path, slow, *self._bounds[program, slow])

    def _measure(self, program, slow):
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        start = time.monotonic()
        if not self._run(self._build / program, slow, resource.RLIM_INFINITY, None):
            sys.exit(f"mutate: {program} fails without a change")
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        used = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        return 10 * int(used + 1), 10 * (time.monotonic() - start) + 60

    def _run(self, path, slow, seconds, patience):
        def limit():
            resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds))
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        self._folder.mkdir(exist_ok=True)
        tests = self._slow_tests if slow else f"-{self._slow_tests}"
        process = subprocess.Popen(
            [path, "--gtest_brief=1", "--gtest_fail_fast", f"--gtest_filter={tests}"],
            cwd=self._build, preexec_fn=limit,
            env={**os.environ, "TMPDIR": str(self._folder), **SAME_EVERY_TIME},
            start_new_session=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        try:
            return process.wait(patience) == 0
        except subprocess.TimeoutExpired:
            return False
        finally:
            if process.poll() is None:
                os.killpg(process.pid, signal.SIGKILL)
                process.wait()
            shutil.rmtree(self._folder, ignore_errors=True)


def outcome_of(mutant, builder, tests, rounds):
    """Which program notices the change. rounds: the fast tests (False), the slow ones (True)."""
    objects = builder.compile(mutant)
    if objects is None:
        return UNCOMPILED
    programs = {}
    for slow in rounds:
        for program in tests.programs:
            if program not in programs:
                programs[program] = builder.link(program, objects)
            if programs[program] is None:
                return UNCOMPILED
            if not tests.pass_with(programs[program], program, slow):
                return f"noticed by {name_of(program)}"
    return SURVIVED if True in rounds else UNDECIDED
