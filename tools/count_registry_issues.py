#!/usr/bin/env python3
"""Counts what the Registry page should find in a machine folder: count_registry_issues.py MACHINE

Reads the text of the registry exports and the names of the files. Shares no code with the program. Doesn't support
hex(5), deleted keys and links."""
import configparser
import json
import pathlib
import re
import sys

WINDOWS = "Software\\Microsoft\\Windows\\CurrentVersion\\"
NT = "Software\\Microsoft\\Windows NT\\CurrentVersion\\"
ENTRY = re.compile(r'(@|"(?:[^"\\]|\\.)*")\s*=\s*("(?:[^"\\]|\\.)*"|[^\r\n]*)', re.S)


def plain(quoted):
    return "" if quoted == "@" else re.sub(r"\\(.)", r"\1", quoted[1:-1], flags=re.S)


def shown(data):
    """The data of a value as text."""
    if data.startswith('"'):
        return plain(data)
    kind, _, digits = data.partition(":")
    if kind.lower() == "dword":
        return str(int(digits, 16))
    raw = bytes(int(pair, 16) for pair in re.findall(r"[0-9a-fA-F]{2}", digits))
    kind = kind.lower()
    if kind in ("hex(1)", "hex(2)", "hex(7)"):
        text = raw.decode("utf-16-le", "surrogatepass") if len(raw) % 2 == 0 else raw[:-1].decode("utf-16-le")
        return " ".join(text.rstrip("\0").split("\0")) if kind == "hex(7)" else text.rstrip("\0")
    if (kind, len(raw)) in (("hex(4)", 4), ("hex(b)", 8)):
        return str(int.from_bytes(raw, "little"))
    return " ".join(f"{byte:02X}" for byte in raw)


class Registry:
    """Keys by their path in capitals."""

    def __init__(self, files):
        self.values, self.children = {}, {}
        for file in files:
            raw = file.read_bytes()
            text = raw.decode("utf-16") if raw[:2] in (b"\xff\xfe", b"\xfe\xff") else raw.decode("utf-8-sig")
            text = re.sub(r"\\\r?\n\s*", "", text)
            key, at = None, 0
            while at < len(text):
                end = text.find("\n", at)
                end = len(text) if end < 0 else end
                line = text[at:end].strip("\r")
                entry = ENTRY.match(text, at)
                if line.startswith("["):
                    key = self.make(line[1:line.rindex("]")])
                elif entry and key is not None:
                    self.values[key][plain(entry[1]).upper()] = (plain(entry[1]), shown(entry[2]))
                    end = max(end, entry.end())
                at = end + 1

    def make(self, path):
        parts = path.split("\\")
        if parts[0].upper() == "HKEY_CLASSES_ROOT":
            parts[:1] = ["HKEY_LOCAL_MACHINE", "Software", "Classes"]
        for depth in range(1, len(parts) + 1):
            key = "\\".join(parts[:depth]).upper()
            if key not in self.values:
                self.values[key], self.children[key] = {}, {}
                if depth > 1:
                    self.children["\\".join(parts[:depth - 1]).upper()][parts[depth - 1].upper()] = parts[depth - 1]
        return "\\".join(parts).upper()

    def places(self, path):
        """The keys that a path of the page names. Values and spelling of the first one win."""
        hive, _, rest = path.partition("\\")
        if hive == "HKCR":
            return [root + "\\SOFTWARE\\CLASSES\\" + rest.upper() for root in ("HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE")]
        return [({"HKLM": "HKEY_LOCAL_MACHINE\\", "HKCU": "HKEY_CURRENT_USER\\"}[hive] + rest).upper()]

    def keys(self, path):
        merged = {}
        for place in self.places(path):
            merged = {**self.children.get(place, {}), **merged}
        return sorted(merged.values(), key=lambda name: name.upper().encode("utf-16-be"))

    def entries(self, path):
        """Names with data, in the order made."""
        return [pair for place in self.places(path) for pair in self.values.get(place, {}).values()]

    def value(self, path, name=""):
        found = [self.values[p][name.upper()][1] for p in self.places(path) if name.upper() in self.values.get(p, {})]
        return found[0] if found else ""


class Files:
    def __init__(self, machine):
        self.kinds = {"C:": "folder"} if (machine / "drives" / "C").is_dir() else {}
        for entry in (machine / "drives").glob("?/**/*"):
            parts = entry.relative_to(machine / "drives").parts
            self.kinds["\\".join([parts[0] + ":", *parts[1:]]).upper()] = "folder" if entry.is_dir() else "file"

    def kind(self, path):
        if re.match(r"[A-Za-z]:", path) is None or re.search(r'[<>"|?*\x00-\x1f]|:.*:', path):
            return None
        names = [name.rstrip(" .") for name in re.split(r"[\\/]+", path)]
        return self.kinds.get("\\".join(name for name in names if name).upper())

    def file(self, path):
        return self.kind(path) == "file"

    def folder(self, path):
        return self.kind(path) == "folder"


def resolve(s, files):
    whole = s.strip(" ").replace('"', "")
    if files.file(whole):
        return whole
    if re.match(r"@\"?.:\\|@%", s, re.S):
        s = s[1:]
    cut = s.find("/")
    if cut < 0:
        if not 0 <= s.find(":") < 3 or "genuinst.exe" in s.lower():
            return ""
        cut = next((s.find(mark) for mark in (" -", ' "%1"', " %1", ",-") if mark in s), -1)
    r = (s if cut < 0 else s[:cut]).strip(" ").replace('"', "")
    while "\\" in r and r.rfind(" ") > r.rfind("\\"):
        r = r[:r.rfind(" ")]
    if "\\" not in r:
        return ""
    exe = s.lower().find(".exe")
    return r if exe < 0 else r[:exe + 4]


