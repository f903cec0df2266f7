"""When memory runs out, the console ends with one line and nothing is lost."""
import pathlib
import resource
import shutil
import subprocess
import unittest

from machine_case import CONSOLE, Machine, run

# The sanitizers need more address space than any limit leaves.
SANITIZED = b"__asan_init" in pathlib.Path(CONSOLE).read_bytes()

FILES = 200


class OddPath(Machine):
    def test_half_a_character_is_refused(self):
        for path in (b"\xed\xa0\x80", b"a\xed\xb0\x80b", b"\xff"):
            self.assertEqual(self.refused_bytes(path), "tavix-console: --machine is no UTF-8 text")

    def refused_bytes(self, path):
        done = subprocess.run([CONSOLE, b"--machine", path], capture_output=True, timeout=300)
        self.assertEqual((done.returncode, done.stdout), (2, b""), done)
        return done.stderr.decode().rstrip("\n")


class TooLarge(Machine):
    def sparse(self, name, size):
        self.write(name, "")
        with open(self.folder / name, "r+b") as file:
            file.truncate(size)

    def test_facts_are_refused(self):
        self.sparse("machine.ini", 1 << 40)
        self.assertEqual(self.refused(3, "--machine", self.folder),
                         "tavix-console: machine.ini: is bigger than 16 MiB")

    def test_a_file_of_the_registry_is_refused(self):
        self.write("machine.ini", "[Drives]\nC=2\n")
        self.sparse("registry/large.reg", 100 << 30)
        self.assertEqual(self.refused(3, "--machine", self.folder),
                         "tavix-console: registry/large.reg: is bigger than 1024 MiB")

    def test_attributes_are_refused_and_stay(self):
        self.write("machine.ini", "[Drives]\nC=2\n")
        self.sparse("attributes.ini", 100 << 30)
        self.assertEqual(self.refused(3, "--machine", self.folder),
                         "tavix-console: attributes.ini: can't be read")
        self.assertEqual((self.folder / "attributes.ini").stat().st_size, 100 << 30)

    def test_settings_are_as_good_as_missing(self):
        self.write("machine.ini", "[Drives]\nC=2\n")
        self.sparse("drives/C/MORVDataPath/TVX/tvx.dll", 100 << 30)
        self.objects("--page", "system")


@unittest.skipIf(SANITIZED, "needs a build without sanitizers")
class LackOfMemory(Machine):
    def seed(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        self.write("machine.ini", "[Environment]\nWinDir=C:\\WINDOWS\n[Drives]\nC=2,System\n")
        for number in range(FILES):
            self.write(f"drives/C/WINDOWS/logs/{number}.log", f"log {number}" * 50)
        values = "".join(f"\"url{n}\"=\"http://example.org/{n}\"\n" for n in range(FILES))
        self.write("registry/user.reg", "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Software\\"
                   "Microsoft\\Internet Explorer\\TypedUrls]\n" + values)

    def least_enough(self, status_with):
        """The least limit that gives status 0, to within a page."""
        low, high = 1 << 20, 1 << 30
        self.assertEqual(status_with(high), 0)
        while high - low > 4096:
            middle = (low + high) // 2
            low, high = (low, middle) if status_with(middle) == 0 else (middle, high)
        return high

    def status_with(self, limit, *arguments):
        """The exit status of a run that is limited to this many bytes of address space."""
        done = run(*arguments, preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (limit, limit)))
        if done.returncode == 3:
            self.assertEqual(done.stderr, b"tavix-console: the memory of this system is exhausted\n")
        return done.returncode

    def clean_with(self, limit):
        self.seed()
        return self.status_with(limit, "--machine", self.folder, "--json", "--clean", "--page", "system", "--function",
                                "Windows Log Files", "--set", "Cleaning Method/Method=S")

    def test_running_out_before_the_first_statement_gives_the_line_too(self):
        """Down to the limits with which the system can't load the program: then its loader says so, by 127."""
        limit = self.least_enough(lambda tried: self.status_with(tried, "--version")) - 4096
        found = []
        while (status := self.status_with(limit, "--version")) != 127:
            found.append(status)
            limit -= 4096
        self.assertEqual(set(found), {3})

    def test_running_out_at_any_moment_gives_one_line_and_loses_nothing(self):
        high = self.least_enough(self.clean_with)
        ended = 0
        for step in range(1, 31):
            status = self.clean_with(high - step * 32768)
            self.assertIn(status, (0, 3), step)
            ended += status == 3
            for number in range(FILES):
                places = [self.folder / "drives/C" / place / f"{number}.log" for place in ("WINDOWS/logs", "TVXBak")]
                found = [place.read_text() for place in places if place.exists()]
                self.assertEqual(found, [f"log {number}" * 50])
            self.assertEqual(len(self.scan("--function", "iertu")[0]), FILES)
            self.assertEqual([str(p) for p in self.folder.rglob(".tavix:*")], [])
        self.assertGreater(ended, 25)


if __name__ == "__main__":
    unittest.main()
