"""Tests what a release tells other tools: checksums, the list of parts, the manifests for winget and scoop. TAVIX_DIST
names the folder. The rules below are those of the published schemas for the keys that Tavix uses; other keys are refused.
`.github/workflows/release.yml` holds the same files against the published schemas themselves."""
import hashlib
import json
import os
import pathlib
import sys
import unittest

sys.path.append("/usr/lib/python3/dist-packages")  # Debian's packages, also for another Python
import jsonschema
import yaml

DIST = pathlib.Path(os.environ["TAVIX_DIST"]).resolve()
VERSION = (DIST / "latestver.txt").read_text(encoding="ascii")
SETUP, PORTABLE, CONSOLE = "tavix-setup.exe", f"tavix-{VERSION}-portable.zip", f"tavix-console-{VERSION}.zip"
RELEASES = f"/releases/{VERSION}/"


def table(required, **properties):
    return {"type": "object", "additionalProperties": False, "properties": properties,
            "required": list(properties) if required == "all" else required}


def texts(*values):
    return {"enum": list(values)}


def listed(items, least=1):
    return {"type": "array", "items": items, "minItems": least, "uniqueItems": True}


def words(most, pattern=".+"):
    return {"type": "string", "minLength": 1, "maxLength": most, "pattern": pattern}


TEXT, URL = words(2048), words(2048, "^https://.+$")
IDENTIFIER = words(128, r"^[^.\s\\/:*?\"<>|]{1,32}(\.[^.\s\\/:*?\"<>|]{1,32}){1,7}$")
SHA256 = words(64, "^[0-9a-f]{64}$")
WINGET = {"PackageIdentifier": IDENTIFIER, "PackageVersion": words(128, r"^[^\\/:*?\"<>|]+$"),
          "ManifestVersion": texts("1.6.0")}
