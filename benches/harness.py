"""What all benchmarks share: rounds in which each side runs in turn, and the table of their medians.

A group makes its trees once and yields its sides: functions that run something and return what it took. A row compares
two sides, or shows one. Each round runs every side once, so that both sides of a row meet the same machine."""
import dataclasses
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time
from collections.abc import Callable

TOP = pathlib.Path(__file__).resolve().parents[1]
NATIVE, WINDOWS = TOP / "build" / "native", TOP / "build" / "windows"
CONSOLE = NATIVE / "tavix-console"
MEMORY = "/dev/shm" if os.path.isdir("/dev/shm") else None
MOST_BY_OTHERS = 0.05  # of the machine's processor time: more, and the figures say nothing
MARK = "TAVIX_BENCH"   # in the environment of all processes of a run
TICKS = os.sysconf("SC_CLK_TCK")


@dataclasses.dataclass(frozen=True)
class Row:
    what: str
    ours: str           # a side of the group
    peer: str = ""      # another; none for a figure that stands alone
    goal: float = 0     # the highest ratio, or the highest figure without a peer; 0 for none
    unit: str = "s"     # "s", "ms" or "MB"


@dataclasses.dataclass(frozen=True)
class Group:
    open: Callable      # a context manager that yields {side: function}
    rows: tuple
    rounds: int = 5
    windows: bool = False   # needs the Windows build and Wine


@dataclasses.dataclass(frozen=True)
class Measured:
    row: Row
    ours: list
    peer: list
    by_others: float    # the share of the machine's processor time that went to others meanwhile

    @property
    def values(self):
        """The ratio of each round, or what our side took in it."""
        return [ours / peer for ours, peer in zip(self.ours, self.peer)] if self.peer else self.ours

    @property
    def middle(self):
        return statistics.median(self.values)

    @property
    def scatter(self):
        """Between which values the middle half of the rounds lies."""
        values = sorted(self.values)
        if len(values) < 2:
            return values[0], values[0]
        low, _, high = statistics.quantiles(values, n=4, method="inclusive")
        return low, high

    @property
    def verdict(self):
        if self.by_others > MOST_BY_OTHERS:
            return f"too busy ({self.by_others:.0%})"
        if not self.row.goal:
            return ""
        low, high = self.scatter
        if low <= self.row.goal < high:
            return "can't tell"
        return "kept" if self.middle <= self.row.goal else "NOT KEPT"


#--- How busy the machine is

def processor_times():
    """Seconds since the start of the machine that all processors worked, and that the host took from them."""
    fields = [int(field) for field in pathlib.Path("/proc/stat").read_text().split("\n", 1)[0].split()[1:9]]
    user, nice, system, _, _, interrupts, soft, stolen = fields
    return (user + nice + system + interrupts + soft) / TICKS, stolen / TICKS


def own_times():
    """{process: seconds} of all living processes of this run, with those of their ended children."""
    found = {}
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if f"{MARK}={os.environ.get(MARK)}\0".encode() in (process / "environ").read_bytes() or \
                    process.name == str(os.getpid()):
                fields = (process / "stat").read_text().rsplit(")", 1)[1].split()
                found[process.name] = sum(map(int, fields[11:15])) / TICKS
        except OSError:
            pass
    return found


def share_of_others(seconds, processors, worked, own, stolen):
    """The share of `processors` over `seconds` that went to other programs and other machines on the host."""
    return (max(worked - own, 0) + stolen) / (seconds * processors)


class Watch:
    """How much of the machine others take while it runs."""

    def __init__(self):
        self.start, (self.worked, self.stolen), self.own = time.monotonic(), processor_times(), own_times()

    def by_others(self):
        worked, stolen = processor_times()
        # A process that ended meanwhile is in the time of its parent, or of nobody if it left its parent.
        own = sum(now - self.own.get(process, 0) for process, now in own_times().items())
        return share_of_others(time.monotonic() - self.start, os.cpu_count(), worked - self.worked, own,
                               stolen - self.stolen)


#--- Running

def run(command, **options):
    """Runs a command with its output to a file in memory. Returns seconds, processor seconds, peak memory in bytes."""
    with tempfile.TemporaryFile(dir=MEMORY) as out:
        options = {"stdout": out, "stderr": subprocess.DEVNULL, **options}
        start = time.perf_counter()
        process = subprocess.Popen(list(map(str, command)), **options)
        _, status, used = os.wait4(process.pid, 0)
        seconds = time.perf_counter() - start
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode:
        raise RuntimeError(f"{command} ended with {process.returncode}")
    return seconds, used.ru_utime + used.ru_stime, used.ru_maxrss * 1024


def timed(command, **options):
    """A side: the seconds of a command."""
    return lambda: run(command, **options)[0]


def in_turn(sides, rounds):
    """Runs each side once a round. Returns {side: what it took in each round}."""
    taken = {name: [] for name in sides}
    for _ in range(rounds):
        for name, side in sides.items():
            taken[name].append(side())
    return taken


def measure(group, rows):
    """Yields what these rows of a group measured. A row whose peer isn't installed is left out."""
    with group.open() as sides:
        rows = [row for row in rows if row.ours in sides and (not row.peer or row.peer in sides)]
        wanted = {side for row in rows for side in (row.ours, row.peer)}
        watch = Watch()
        taken = in_turn({name: side for name, side in sides.items() if name in wanted}, group.rounds)
        by_others = watch.by_others()
    for row in rows:
        yield Measured(row, taken[row.ours], taken.get(row.peer, []), by_others)


#--- The table

HEADS = ("What", "Ours", "Peer", "Ratio", "Middle half", "Goal", "")


def number(value, unit):
    return f"{value * 1000:,.0f} ms" if unit == "s" else f"{value:,.0f} {unit}"


def cells(measured):
    row, (low, high) = measured.row, measured.scatter
    ours = number(statistics.median(measured.ours), row.unit)
    if row.peer:
        peer = f"{row.peer}, {number(statistics.median(measured.peer), row.unit)}"
        return (row.what, ours, peer, f"{measured.middle:.2f}", f"{low:.2f} to {high:.2f}",
                f"{row.goal:g}" if row.goal else "", measured.verdict)
    return (row.what, ours, "", "", f"{number(low, row.unit)} to {number(high, row.unit)}",
            number(row.goal, row.unit) if row.goal else "", measured.verdict)


def as_markdown(lines):
    return "\n".join("| " + " | ".join(line) + " |" for line in (HEADS, ("---",) * len(HEADS), *lines))


WIDTHS = (58, 10, 44, 6, 18, 8, 0)


def as_line(line):
    return " ".join(text.ljust(width) for text, width in zip(line, WIDTHS)).rstrip()


def show(groups, names, markdown=False):
    """Measures the rows whose names contain one of `names`, all if there are none, and prints them."""
    lines = []
    if not markdown:
        print(as_line(HEADS), flush=True)
    for group in groups:
        rows = [row for row in group.rows if matches(row, names)]
        for measured in measure(group, rows) if rows else ():
            lines.append(cells(measured))
            print(as_line(lines[-1]), file=sys.stderr if markdown else sys.stdout, flush=True)
    if markdown:
        print(as_markdown(lines))


def matches(row, names):
    return not names or any(name.lower() in row.what.lower() for name in names)
