#!/usr/bin/env python3
"""Measures how many faults the tests find: plants faults in the sources, one at a time and each in one line, and runs
the tests. A fault that no test finds either makes no difference or shows a missing assertion.

    cmake --preset native
    tools/plant_faults.py --count 100 --seed 1 [--room scan] [--jobs 2]
    tools/plant_faults.py --count 100 --seed 1 --only 17 42     those of that run again

The same seed and sources give the same faults. For each fault that compiles, tests run in this order until one fails:
those in the file of the same name, those of its room, all native ones with the slow ones last, those of the console.
A failing test has killed the fault. Survivors are listed with their changed lines.

The source tree is not changed. The altered file is compiled from build/faults/ and linked there with the objects of
the native build, which is brought up to date first. A fault can make a test delete anything. So the tests run in a
sandbox, where they can write to their own memory only. It needs Linux, and root or user namespaces.
"""
import argparse
import concurrent.futures
import json
import os
import pathlib
import random
import re
import resource
import shlex
import shutil
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
from line_faults import faults_in

TOP = pathlib.Path(__file__).resolve().parents[1]
BUILD = TOP / "build" / "native"
WORK = TOP / "build" / "faults"
CONSOLE_TESTS = ["console_program", "cleaning", "clean_pages", "pages", "registry_page"]
# Headers that more files than this include are skipped: compiling all these takes too long.
MAX_USERS = 12
# Everything can be read, but only memory can be written.
SANDBOX = ("mount --make-rprivate / && mount -o remount,bind,ro / && mount -t tmpfs -o size=4g none /tmp && "
           "mount -t tmpfs -o size=4g none /dev/shm && mount -t proc none /proc && cd \"$0\" && exec \"$@\"")
ROOT_SPACES = ["--mount", "--pid", "--net", "--ipc", "--fork", "--kill-child"]
MAX_MEMORY = 8 << 30
SLOW_SECONDS = 1.0


def in_sandbox(command, folder):
    spaces = ROOT_SPACES if os.geteuid() == 0 else ["--user", "--map-root-user", *ROOT_SPACES]
    return ["unshare", *spaces, "sh", "-c", SANDBOX, str(folder), *map(str, command)]


class Build:
    """The native build. Links its objects again, with an altered file in place of one of them."""

    def __init__(self):
        self._ninja("tavix-tests", "tavix-console")
        entries = json.loads((BUILD / "compile_commands.json").read_text())
        self.commands = {}  # by object, from the build folder
        self.objects = {}  # by source
        for entry in entries:
            words = shlex.split(entry["command"])
            made = words[words.index("-o") + 1]
            self.commands[made] = words
            self.objects[pathlib.Path(entry["file"])] = made
        self.links = {name: self._link_words(name) for name in ("tavix-tests", "tavix-console")}
        self.users = {}  # objects by header
        for line in self._ninja("-t", "deps").splitlines():
            if line and not line.startswith(" "):
                made = line.split(":")[0]
                concerned = made in self.commands and (self._is_of_products(made) or made in self.links["tavix-tests"])
            elif concerned and "/src/" in line:
                file = pathlib.Path(os.path.normpath(BUILD / line.strip()))
                self.users.setdefault(file, []).append(made)

    @staticmethod
    def _is_of_products(made):
        return re.match(r"CMakeFiles/tavix_\w+\.dir/src/", made)

    @staticmethod
    def _ninja(*arguments):
        return subprocess.run(["ninja", "-C", BUILD, *arguments], capture_output=True, text=True, check=True).stdout

    def _link_words(self, program):
        last = self._ninja("-t", "commands", program).strip().splitlines()[-1]
        return shlex.split(last.removeprefix(": && ").removesuffix(" && :"))

    def sources(self):
        """The sources of the products that this build compiles, and the headers that few of them include."""
        own = [file for file, made in self.objects.items() if self._is_of_products(made)]
        headers = [file for file, users in self.users.items()
                   if file.suffix == ".h" and file.is_relative_to(TOP / "src") and len(users) <= MAX_USERS]
        return sorted(own + headers)

    def compile(self, source, place):
        """Compiles all files that contain the altered file in `place`. Returns {old object: new object}, or None if one
        doesn't compile."""
        altered = place / "src" / source.relative_to(TOP / "src")
        made = {}
        for user in [self.objects[source]] if source.suffix == ".cpp" else self.users[source]:
            words = list(self.commands[user])
            made[user] = str(place / f"{len(made)}.o")
            words[words.index("-o") + 1] = made[user]
            if source.suffix == ".cpp":
                words[words.index("-c") + 1] = str(altered)
            # No warnings: a fault may leave names unused. No optimization: it takes time.
            words[1:1] = [f"-I{place / 'src'}"]
            words += ["-w", "-O0", "-g0"]
            if subprocess.run(words, cwd=BUILD, capture_output=True, check=False).returncode != 0:
                return None
        return made

    def link(self, program, made, place):
        words = [made.get(word, word) for word in self.links[program]]
        at = words.index("-o")
        # The linker takes nothing from the libraries that an object before them defines.
        more = [file for user, file in made.items() if self._is_of_products(user)]
        words[at:at + 2] = [*more, "-fuse-ld=gold", "-Wl,-S", "-o", str(place / program)]
        subprocess.run(words, cwd=BUILD, capture_output=True, check=True)
        return place / program


