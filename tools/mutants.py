"""A copy of the tree in which tools/mutate makes its changes, one at a time, and runs the tests."""
import json
import os
import resource
import shlex
import signal
import subprocess
import tempfile
import time

import mutations

UNNOTICED = "unnoticed"
# What the folder's own tests let through, until the others have been asked.
LET_THROUGH = "let through"
# Verdicts on what is no change.
NO_CHANGE = ("does not compile", "same code")

# The tests of the folders, and those above that could notice too, the quick ones first.
OWN = ["storage_tests", "model_tests", "recording_tests", "controller_tests"]
ABOVE = ["scenario_tests", "component_tests", "guide_tests", "workbench_tests", "allocation_tests", "fault_tests"]
# By the folder that is changed; its own is the first.
PROGRAMS = {"storage": OWN + ABOVE, "model": OWN[1:] + ABOVE, "recording": OWN[2:] + ABOVE, "controller": OWN[3:] + ABOVE}

# A test that takes this many times as long as without the change, and a little, is held to hang.
PATIENCE = 4
A_LITTLE = 10
# For one that waits without working.
LONGEST = 1800
MEMORY = 4 << 30
LARGEST_FILE = 1 << 30
# What bench/instructions/count answers when the counts at hand are another compiler's.
NOTHING_TO_COMPARE = 3


def in_bounds(seconds):
    """Limits a test program: a change may make it run, grow or write for ever."""
    def limit():
        resource.setrlimit(resource.RLIMIT_CPU, (int(seconds), int(seconds) + 5))
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
        resource.setrlimit(resource.RLIMIT_FSIZE, (LARGEST_FILE, LARGEST_FILE))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    return limit


class Bench:
    def __init__(self, root, commit):
        self.root = os.path.abspath(root)
        self.build = os.path.join(self.root, "build/linux-debug")
        if not os.path.exists(root):
            subprocess.run(["git", "clone", "--quiet", "--shared", "--no-checkout", ".", root], check=True)
        subprocess.run(["git", "-C", root, "checkout", "--quiet", "--force", "--detach", commit], check=True)
        for preset in ("linux-debug", "linux-release"):
            subprocess.run(["cmake", "--preset", preset], cwd=root, stdout=subprocess.DEVNULL, check=True)
        self.counted = os.path.join(self.root, "build/linux-release")
        self.paths, self.seconds = {}, {}

    def prepare(self, programs):
        subprocess.run(["cmake", "--build", self.build, "--parallel", "2", "--target", *programs],
                       stdout=subprocess.DEVNULL, check=True)
        self.paths.update((name, self.path_of(name)) for name in programs)

    def path_of(self, program):
        for folder, _, files in os.walk(os.path.join(self.build, "tests")):
            if program in files:
                return os.path.join(folder, program)
        raise FileNotFoundError(program)

    def time_of(self, program):
        """Seconds of processor time when nothing is changed and no other bench is at work."""
        before, start = resource.getrusage(resource.RUSAGE_CHILDREN), time.monotonic()
        if self.fails(program, LONGEST):
            raise RuntimeError(f"{program} fails without a change")
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        used = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        print(f"  {program}: {used:.1f} s, {time.monotonic() - start:.1f} s by the clock", flush=True)
        return used

    def fails(self, program, seconds):
        """"" or how the program failed."""
        with tempfile.TemporaryDirectory(prefix="vestrel-mutation-", ignore_cleanup_errors=True) as scratch:
            test = subprocess.Popen([self.paths[program], "--gtest_fail_fast", "--gtest_brief=1"], cwd=scratch,
                                    env={**os.environ, "TMPDIR": scratch}, stdin=subprocess.DEVNULL,
                                    stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
                                    preexec_fn=in_bounds(seconds))
            try:
                code = test.wait(LONGEST)
            except subprocess.TimeoutExpired:
                code = -signal.SIGXCPU
            finally:
                try:
                    os.killpg(test.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
            test.wait()
        if code in (-signal.SIGXCPU, -signal.SIGKILL):
            return f"{program}, which did not end"
        return program if code else ""

    def verdict(self, change, before):
        """What becomes of a change, of which nothing is known yet or which the folder's own tests let through."""
        path = os.path.join(self.root, change.path)
        own, *others = PROGRAMS[change.path.split("/", maxsplit=1)[0]]
        with open(path, encoding="utf-8") as file:
            original = file.read()
        try:
            self.write(path, mutations.applied(change, original))
            if before == LET_THROUGH:
                return self.noticed_by(others) or UNNOTICED
            if not self.builds(own):
                return "does not compile"
            noticed = self.noticed_by([own])
            if noticed:
                return noticed
            changed = self.optimised(path)
            self.write(path, original)
            if self.optimised(path) == changed:
                return "same code"
            self.write(path, mutations.applied(change, original))
            return self.noticed_by_counts() or LET_THROUGH
        finally:
            self.write(path, original)

    def builds(self, program):
        return subprocess.run(["cmake", "--build", self.build, "--parallel", "2", "--target", program],
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False).returncode == 0

    def noticed_by(self, programs):
        for program in programs:
            if not self.builds(program):
                raise RuntimeError(f"{program} does not link")
            failed = self.fails(program, PATIENCE * self.seconds[program] + A_LITTLE)
            if failed:
                return f"noticed by {failed}"
        return None

    def noticed_by_counts(self):
        """Whether a hot path needs over a tenth more instructions: what takes a quick way away does nothing else."""
        build = ["cmake", "--build", self.counted, "--parallel", "2", "--target", "vestrel_instructions"]
        if subprocess.run(build, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False).returncode:
            return "noticed by the compiler's warnings"
        count = subprocess.run(["timeout", "-k", "5", "600", "bench/instructions/count"], cwd=self.root,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)
        return None if count.returncode in (0, NOTHING_TO_COMPARE) else "noticed by the instruction counts"

    def optimised(self, path):
        """The code that an optimising compiler makes of the file."""
        with open(os.path.join(self.build, "compile_commands.json"), encoding="utf-8") as file:
            entry = next(entry for entry in json.load(file) if entry["file"] == path)
        command = shlex.split(entry["command"])
        with tempfile.TemporaryDirectory() as folder:
            output = os.path.join(folder, "code.o")
            command[command.index("-o") + 1] = output
            subprocess.run(command + ["-O2"], cwd=entry["directory"], check=True)
            with open(output, "rb") as code:
                return code.read()

    @staticmethod
    def write(path, text):
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
