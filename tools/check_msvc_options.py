#!/usr/bin/env python3
"""check_msvc_options.py BUILD: whether a build folder that was configured for clang-cl gives it only options that it
knows, and none of GCC's. clang-cl takes some of those too, and cl doesn't.

BUILD/compile_commands.json has the commands. Each set of options is tried once, on a file without includes."""
import json
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

OF_GCC = re.compile(r"-(W[a-z]|f[a-z]|m[a-z]|g\d?$|O\d?$|static|shared|pthread|std=|l[a-z])")


def of_gcc(build):
    """The options of GCC among the flags of build.ninja."""
    flags = re.findall(r"^  (?:LINK_)?FLAGS = (.*)$", (build / "build.ninja").read_text(encoding="utf-8"), re.M)
    return sorted({word for line in flags for word in line.split() if OF_GCC.match(word)})


def options(entry):
    """The options of a command, without the files that it reads and writes."""
    words = shlex.split(entry["command"])
    return tuple(word for word in words if word not in ("-c", "--", entry["file"]) and not word.startswith(("/Fo", "/Fd")))


def main(build):
    commands = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    tried = {options(entry) for entry in commands if entry["file"].endswith(".cpp")}
    unknown = 0
    with tempfile.TemporaryDirectory() as folder:
        source = pathlib.Path(folder) / "nothing.cpp"
        source.write_text("int main() { return 0; }\n", encoding="ascii")
        for words in sorted(tried):
            # An unknown option is a warning, and here an error.
            unknown += subprocess.run([*words, "/WX", "/Zs", source], cwd=build, check=False).returncode != 0
    foreign = of_gcc(build)
    print(f"{len(tried)} sets of options for clang-cl, {unknown} with unknown ones. Of GCC:", *foreign or ["none"])
    return 0 if tried and not unknown and not foreign else 1


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