def split(parts, separator):
    """Joins the items and cuts the text again, as the program does: items with the separator fall apart."""
    text = separator.join(parts)
    return text.split(separator) if text else []


def count(machine):
    reg = Registry(sorted((machine / "registry").glob("*.reg"), key=lambda file: file.name.upper()))
    files = Files(machine)
    facts = configparser.RawConfigParser(strict=False, allow_no_value=True, delimiters=("=",))
    facts.read(machine / "machine.ini", encoding="utf-8-sig")

    def special(name):
        return facts.get("Special Folders", name, fallback="")

    def keys(path):
        return split(reg.keys(path), "*SK*")

    def names(path):
        return split([name for name, _ in reg.entries(path)], "*IS*")

    def pairs(path):
        found = [item.split("*NDS*") for item in split([n + "*NDS*" + d for n, d in reg.entries(path)], "*IS*")]
        assert all(len(item) > 1 for item in found), path
        return [item[:2] for item in found]

    def gone(command):
        path = resolve(command, files)
        return path != "" and not files.file(path)

    def gone_values(root, below="", name=""):
        return sum(gone(reg.value(f"{root}\\{key}{below}", name)) for key in keys(root))

    def obsolete(key):
        values = reg.entries(key)
        text = "*IS*".join(n + "*NDS*" + d for n, d in values)
        return not keys(key) and len(values) < 2 and (text == "" or re.fullmatch(r".NDS.+", text, re.S) is not None)

    libraries = "*SK*".join(reg.keys("HKCR\\TypeLib"))
    users = "HKLM\\" + WINDOWS + "Installer\\UserData"
    menu = f"HKCU\\{WINDOWS}Explorer\\MenuOrder\\Start Menu2\\Programs"
    return {
        "Missing Shared DLLs": sum(not files.file(n) for n in names(f"HKLM\\{WINDOWS}SharedDlls")),
        "ActiveX and Class Issues": sum(gone_values(root + "CLSID", "\\InprocServer32") for root in
                                        ("HKCR\\", "HKLM\\Software\\Classes\\", "HKCU\\Software\\Classes\\")),
        "Type Libraries Issues": sum(libraries == "" or reg.value(f"HKCR\\Interface\\{k}\\TypeLib") not in libraries
                                     for k in keys("HKCR\\Interface")),
        "Application Shells Issues": sum(gone_values(f"HKCR\\Applications\\{a}\\shell", "\\command")
                                         for a in keys("HKCR\\Applications")),
        "Fonts Issues": sum(not files.file(special("Fonts") + "\\" + d.strip(" "))
                            for _, d in pairs(f"HKLM\\{NT}Fonts")),
        "Application Paths Issues": gone_values(f"HKLM\\{WINDOWS}App Paths"),
        "Help Files Issues": sum(not files.file(d.strip(" ") + "\\" + n.strip(" ")) for key in ("Help", "Html Help")
                                 for n, d in pairs(f"HKLM\\Software\\Microsoft\\Windows\\{key}")),
        "Redundant Installers":
            sum(p != "" and not files.folder(p)
                for p in (resolve(n, files) for n in names(f"HKLM\\{WINDOWS}Installer\\Folders")))
            + sum(gone_values(f"{users}\\{u}\\Patches", "", "LocalPackage")
                  + gone_values(f"{users}\\{u}\\Products", "\\InstallProperties", "LocalPackage") for u in keys(users)),
        "Obsolete Software": sum(obsolete(f"{hive}\\Software\\{k}") for hive in ("HKLM", "HKCU")
                                 for k in keys(hive + "\\Software")),
        "Run at Startup Issues": sum(not files.file(resolve(d, files)) for hive in ("HKLM", "HKCU")
                                     for _, d in pairs(f"{hive}\\{WINDOWS}Run")),
        "Start Menu Ordering Issues": sum(
            not any(files.file(f"{special(f)}\\{k}.lnk") or files.folder(f"{special(f)}\\{k}")
                    for f in ("AllUsersPrograms", "Programs")) for k in keys(menu)),
        "MUI Cache Issues": sum(gone(n) for n in names("HKCU\\Software\\Microsoft\\Windows\\ShellNoRoam\\MUICache")),
        "Uninstaller Issues": sum(
            not (k.startswith("{") and k.find("-") >= 8)
            and gone(reg.value(f"HKLM\\{WINDOWS}Uninstall\\{k}", "UninstallString"))
            for k in keys(f"HKLM\\{WINDOWS}Uninstall")),
        "Appearance Schemes": sum(n != "" for n in names("HKCU\\Control Panel\\Appearance\\Schemes")),
        "Cursor Schemes": sum(n != "" for n in names(f"HKLM\\{WINDOWS}Control Panel\\Cursors\\Schemes")),
        "Internet Country Codes": len(keys(f"HKLM\\{WINDOWS}Telephony\\Country List")),
        "Time Zones": len(keys(f"HKLM\\{NT}Time Zones")),
    }


if __name__ == "__main__":
    print(json.dumps(count(pathlib.Path(sys.argv[1])), indent=1))
