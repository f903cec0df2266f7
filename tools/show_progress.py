#!/usr/bin/env python3
"""show_progress.py WHAT LOG: appends its input to a log and shows how far a build or test run is. Lines that begin with
"12/345" or "[12/345]" count. On a terminal it is one line that changes, otherwise a new line for each tenth."""
import re
import sys
import time

COUNT = re.compile(rb" *\[?(\d+)/(\d+)")


def main():
    what, log = sys.argv[1:]
    terminal, begin, last = sys.stdout.isatty(), time.monotonic(), None
    with open(log, "ab", buffering=0) as file:
        for line in sys.stdin.buffer:
            file.write(line)
            count = COUNT.match(line)
            if not count or int(count[2]) == 0:
                continue
            done, total = int(count[1]), int(count[2])
            tenth = 10 * done // total
            if tenth == last and not terminal:
                continue
            last = tenth
            seconds = int(time.monotonic() - begin)
            shown = f"   {what} {done} of {total}, {seconds // 60}:{seconds % 60:02}"
            print("\r\x1b[K" + shown if terminal else shown, end="" if terminal else "\n", flush=True)
    if terminal and last is not None:
        print("\r\x1b[K", end="", flush=True)


if __name__ == "__main__":
    main()
