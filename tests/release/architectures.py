"""What a release for each architecture is called, and what its manifests say of it."""
import json
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

MANIFESTS = pathlib.Path(__file__).resolve().parents[2] / "packaging" / "manifests.py"
SITE = "https://www.tavix.example"


class Architectures(unittest.TestCase):
    def made(self, architecture, *packages):
        """The names of the packages in the manifests: of winget's, and of each of Scoop's by its architecture."""
        with tempfile.TemporaryDirectory() as folder:
            place = pathlib.Path(folder)
            for name in packages:
                (place / name).write_bytes(name.encode())
            subprocess.run(["python3", MANIFESTS, "1.2.3", architecture, SITE, place], check=True,
                           env={**os.environ, "SOURCE_DATE_EPOCH": "1700000000"})
            self.assertEqual([file.name for file in place.glob("*.json")],
                             [f"tavix-1.2.3{self.ending(architecture)}.spdx.json"])
            winget = (place / "winget" / "Tavix.Tavix.installer.yaml").read_text(encoding="utf-8")
            self.assertIn(f"  - Architecture: {architecture}\n", winget)
            scoop = [json.loads((place / "scoop" / f"{name}.json").read_text(encoding="utf-8"))
                     for name in ("tavix", "tavix-console")]
        return re.findall(rf"InstallerUrl: {SITE}/releases/1\.2\.3/(\S+)", winget), [
            {kind: of["url"].rsplit("/", 1)[1] for kind, of in manifest["architecture"].items()} for manifest in scoop]

    @staticmethod
    def ending(architecture):
        return "" if architecture == "x64" else f"-{architecture}"

    def test_packages_for_x64_have_plain_names(self):
        setup, portable, console = "tavix-setup.exe", "tavix-1.2.3-portable.zip", "tavix-console-1.2.3.zip"
        self.assertEqual(self.made("x64", setup, portable, console),
                         ([setup], [{"64bit": portable}, {"64bit": console}]))

    def test_packages_for_arm64_say_so_in_their_names(self):
        setup, portable, console = (
            "tavix-setup-arm64.exe", "tavix-1.2.3-portable-arm64.zip", "tavix-console-1.2.3-arm64.zip")
        self.assertEqual(self.made("arm64", setup, portable, console),
                         ([setup], [{"arm64": portable}, {"arm64": console}]))


if __name__ == "__main__":
    unittest.main()