class Suites:
    """The tests of a source: those in the file of its name, then those of its room."""

    NAME = re.compile(r"^(?:TEST|TEST_F|TEST_P|TYPED_TEST|INSTANTIATE_TEST_SUITE_P)\((\w+),\s*(\w+)", re.M)

    @classmethod
    def _filter(cls, files):
        names = set()
        for file in files:
            for first, second in cls.NAME.findall(file.read_text(encoding="utf-8")):
                names |= {first, second}
        return ":".join(sorted(f"{name}.*:*/{name}.*" for name in names))

    @classmethod
    def stages(cls, source):
        room = TOP / "tests" / source.parent.relative_to(TOP / "src")
        own = [room / f"{source.stem}.cpp"]
        stages = [("its own tests", cls._filter(f for f in own if f.exists())),
                  ("its room", cls._filter(sorted(room.glob("*.cpp"))))]
        return [(name, names) for name, names in stages if names]


class Runner:
    def __init__(self, build):
        self.build = build
        # How long all tests take without a fault, in seconds. A fault may make them endless.
        self.usual = 600.0
        self.slow = []

    def _run(self, command, folder, environment=None):
        """Runs a command. Returns its output if it fails, otherwise None."""
        process = subprocess.Popen(
            in_sandbox(command, folder), stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=environment,
            preexec_fn=lambda: (resource.setrlimit(resource.RLIMIT_CORE, (0, 0)),
                                resource.setrlimit(resource.RLIMIT_AS, (MAX_MEMORY, MAX_MEMORY))))
        try:
            output = process.communicate(timeout=60 + 6 * self.usual)[0].decode("utf-8", "replace")
        except subprocess.TimeoutExpired:
            process.kill()
            process.communicate()
            return "no end"
        return None if process.returncode == 0 else f"{output}\nstatus {process.returncode}"

    def native(self, program, names):
        """Runs these tests. Returns the first that fails, or None."""
        output = self._run([program, f"--gtest_filter={names}", "--gtest_brief=1", "--gtest_fail_fast"], TOP)
        if output is None:
            return None
        failed = re.search(r"\[  FAILED  \] ([\w/]+\.[\w/]+)", output)
        return failed.group(1) if failed else output.splitlines()[-1]

    def console(self, program):
        environment = {**os.environ, "TAVIX_CONSOLE": str(program), "PYTHONDONTWRITEBYTECODE": "1"}
        output = self._run([sys.executable, "-m", "unittest", "-f", *CONSOLE_TESTS], TOP / "tests" / "console", environment)
        if output is None:
            return None
        failed = re.search(r"^(?:FAIL|ERROR): (.*)$", output, re.M)
        return failed.group(1) if failed else "the console's tests"

    def measure(self):
        """Runs all tests without a fault. A test that fails here would kill every fault."""
        begin = time.monotonic()
        done = subprocess.run(in_sandbox([BUILD / "tavix-tests", "--gtest_color=no"], TOP), capture_output=True, check=False)
        output = done.stdout.decode("utf-8", "replace")
        failed = "the native tests" if done.returncode != 0 else self.console(BUILD / "tavix-console")
        if failed:
            sys.exit(f"{output[-2000:]}\nwithout a fault there fail: {failed}")
        self.usual = time.monotonic() - begin
        took = re.findall(r"^\[       OK \] (\S+).* \((\d+) ms\)$", output, re.M)
        self.slow = [name for name, milliseconds in took if int(milliseconds) > SLOW_SECONDS * 1000]
        print(f"without a fault all tests took {self.usual:.0f} s", flush=True)

    def judge(self, number, source, line, fault):
        """Plants one fault and runs the tests. Returns the outcome in a word, and the test that killed it."""
        place = WORK / str(number)
        shutil.rmtree(place, ignore_errors=True)
        altered = place / "src" / source.relative_to(TOP / "src")
        altered.parent.mkdir(parents=True)
        lines = source.read_text(encoding="utf-8").split("\n")
        lines[line] = fault
        altered.write_text("\n".join(lines), encoding="utf-8")
        try:
            made = self.build.compile(source, place)
            if made is None:
                return "not compiled", ""
            tests = self.build.link("tavix-tests", made, place)
            slow = ":".join(self.slow) or "none"
            stages = [(stage, f"{names}-{slow}") for stage, names in Suites.stages(source)]
            for stage, names in [*stages, ("all native tests", f"*-{slow}"), ("the slow tests", slow)]:
                failed = self.native(tests, names)
                if failed:
                    return "killed", f"{failed} ({stage})"
            failed = self.console(self.build.link("tavix-console", made, place))
            return ("killed", f"{failed} (console)") if failed else ("survived", "")
        finally:
            shutil.rmtree(place, ignore_errors=True)