MANIFESTS = {
    "winget/Tavix.Tavix.yaml": table("all", **WINGET, ManifestType=texts("version"), DefaultLocale=words(20)),
    "winget/Tavix.Tavix.installer.yaml": table(
        "all", **WINGET, ManifestType=texts("installer"), InstallerLocale=words(20), Platform=listed(texts("Windows.Desktop")),
        MinimumOSVersion=words(30, r"^\d{1,5}(\.\d{1,5}){0,3}$"), InstallerType=texts("nullsoft"), Scope=texts("machine"),
        InstallModes=listed(texts("interactive", "silent")), InstallerSwitches=table("all", InstallLocation=words(512)),
        ExpectedReturnCodes=listed(table("all", InstallerReturnCode={"type": "integer", "minimum": 1},
                                         ReturnResponse=texts("packageInUse"))),
        UpgradeBehavior=texts("install"), ElevationRequirement=texts("elevatesSelf"), ProductCode=words(255),
        ReleaseDate=words(10, r"^\d{4}-\d\d-\d\d$"),
        Installers=listed(table("all", Architecture=texts("x64"), InstallerUrl=URL,
                                InstallerSha256=words(64, "^[0-9A-F]{64}$")))),
    "winget/Tavix.Tavix.locale.en-US.yaml": table(
        "all", **WINGET, ManifestType=texts("defaultLocale"), PackageLocale=words(20), Publisher=words(256, "^.{2,}$"),
        PublisherUrl=URL, PackageName=words(256, "^.{2,}$"), PackageUrl=URL, License=words(512, "^.{3,}$"),
        Copyright=words(512), ShortDescription=words(256, "^.{3,}$"), Moniker=words(40)),
    **{f"scoop/{name}.json": table(
        ["version", "description", "homepage", "license", "architecture", "extract_dir", "checkver", "autoupdate"],
        version=words(50, r"^[\w.+-]+$"), description=TEXT, homepage=URL, license=TEXT,
        architecture=table("all", **{"64bit": table("all", url=URL, hash=SHA256)}), extract_dir=TEXT, bin=TEXT,
        shortcuts=listed({"type": "array", "items": TEXT, "minItems": 2, "maxItems": 4}),
        checkver=table("all", url=URL, regex=TEXT),
        autoupdate=table("all", architecture=table("all", **{"64bit": table("all", url=URL)})))
       for name in ("tavix", "tavix-console")},
}
REFERENCE = words(200, r"^SPDXRef-[\w.-]+$")
PARTS = table(
    "all", spdxVersion=texts("SPDX-2.3"), dataLicense=texts("CC0-1.0"), SPDXID=texts("SPDXRef-DOCUMENT"), name=TEXT,
    documentNamespace=words(2048, "^https://[^#]+$"),
    creationInfo=table("all", created=words(20, r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$"),
                       creators=listed(words(200, "^(Person|Organization|Tool): .+$"))),
    packages=listed(table(
        ["SPDXID", "name", "versionInfo", "downloadLocation", "filesAnalyzed", "licenseConcluded", "licenseDeclared",
         "copyrightText"],
        SPDXID=REFERENCE, name=TEXT, versionInfo=TEXT, downloadLocation=URL, filesAnalyzed=texts(False),
        licenseConcluded=TEXT, licenseDeclared=TEXT, copyrightText=TEXT,
        supplier=words(200, "^(Person|Organization): .+$"),
        checksums=listed(table("all", algorithm=texts("SHA256"), checksumValue=SHA256)))),
    hasExtractedLicensingInfos=listed(table("all", licenseId=words(100, r"^LicenseRef-[\w.-]+$"), extractedText=TEXT)),
    relationships=listed(table("all", spdxElementId=REFERENCE, relatedSpdxElement=REFERENCE,
                               relationshipType=texts("DESCRIBES", "STATIC_LINK"))))


def digest(name):
    return hashlib.sha256((DIST / name).read_bytes()).hexdigest()


def read(name):
    text = (DIST / name).read_text(encoding="utf-8")
    return yaml.safe_load(text) if name.endswith(".yaml") else json.loads(text)


class Checksums(unittest.TestCase):
    def test_they_are_those_of_all_other_files(self):
        lines = (DIST / "SHA256SUMS").read_text(encoding="ascii").splitlines()
        told = {name: value for value, name in (line.split("  ", 1) for line in lines)}
        self.assertEqual(set(told), {str(file.relative_to(DIST)) for file in DIST.rglob("*") if file.is_file()}
                         - {"SHA256SUMS"})
        for name, value in told.items():
            self.assertEqual(value, digest(name), name)


class Manifests(unittest.TestCase):
    def test_they_keep_the_rules_of_their_readers(self):
        for name, rules in MANIFESTS.items():
            with self.subTest(name):
                jsonschema.validate(read(name), rules)

    def test_they_name_this_version_and_the_files_that_were_made(self):
        installer = read("winget/Tavix.Tavix.installer.yaml")["Installers"][0]
        self.assertTrue(installer["InstallerUrl"].endswith(RELEASES + SETUP))
        self.assertEqual(installer["InstallerSha256"].lower(), digest(SETUP))
        for name, archive in (("tavix", PORTABLE), ("tavix-console", CONSOLE)):
            place = read(f"scoop/{name}.json")["architecture"]["64bit"]
            self.assertTrue(place["url"].endswith(RELEASES + archive))
            self.assertEqual(place["hash"], digest(archive))
        for name in MANIFESTS:
            manifest = read(name)
            self.assertEqual(manifest.get("PackageVersion", manifest.get("version")), VERSION, name)

    def test_a_scoop_update_leads_to_the_next_version_of_the_same_file(self):
        for name in ("tavix", "tavix-console"):
            manifest = read(f"scoop/{name}.json")
            later = manifest["autoupdate"]["architecture"]["64bit"]["url"]
            self.assertEqual(later.replace("$version", VERSION), manifest["architecture"]["64bit"]["url"])


class Parts(unittest.TestCase):
    def setUp(self):
        self.parts = read(f"tavix-{VERSION}.spdx.json")

    def test_the_list_keeps_the_rules_of_its_format(self):
        jsonschema.validate(self.parts, PARTS)
        known = {part["SPDXID"] for part in self.parts["packages"]} | {"SPDXRef-DOCUMENT"}
        self.assertEqual(len(known), len(self.parts["packages"]) + 1)
        for relation in self.parts["relationships"]:
            self.assertLessEqual({relation["spdxElementId"], relation["relatedSpdxElement"]}, known)
        named = {word for part in self.parts["packages"] for word in part["licenseConcluded"].split()
                 if word.startswith("LicenseRef-")}
        self.assertEqual({info["licenseId"] for info in self.parts["hasExtractedLicensingInfos"]}, named)

    def test_it_has_the_downloads_with_their_checksums(self):
        found = {part["name"]: part["checksums"][0]["checksumValue"] for part in self.parts["packages"]
                 if "checksums" in part}
        self.assertEqual(found, {name: digest(name) for name in (SETUP, PORTABLE, CONSOLE)})

    def test_each_part_has_its_notice(self):
        notices = (pathlib.Path(__file__).resolve().parents[2] / "packaging" / "notices.txt").read_text(encoding="utf-8")
        for part in self.parts["packages"]:
            if "checksums" not in part:
                self.assertIn(part["name"].lower().replace("-crt", ""), notices.lower())


if __name__ == "__main__":
    unittest.main(verbosity=2)
