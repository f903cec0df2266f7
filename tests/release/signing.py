"""Tests a release that was signed. TAVIX_SIGNED names its folder, with the certificate of the test, and TAVIX_DIST the
folder of the same release without signatures."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest
import zipfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "window"))
import driver

SIGNED = pathlib.Path(os.environ["TAVIX_SIGNED"]).resolve()
DIST = pathlib.Path(os.environ["TAVIX_DIST"]).resolve()
VERSION = (DIST / "latestver.txt").read_text(encoding="ascii")
ARCHIVES = ((f"tavix-{VERSION}-portable.zip", "Tavix/tavix.exe"),
            (f"tavix-console-{VERSION}.zip", "Tavix Console/tavix-console.exe"))


def signing(*arguments):
    return subprocess.run(["osslsigncode", *arguments], capture_output=True, text=True, check=False)


class Signing(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def program(self, dist, archive, name):
        with zipfile.ZipFile(dist / archive) as packed:
            file = self.folder / f"{dist.parent.name}-{pathlib.PurePosixPath(name).name}"
            file.write_bytes(packed.read(name))
            return file

    def check(self, file):
        done = signing("verify", "-CAfile", str(SIGNED / "test.pem"), "-in", str(file))
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)

    def test_programs_and_installer_are_signed(self):
        self.check(SIGNED / "dist" / "tavix-setup.exe")
        for archive, name in ARCHIVES:
            self.check(self.program(SIGNED / "dist", archive, name))

    def test_a_changed_byte_breaks_the_signature(self):
        data = bytearray((SIGNED / "dist" / "tavix-setup.exe").read_bytes())
        data[len(data) // 2] ^= 1
        changed = self.folder / "changed.exe"
        changed.write_bytes(data)
        self.assertNotEqual(signing("verify", "-CAfile", str(SIGNED / "test.pem"), "-in", str(changed)).returncode, 0)

    def test_without_its_signature_a_program_is_the_unsigned_one(self):
        for archive, name in ARCHIVES:
            signed = self.program(SIGNED / "dist", archive, name)
            bare, plain = self.folder / f"bare-{signed.name}", self.program(DIST, archive, name)
            done = signing("remove-signature", "-in", str(signed), "-out", str(bare))
            self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
            # Signing pads the file to eight bytes and sets the checksum of its header.
            self.assertEqual(without_checksum(bare)[:plain.stat().st_size], without_checksum(plain))
            self.assertLess(bare.stat().st_size - plain.stat().st_size, 8)

    def test_the_installed_program_and_the_uninstaller_are_signed(self):
        machine = driver.Machine()
        self.addCleanup(machine.close)
        machine.run(SIGNED / "dist" / "tavix-setup.exe", "/S")
        for name in ("tavix.exe", "uninstall.exe"):
            self.check(machine.drive_c / "Program Files" / "Tavix" / name)


def without_checksum(file):
    data = bytearray(file.read_bytes())
    at = int.from_bytes(data[0x3C:0x40], "little") + 24 + 64
    data[at:at + 4] = bytes(4)
    return bytes(data)


if __name__ == "__main__":
    unittest.main(verbosity=2)
