"""Tests the files of a release. TAVIX_DIST names their folder, TAVIX_BUILD the build folder they come from."""
import os
import pathlib
import re
import struct
import unittest
import zipfile

SOURCE = pathlib.Path(__file__).resolve().parents[2]
DIST = pathlib.Path(os.environ["TAVIX_DIST"]).resolve()
BUILD = pathlib.Path(os.environ["TAVIX_BUILD"]).resolve()
VERSION = re.search(r"project\(tavix VERSION (\S+)", (SOURCE / "CMakeLists.txt").read_text(encoding="utf-8"))[1]

# Every Windows since 7 has them.
SYSTEM_LIBRARIES = {
    "advapi32.dll", "comctl32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ntdll.dll", "ole32.dll", "oleaut32.dll",
    "shell32.dll", "shlwapi.dll", "user32.dll", "uxtheme.dll", "winhttp.dll"}
# ntdll, and the libraries that every Windows since 7 has among its KnownDLLs.
FOUND_WITHOUT_A_SEARCH = {
    "advapi32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "user32.dll", "ntdll.dll"}
ICON, MANIFEST, ICONS, VERSION_INFO, BITMAP = 3, 24, 14, 16, 2


class Executable:
    """A PE file, parsed as far as these tests need it."""

    def __init__(self, data):
        self.data = data
        pe, = struct.unpack_from("<I", data, 0x3C)
        assert data[pe:pe + 4] == b"PE\0\0"
        self.machine, count, self.time, self.symbols, _, optional = struct.unpack_from("<HHIIIH", data, pe + 4)
        header = pe + 24
        self.subsystem, self.characteristics = struct.unpack_from("<HH", data, header + 68)
        wide = struct.unpack_from("<H", data, header)[0] == 0x20B
        self.directories = header + (112 if wide else 96)
        self.sections = []
        for i in range(count):
            at = header + optional + 40 * i
            name = data[at:at + 8].rstrip(b"\0").decode()
            size, address, raw_size, raw = struct.unpack_from("<IIII", data, at + 8)
            self.sections.append((name, address, max(size, raw_size), raw))

    def offset(self, address):
        for _, begin, size, raw in self.sections:
            if begin <= address < begin + size:
                return raw + address - begin
        raise ValueError(hex(address))

    def directory(self, number):
        return struct.unpack_from("<II", self.data, self.directories + 8 * number)

    def imports(self, tables=((1, 20, 12), (13, 32, 4))):
        """The libraries that are loaded at start, and the delay-loaded ones."""
        names = set()
        for number, entry, field in tables:
            address, _ = self.directory(number)
            if address == 0:
                continue
            at = self.offset(address)
            while (name := struct.unpack_from("<I", self.data, at + field)[0]) != 0:
                begin = self.offset(name)
                names.add(self.data[begin:self.data.index(b"\0", begin)].decode().lower())
                at += entry
        return names

    def resources(self):
        """The resources: {(type, name): bytes}. Types and names are numbers or texts."""
        address, _ = self.directory(2)
        root = self.offset(address)

        def entries(at):
            named, numbered = struct.unpack_from("<HH", self.data, at + 12)
            for i in range(named + numbered):
                key, value = struct.unpack_from("<II", self.data, at + 16 + 8 * i)
                if key & 0x80000000:
                    begin = root + (key & 0x7FFFFFFF)
                    length, = struct.unpack_from("<H", self.data, begin)
                    key = self.data[begin + 2:begin + 2 + 2 * length].decode("utf-16-le")
                yield key, root + (value & 0x7FFFFFFF)

        found = {}
        for kind, names in entries(root):
            for name, languages in entries(names):
                for _, leaf in entries(languages):
                    begin, size = struct.unpack_from("<II", self.data, leaf)
                    found[kind, name] = self.data[self.offset(begin):self.offset(begin) + size]
        return found


class Program(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with zipfile.ZipFile(DIST / f"tavix-{VERSION}-portable.zip") as portable:
            cls.data = portable.read("Tavix/tavix.exe")
        cls.program = Executable(cls.data)

    def test_it_needs_system_libraries_only(self):
        imports = self.program.imports()
        print("\nimports:", ", ".join(sorted(imports)))
        self.assertIn("kernel32.dll", imports)
        self.assertLessEqual(imports, SYSTEM_LIBRARIES)

    def test_no_library_of_its_start_is_looked_for_beside_it(self):
        self.assertEqual(self.program.imports(((1, 20, 12),)) - FOUND_WITHOUT_A_SEARCH, set())

    def test_it_is_small_and_stripped(self):
        print(f"\n{len(self.data)} bytes")
        self.assertLess(len(self.data), 3_000_000)
        self.assertEqual(self.program.symbols, 0)
        self.assertEqual([name for name, *_ in self.program.sections if "debug" in name or name.startswith("/")], [])

    def test_it_is_a_64_bit_window_program_guarded_as_usual(self):
        self.assertEqual(self.program.machine, 0x8664)
        self.assertEqual(self.program.subsystem, 2)
        # High-entropy ASLR, DYNAMIC_BASE and NX_COMPAT.
        self.assertEqual(self.program.characteristics & 0x0160, 0x0160)

    def test_it_has_icon_version_manifest_and_pictures(self):
        resources = self.program.resources()
        kinds = [kind for kind, _ in resources]
        self.assertEqual(kinds.count(ICONS), 1)
        self.assertGreaterEqual(kinds.count(ICON), 3)
        version = resources[VERSION_INFO, 1].decode("utf-16-le", errors="ignore")
        for text in ("Tavix", VERSION, "tavix.exe", "Copyright \u00a9 2026"):
            self.assertIn(text, version)
        numbers = [int(n) for n in VERSION.split(".")] + [0]
        fixed = struct.pack("<4H", numbers[1], numbers[0], numbers[3], numbers[2])
        self.assertEqual(resources[VERSION_INFO, 1].count(fixed), 2)
        manifest = resources[MANIFEST, 1].decode()
        for text in ("highestAvailable", "Microsoft.Windows.Common-Controls", "longPathAware", "UTF-8"):
            self.assertIn(text, manifest)
        self.assertIn((BITMAP, "TITLE_BIG"), resources)

    def test_nothing_in_it_shows_when_or_where_it_was_built(self):
        self.assertEqual(self.program.time, 0)
        for place in (SOURCE, BUILD, pathlib.Path.home()):
            for text in (str(place).encode(), str(place).encode("utf-16-le")):
                self.assertNotIn(text, self.data)


class Folder(unittest.TestCase):
    def test_it_holds_what_the_site_serves(self):
        self.assertEqual({file.name for file in DIST.iterdir()},
                         {"tavix-setup.exe", f"tavix-{VERSION}-portable.zip", f"tavix-console-{VERSION}.zip",
                          "latestver.txt", "update.txt", "faq.htm", "SHA256SUMS", f"tavix-{VERSION}.spdx.json", "winget",
                          "scoop"})

    def test_the_version_is_that_of_the_program_and_nothing_else(self):
        self.assertEqual((DIST / "latestver.txt").read_bytes(), VERSION.encode())

    def test_the_notes_are_for_this_version_and_for_a_message_box(self):
        notes = (DIST / "update.txt").read_bytes()
        self.assertTrue(notes.startswith(f"Tavix {VERSION}\r\n".encode()))
        self.assertEqual(notes.count(b"\n"), notes.count(b"\r\n"))
        self.assertNotIn(b"@", notes)
        self.assertLess(notes.count(b"\n"), 20)

    def test_the_zip_holds_the_program_and_its_files(self):
        with zipfile.ZipFile(DIST / f"tavix-{VERSION}-portable.zip") as portable:
            self.assertIsNone(portable.testzip())
            self.assertEqual(sorted(portable.namelist()),
                             ["Tavix/Help.chm", "Tavix/LICENSE.txt", "Tavix/NOTICES.txt", "Tavix/README.txt", "Tavix/lang/de/menus.dll", "Tavix/lang/de/tips.dll",
                              "Tavix/lang/en/menus.dll", "Tavix/lang/en/tips.dll", "Tavix/menus.dll",
                              "Tavix/res/scan.gif", "Tavix/res/scan.htm", "Tavix/tavix.exe", "Tavix/tips.dll"])
            self.assertEqual(portable.read("Tavix/tips.dll"), (SOURCE / "res/lang/en/tips.dll").read_bytes())

    def test_the_zip_of_the_console_holds_it_and_its_words(self):
        with zipfile.ZipFile(DIST / f"tavix-console-{VERSION}.zip") as archive:
            self.assertIsNone(archive.testzip())
            self.assertEqual(sorted(archive.namelist()), [f"Tavix Console/{name}" for name in (
                "LICENSE.txt", "NOTICES.txt", "README.txt", "completions/_tavix-console",
                "completions/tavix-console.bash", "completions/tavix-console.ps1", "console-output.schema.json",
                "tavix-console.exe")])
            self.assertIn(f"Tavix console {VERSION}\r\n", archive.read("Tavix Console/README.txt").decode("utf-8"))
            program = Executable(archive.read("Tavix Console/tavix-console.exe"))
        self.assertLessEqual(program.imports(), SYSTEM_LIBRARIES)
        self.assertEqual(program.subsystem, 3)
        self.assertEqual(program.time, 0)

    def test_licence_and_notices_are_those_of_the_tree(self):
        for archive, folder in ((f"tavix-{VERSION}-portable.zip", "Tavix"),
                                (f"tavix-console-{VERSION}.zip", "Tavix Console")):
            with zipfile.ZipFile(DIST / archive) as packed:
                for name, source in (("LICENSE.txt", "LICENSE"), ("NOTICES.txt", "packaging/notices.txt")):
                    self.assertEqual(packed.read(f"{folder}/{name}").replace(b"\r\n", b"\n"),
                                     (SOURCE / source).read_bytes())

    def test_the_change_log_begins_with_this_version(self):
        log = (SOURCE / "CHANGELOG.md").read_text(encoding="utf-8")
        self.assertEqual(re.search(r"^## (\S+)", log, re.M)[1], VERSION)

    def test_the_zip_tells_how_to_turn_it_german_and_back(self):
        with zipfile.ZipFile(DIST / f"tavix-{VERSION}-portable.zip") as portable:
            told = portable.read("Tavix/README.txt").decode("utf-8-sig")
            for language in ("en", "de"):
                self.assertIn(f"lang\\{language}", told)
                for name in ("tips.dll", "menus.dll"):
                    self.assertIn(name, told)
                    self.assertEqual(portable.read(f"Tavix/lang/{language}/{name}"),
                                     (SOURCE / "res" / "lang" / language / name).read_bytes())
        self.assertTrue(told.startswith(f"Tavix {VERSION}\r\n"))
        self.assertEqual(told.count("\n"), told.count("\r\n"))
        self.assertNotIn("@", told)

    def test_the_installer_asks_for_the_rights_it_needs_and_shows_its_version(self):
        installer = Executable((DIST / "tavix-setup.exe").read_bytes())
        resources = installer.resources()
        self.assertIn("requireAdministrator", resources[MANIFEST, 1].decode())
        self.assertIn(VERSION, resources[VERSION_INFO, 1].decode("utf-16-le", errors="ignore"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
