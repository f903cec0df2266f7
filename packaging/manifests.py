#!/usr/bin/env python3
"""manifests.py VERSION ARCHITECTURE SITE FOLDER: writes what other tools read about the release in FOLDER. The
architecture is x64 or arm64; the names of the packages end with it unless it is x64.

    tavix-VERSION.spdx.json          the parts of the programs, in SPDX 2.3
    winget/Tavix.Tavix*.yaml         for the Windows Package Manager, in its manifest version 1.6.0
    scoop/tavix.json, tavix-console.json

The site keeps the files of each version at SITE/releases/VERSION, so that a manifest of an older version stays right.
"""
import datetime
import hashlib
import json
import os
import pathlib
import subprocess
import sys

VERSION, ARCHITECTURE, SITE, FOLDER = *sys.argv[1:3], sys.argv[3].rstrip("/"), pathlib.Path(sys.argv[4])
RELEASES = f"{SITE}/releases/{VERSION}"
SUFFIX = "" if ARCHITECTURE == "x64" else f"-{ARCHITECTURE}"
SETUP, PORTABLE = f"tavix-setup{SUFFIX}.exe", f"tavix-{VERSION}-portable{SUFFIX}.zip"
CONSOLE = f"tavix-console-{VERSION}{SUFFIX}.zip"
WORDS = "Finds and removes what a Windows system no longer needs"
MADE = datetime.datetime.fromtimestamp(int(os.environ["SOURCE_DATE_EPOCH"]), datetime.timezone.utc)


def digest(name):
    return hashlib.sha256((FOLDER / name).read_bytes()).hexdigest()


def package_version(name):
    """The version of the Debian package that a library was linked from."""
    return subprocess.run(["dpkg-query", "-W", "-f", "${source:Version}", name], check=True, capture_output=True,
                          text=True).stdout


def write_json(path, content):
    path.parent.mkdir(exist_ok=True)
    path.write_text(json.dumps(content, indent=2) + "\n", encoding="utf-8")


# The list of parts.

LINKED = (  # name, Debian package, licence, address
    ("libstdc++", "gcc-mingw-w64-x86-64-posix", "GPL-3.0-or-later WITH GCC-exception-3.1", "https://gcc.gnu.org"),
    ("libgcc", "gcc-mingw-w64-x86-64-posix", "GPL-3.0-or-later WITH GCC-exception-3.1", "https://gcc.gnu.org"),
    ("winpthreads", "mingw-w64-x86-64-dev", "MIT AND BSD-3-Clause", "https://www.mingw-w64.org"),
    ("mingw-w64-crt", "mingw-w64-x86-64-dev", "ZPL-2.1 AND LicenseRef-Lucent AND LicenseRef-public-domain",
     "https://www.mingw-w64.org"),
)
INSTALLER_LINKED = (
    ("nsis", "nsis", "Zlib AND LicenseRef-LZMA-for-NSIS", "https://nsis.sourceforge.io"),
)


def part(name, version, licence, address, **more):
    return {"SPDXID": f"SPDXRef-{name.replace('+', 'x')}", "name": name, "versionInfo": version,
            "downloadLocation": address, "filesAnalyzed": False, "licenseConcluded": licence, "licenseDeclared": licence,
            "copyrightText": "NOASSERTION", **more}


def download(name):
    return part(name, VERSION, "MIT", f"{RELEASES}/{name}", supplier="Organization: the Tavix authors",
                checksums=[{"algorithm": "SHA256", "checksumValue": digest(name)}])


