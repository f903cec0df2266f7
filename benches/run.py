#!/usr/bin/env python3
"""Measures Tavix beside its peers and prints one table. `./bench` runs it.

    ./bench                     all rows, in about ten minutes
    ./bench NAME...             the rows whose names contain one of these words
    ./bench --list              the names
    ./bench --markdown [NAME]   the table as docs/performance.md has it
    ./bench --micro [FILTER]    the small benchmarks of tavix-bench whose names match the filter

"Ours" and "Peer" are medians of the rounds, in each of which both run in turn. "Ratio" is the median of the rounds'
ratios, "Middle half" says between which values half of them lie. Times are wall time unless the row says otherwise.
The last column tells whether the goal is kept: "can't tell" if it lies within the middle half, "too busy" with the
share of the machine's processor time that other programs took, if that is over 5 %."""
import argparse
import os
import subprocess
import sys

import harness
import native_rows
import wine_rows

GROUPS = native_rows.GROUPS + wine_rows.GROUPS
NATIVE_TARGETS = "tavix-bench tavix-console"
WINDOWS_TARGETS = ("tavix tavix-console tavix-list-reader bare-walk tavix-bare-registry tavix-start-time "
                   "tavix-bare-window tavix-cancel-time")


def build(packages, preset, targets):
    """Installs what is missing and builds. Says more only if that fails."""
    command = f". tools/install.sh; need {packages}; build {preset} --target {targets}"
    done = subprocess.run(["sh", "-euc", command], cwd=harness.TOP, check=False, stdout=subprocess.PIPE)
    if done.returncode:
        sys.stderr.buffer.write(done.stdout)
        sys.exit(done.returncode)


def main():
    parser = argparse.ArgumentParser(prog="./bench", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("names", nargs="*", metavar="NAME", help="words of the rows' names")
    parser.add_argument("--list", action="store_true", help="print the names of the rows")
    parser.add_argument("--markdown", action="store_true", help="print the table for the document")
    parser.add_argument("--micro", action="store_true", help="run tavix-bench; NAME is its filter")
    chosen = parser.parse_args()
    os.environ[harness.MARK] = str(os.getpid())
    if chosen.micro:
        build("native", "native", NATIVE_TARGETS)
        filters = [f"--benchmark_filter={name}" for name in chosen.names]
        return subprocess.run([harness.NATIVE / "tavix-bench", *filters], check=False).returncode
    groups = [group for group in GROUPS if any(harness.matches(row, chosen.names) for row in group.rows)]
    if not groups:
        parser.error("no row has such a name; --list prints the names")
    if chosen.list:
        for group in groups:
            print(*(row.what for row in group.rows if harness.matches(row, chosen.names)), sep="\n")
        return 0
    if any(not group.windows for group in groups):
        build("native bench", "native", NATIVE_TARGETS)
    if any(group.windows for group in groups):
        build("windows window", "windows", WINDOWS_TARGETS)
    return harness.show(groups, chosen.names, chosen.markdown)


if __name__ == "__main__":
    sys.exit(main())
