#!/usr/bin/env python3
"""Counts the instructions of what people wait for, which hardly vary where times do:
instructions.py [--check | --write] PROGRAM COUNTED_STEPS BARE_PROGRAM

Each program runs under valgrind's profiler, whose counts are dumped when a function is entered or
left. Only the program's own process and its main thread count, not the processes and threads that
the web engine starts. The program starts as it does on a machine without a display, in direct
mode with a start page at a server of this machine, until it waits for events; the engine's own
start is in it, and so it is in the bare program's.

The figures are kept in instructions.toml. With --check it is a failure when one of them is more
than 5 percent above what is kept there; with --write they are kept from now on.
"""

import argparse
import contextlib
import ctypes
import os
import platform
import re
import signal
import statistics
import subprocess
import sys
import tempfile
import time
import tomllib
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "tests" / "system"))
from web_server import Server  # noqa: E402

KEPT = HERE / "instructions.toml"
TOLERANCE = 0.05
PATIENCE = 1800  # seconds; the profiler is some fifty times slower than the machine
EVENT_LOOP = "QApplication::exec()"

# What is counted, in the order in which it is shown.
FIGURES = {
    "libraries": "start: the libraries are loaded, up to main",
    "start": "start: from main to the wait for events, the window shown and its page asked for",
    "paint": "all that the window shows is painted",
    "switch": "switch to a portfolio of 1,000 tickers, up to the painted list",
    "click": "click on a link, until the engine has its address",
    "fetch": "fetch of the indices, up to the painted panels",
}
STEPS = ("paint", "switch", "click", "fetch")

HEAD = """\
# Instructions of what people wait for, as `./dev bench instructions` counts them. `./dev bench
# --check` fails when a figure is more than 5 percent above the one that is kept here. They are
# changed on purpose only: when a rise is worth its cost, `./dev bench instructions --write` keeps
# the new figures, and the commit says what they buy. Counted on the base that is named; on any
# other the libraries are others, and there is nothing to compare with.
"""