def parts():
    downloads = [download(name) for name in (SETUP, PORTABLE, CONSOLE)]
    libraries = [part(name, package_version(package), licence, address) for name, package, licence, address in LINKED]
    installers = [part(name, package_version(package), licence, address)
                  for name, package, licence, address in INSTALLER_LINKED]
    holds = [(whole, linked) for whole in downloads for linked in libraries]
    holds += [(downloads[0], linked) for linked in installers]
    return {
        "spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT", "name": f"tavix-{VERSION}",
        "documentNamespace": f"{RELEASES}/tavix-{VERSION}.spdx.json",
        "creationInfo": {"created": MADE.strftime("%Y-%m-%dT%H:%M:%SZ"),
                         "creators": ["Organization: the Tavix authors", "Tool: packaging/manifests.py"]},
        "packages": downloads + libraries + installers,
        "hasExtractedLicensingInfos": [
            {"licenseId": f"LicenseRef-{name}", "extractedText": f"See NOTICES.txt: {place}"}
            for name, place in (("Lucent", "conversion of numbers (gdtoa)"),
                                ("public-domain", "the C run-time of mingw-w64"),
                                ("LZMA-for-NSIS", "the LZMA decompressor in NSIS"))],
        "relationships":
            [{"spdxElementId": "SPDXRef-DOCUMENT", "relationshipType": "DESCRIBES", "relatedSpdxElement": whole["SPDXID"]}
             for whole in downloads] +
            [{"spdxElementId": whole["SPDXID"], "relationshipType": "STATIC_LINK", "relatedSpdxElement": linked["SPDXID"]}
             for whole, linked in holds],
    }


# The Windows Package Manager.

IDENTIFIER, MANIFEST = "Tavix.Tavix", "1.6.0"


def winget(kind, *lines):
    """A manifest: a line `key: value` each. Values that YAML could take for something else are quoted by the caller."""
    schema = f"# yaml-language-server: $schema=https://aka.ms/winget-manifest.{kind}.{MANIFEST}.schema.json"
    ending = {"version": "", "installer": ".installer", "defaultLocale": ".locale.en-US"}[kind]
    text = "\n".join((schema, "", f"PackageIdentifier: {IDENTIFIER}", f'PackageVersion: "{VERSION}"', *lines,
                      f"ManifestType: {kind}", f"ManifestVersion: {MANIFEST}", ""))
    folder = FOLDER / "winget"
    folder.mkdir(exist_ok=True)
    (folder / f"{IDENTIFIER}{ending}.yaml").write_text(text, encoding="utf-8")


def write_winget():
    winget("version", "DefaultLocale: en-US")
    winget("installer", "InstallerLocale: en-US", "Platform:", "  - Windows.Desktop", "MinimumOSVersion: 6.1.7601.0",
           "InstallerType: nullsoft", "Scope: machine", "InstallModes:", "  - interactive", "  - silent",
           "InstallerSwitches:", '  InstallLocation: /D=<INSTALLPATH>',
           "ExpectedReturnCodes:", "  - InstallerReturnCode: 2", "    ReturnResponse: packageInUse",
           "UpgradeBehavior: install", "ElevationRequirement: elevatesSelf", "ProductCode: Tavix",
           f'ReleaseDate: "{MADE:%Y-%m-%d}"', "Installers:", f"  - Architecture: {ARCHITECTURE}",
           f"    InstallerUrl: {RELEASES}/{SETUP}", f"    InstallerSha256: {digest(SETUP).upper()}")
    winget("defaultLocale", "PackageLocale: en-US", "Publisher: the makers of Tavix", f"PublisherUrl: {SITE}",
           "PackageName: Tavix", f"PackageUrl: {SITE}", "License: MIT", "Copyright: Copyright (c) 2026 the Tavix authors",
           f"ShortDescription: {WORDS}.", "Moniker: tavix")


# Scoop.

def scoop(name, archive, folder, words, **more):
    architecture = {"x64": "64bit", "arm64": "arm64"}[ARCHITECTURE]
    write_json(FOLDER / "scoop" / f"{name}.json", {
        "version": VERSION, "description": words, "homepage": SITE, "license": "MIT",
        "architecture": {architecture: {"url": f"{RELEASES}/{archive}", "hash": digest(archive)}}, "extract_dir": folder,
        "checkver": {"url": f"{SITE}/latestver.txt", "regex": "([\\d.]+)"},
        "autoupdate": {"architecture": {architecture: {"url": f"{SITE}/releases/$version/{archive.replace(VERSION, '$version')}"}}},
        **more})


def main():
    write_json(FOLDER / f"tavix-{VERSION}{SUFFIX}.spdx.json", parts())
    write_winget()
    scoop("tavix", PORTABLE, "Tavix", f"{WORDS}.", shortcuts=[["tavix.exe", "Tavix"]])
    scoop("tavix-console", CONSOLE, "Tavix Console", "Tavix on the command line.", bin="tavix-console.exe")


if __name__ == "__main__":
    main()
