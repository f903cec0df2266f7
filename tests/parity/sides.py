"""The same machine on two sides: a Wine prefix, in which tavix-console --live runs, and a machine folder for the native
tavix-console --machine.

TAVIX_BUILD names the build folder of the Windows programs. TAVIX_NATIVE_CONSOLE names the native console. Without it
one is built, in build/native if that exists."""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

SOURCE = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(SOURCE / "tests" / "window"), str(SOURCE / "tools")]
import driver


def native_console():
    if "TAVIX_NATIVE_CONSOLE" in os.environ:
        return pathlib.Path(os.environ["TAVIX_NATIVE_CONSOLE"]).resolve()
    build = SOURCE / "build" / "native"
    if not (build / "build.ninja").exists():
        build = driver.BUILD / "native-console"
        subprocess.run(["cmake", "-S", SOURCE, "-B", build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=RelWithDebInfo"],
                       check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", build, "--target", "tavix-console"], check=True, stdout=subprocess.DEVNULL)
    return build / "tavix-console"


class Live:
    """A private prefix with the Windows console on its drive C:."""

    CONSOLE = "C:\\tavix-console.exe"

    def __init__(self, zone="UTC0"):
        self.zone = zone
        self.machine = driver.Machine()
        self.drive_c = self.machine.drive_c
        shutil.copy(driver.BUILD / "tavix-console.exe", self.drive_c)
        users = self.drive_c / "users"
        self.user = next(entry.name for entry in users.iterdir() if entry.name != "Public")
        self.machine.environment["TZ"] = zone

    def close(self):
        self.machine.close()

    def run(self, *arguments):
        output = self.machine.run(self.CONSOLE, "--live", "--json", *arguments)
        return [json.loads(line) for line in output.splitlines()]

    def folders(self):
        """The facts that a machine.ini needs to describe this prefix: folders, environment, drives and event logs."""
        profile = f"C:\\users\\{self.user}"
        local, roaming = profile + "\\AppData\\Local\\Microsoft\\Windows", profile + "\\AppData\\Roaming"
        shell, all_users = roaming + "\\Microsoft\\Windows", "C:\\ProgramData\\Microsoft\\Windows"
        return {
            "Environment": {"WinDir": "C:\\windows", "USERNAME": self.user},
            "Folders": {"32": local + "\\INetCache", "33": local + "\\INetCookies", "34": local + "\\History",
                        "9966": "C:\\windows\\system32"},
            "Special Folders": {"Recent": shell + "\\Recent", "Fonts": "C:\\windows\\Fonts",
                                "AllUsersPrograms": all_users + "\\Start Menu\\Programs",
                                "Programs": shell + "\\Start Menu\\Programs", "0": "C:\\users\\Public\\Desktop",
                                "1": all_users + "\\Start Menu", "5": roaming, "10": profile + "\\Desktop",
                                "11": shell + "\\Start Menu"},
            "Temporary Folders": {"User": profile + "\\Temp", "System": "C:\\windows\\Temp"},
            "Drives": {"C": "2"},
            "Event Logs": {"System": "0", "Application": "0", "Security": "0"},
        }

    def place(self, path):
        """The host's path of a file on drive C, in the letter case of names that exist. Makes nothing."""
        at = self.drive_c
        for name in path[3:].split("\\"):
            there = at.is_dir() and next((e.name for e in at.iterdir() if e.name.casefold() == name.casefold()), None)
            at = at / (there or name)
        return at


class Native:
    """A machine folder whose drive C has the files of a prefix: hard links, so that both see the same times."""

    def __init__(self, live, console):
        self.console, self.zone = console, live.zone
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="machine-", dir=driver.WORK))
        (self.folder / "drives").mkdir()
        subprocess.run(["cp", "-al", live.drive_c, self.folder / "drives" / "C"], check=True)
        self.drive_c = self.folder / "drives" / "C"
        lines = []
        for section, keys in live.folders().items():
            lines += [f"[{section}]", *(f"{key}={value}" for key, value in keys.items()), ""]
        (self.folder / "machine.ini").write_text("\n".join(lines), encoding="utf-8")

    def close(self):
        shutil.rmtree(self.folder)

    def run(self, *arguments):
        done = subprocess.run([self.console, "--machine", self.folder, "--json", *arguments], check=True,
                              stdout=subprocess.PIPE, timeout=300, env={**os.environ, "TZ": self.zone})
        return [json.loads(line) for line in done.stdout.splitlines()]