def base():
    """What decides how many instructions the same sources are: the release, and the processor's
    kind, since the libraries choose by it how they copy and compare."""
    release = platform.freedesktop_os_release()
    flags = re.search(r"^flags\s*:(.*)$", Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    wide = "avx2" if flags and "avx2" in flags.group(1).split() else "plain"
    return f"{release.get('ID')} {release.get('VERSION_ID', 'testing')} {platform.machine()} {wide}"


def environment(folder):
    """As little as a program needs, so that what the user has set plays no part."""
    kept = {"PATH": os.environ["PATH"], "LANG": "C.UTF-8", "TZ": "UTC",
            "QT_QPA_PLATFORM": "offscreen", "QT_HASH_SEED": "0", "HOME": folder,
            "XDG_RUNTIME_DIR": folder}
    if os.geteuid() == 0:
        # The web engine refuses its sandbox to root and would end the program.
        kept["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
    return kept


def end_with_us():
    """The profiled program ends when this process does, however it ends."""
    ctypes.CDLL("libc.so.6").prctl(1, signal.SIGKILL)


def dump(path):
    """Why a dump was written, and how many instructions it holds; None while it is not whole."""
    text = path.read_text(errors="replace")
    total = re.search(r"^totals: (\d+)$", text, re.MULTILINE)
    why = re.search(r"^desc: Trigger: (.*)$", text, re.MULTILINE)
    return (why.group(1) if why else "end", int(total.group(1))) if total else None


def dumps(folder):
    """Those of the main thread, in their order."""
    found = sorted((int(path.suffixes[-1][1:-3]), path) for path in Path(folder).glob("counts.*-01"))
    return [told for _, path in found if (told := dump(path))]


def run(command, triggers, last):
    """Runs a program under the profiler until a dump was written because of `last`; the dumps."""
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as folder:
        log = Path(folder) / "log"
        with log.open("wb") as sink:
            process = subprocess.Popen(
                ["valgrind", "--tool=callgrind", "--trace-children=no", "--separate-threads=yes",
                 f"--callgrind-out-file={folder}/counts", *triggers, *map(str, command)],
                env=environment(folder), stdin=subprocess.DEVNULL, stdout=sink, stderr=sink,
                preexec_fn=end_with_us)
            try:
                end = time.monotonic() + PATIENCE
                while process.poll() is None and time.monotonic() < end:
                    if last in (why for why, _ in dumps(folder)):
                        return dumps(folder)
                    time.sleep(0.2)
            finally:
                process.kill()
                process.wait()
        sys.exit(f"{command[0]} was not counted:\n{log.read_text(errors='replace')[-3000:]}")


def count_start(command):
    """Instructions up to main, and from there to the wait for events."""
    first, last = "--dump-before=main", f"--dump-before={EVENT_LOOP}"
    counts = dict(run(command, [first, last], last))
    return {"libraries": counts[first], "start": counts[last]}


def count_steps(program):
    """Medians of what the steps took each time that the program took them."""
    says = "Client Request: "
    counts = run([program], [], says + "end")
    found = {}
    for step in STEPS:
        times = [count for why, count in counts if why == says + step]
        if not times:
            sys.exit(f"{program} did not take the step {step}")
        found[step] = int(statistics.median(times))
    return found


def count(program, steps, bare):
    with Server() as server, tempfile.TemporaryDirectory() as folder:
        # A profile that has been used before, and a window as big as the bare program's.
        (Path(folder) / "settings.ini").write_text(
            f"[Settings]\nFirst=OK\nStocks1=MSFT|\nDefaultWeb=Ahttp://{server.host}/first\n"
            "[frmMain]\nTop=50\nLeft=50\nHeight=13500\nWidth=19200\n")
        sites = Path(folder) / "all-sites.toml"
        sites.write_text(f'[hosts]\ndefault = "http://{server.host}"\n')
        ours = count_start([program, "--profile", folder, "--web", "direct", "--sites", sites])
        ours |= count_steps(steps)
        beside = count_start([bare, f"http://{server.host}/first", f"http://{server.host}/click"])
    return ours, beside


def show(figures, beside, kept):
    print(f"\nInstructions in millions, on {base()}")
    print(f"{'':12}{'ours':>9}{'bare':>9}{'ratio':>7}{'kept':>9}{'change':>8}")
    lines = [(name, figures[name], beside.get(name), kept.get(name), what)
             for name, what in FIGURES.items()]
    lines.insert(2, ("whole start", figures["libraries"] + figures["start"],
                     beside["libraries"] + beside["start"], None, "both together"))
    for name, ours, bare, before, what in lines:
        ratio = f"{bare / 1e6:9.2f}{ours / bare:7.2f}" if bare else " " * 16
        change = f"{before / 1e6:9.2f}{100 * (ours / before - 1):+7.2f}%" if before else " " * 17
        print(f"{name:12}{ours / 1e6:9.2f}{ratio}{change}  {what}")


def risen(figures, kept):
    """Names of the figures that are too far above what is kept, or of which nothing is kept."""
    return [name for name in FIGURES
            if name not in kept or figures[name] > kept[name] * (1 + TOLERANCE)]


def read(path):
    """The base that the kept figures were counted on, and the figures."""
    table = tomllib.loads(path.read_text()) if path.exists() else {}
    return table.get("base"), table.get("instructions", {})


def text(where, figures):
    """The file that keeps figures."""
    rows = "".join(f"{name:9} = {figures[name]:>12_}  # {what}\n" for name, what in FIGURES.items())
    return f'{HEAD}base = "{where}"\n\n[instructions]\n{rows}'


def verdict(where, figures, kept_base, kept):
    """What a check says, and the code that it ends with."""
    if where != kept_base:
        return f"no figures are kept for {where}, only for {kept_base}: nothing is checked", 0
    if names := risen(figures, kept):
        return (f"more instructions than before: {', '.join(names)}. callgrind_annotate shows where "
                "they go (docs/performance.md). If the rise is on purpose: ./dev bench instructions "
                "--write, and say in the commit what it buys", 1)
    return "no figure is more than 5 percent above what is kept", 0


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--write", action="store_true")
    for name in ("program", "steps", "bare"):
        parser.add_argument(name)
    options = parser.parse_args()
    where = base()
    kept_base, kept = read(KEPT)
    if options.check and where != kept_base:
        print(verdict(where, {}, kept_base, kept)[0])
        return 0
    figures, beside = count(options.program, options.steps, options.bare)
    show(figures, beside, kept if where == kept_base else {})
    if options.write:
        KEPT.write_text(text(where, figures))
        print(f"kept in {KEPT.name}")
    if options.check:
        said, code = verdict(where, figures, kept_base, kept)
        print(said)
        return code
    return 0


if __name__ == "__main__":
    with contextlib.suppress(KeyboardInterrupt):
        sys.exit(main())