def choose(sources, seed):
    """One fault for each line. The seed selects the faults and their order."""
    by_line = {}
    for source in sources:
        for line, fault in faults_in(source.read_text(encoding="utf-8").split("\n")):
            by_line.setdefault((source, line), []).append(fault)
    places = sorted(by_line)
    chance = random.Random(seed)
    chance.shuffle(places)
    return [(source, line, chance.choice(by_line[source, line])) for source, line in places]


def report(number, source, line, fault, outcome, by):
    text = f"{number}: {outcome} {source.relative_to(TOP)}:{line + 1} {by}".rstrip()
    if outcome != "killed":
        was = source.read_text(encoding="utf-8").split("\n")[line]
        text += f"\n    - {was.strip()}\n    + {fault.strip()}"
    print(text, flush=True)


def main():
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("--count", type=int, default=20, help="how many faults that compile")
    options.add_argument("--seed", type=int, default=1)
    options.add_argument("--room", help="only below src/ROOM, or in this one file below src/")
    options.add_argument("--jobs", type=int, default=1, help="how many at a time")
    options.add_argument("--only", type=int, nargs="+", help="only the faults of that run with these numbers")
    chosen = options.parse_args()
    build = Build()
    room = TOP / "src" / (chosen.room or "")
    faults = choose([s for s in build.sources() if s == room or s.is_relative_to(room)], chosen.seed)
    runner = Runner(build)
    runner.measure()
    counts = {"killed": 0, "survived": 0, "not compiled": 0}
    numbers = iter(chosen.only or range(1, len(faults) + 1))
    with concurrent.futures.ThreadPoolExecutor(chosen.jobs) as pool:
        running = {}
        while True:
            tried = counts["killed"] + counts["survived"] + len(running)
            while len(running) < chosen.jobs and tried < chosen.count and (number := next(numbers, None)):
                running[pool.submit(runner.judge, number, *faults[number - 1])] = number
                tried += 1
            if not running:
                break
            for done in concurrent.futures.wait(running, return_when=concurrent.futures.FIRST_COMPLETED).done:
                number = running.pop(done)
                outcome, by = done.result()
                counts[outcome] += 1
                report(number, *faults[number - 1], outcome, by)
    print(f"{counts['killed']} killed, {counts['survived']} survived; {counts['not compiled']} not compiled; "
          f"seed {chosen.seed}")


if __name__ == "__main__":
    main()
