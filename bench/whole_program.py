#!/usr/bin/env python3
"""Measures the whole program beside a bare one with a single web view:
whole_program.py PROGRAM BARE_PROGRAM [RUNS]

Both take turns, so that whatever else the machine does falls on both alike; the first turn only
warms the caches. What is printed are medians, and ours as a ratio to the bare program's. Both load
the same page from a server on the loopback interface: ours as its start page, with --web direct and
with --web live, since in sample mode no address leaves the program. In live mode the sources of
quotes lie at that server too.
"""

import os
import re
import statistics
import sys
import tempfile
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests" / "system"))
import driver  # noqa: E402
from screen_watch import ScreenWatch  # noqa: E402

GOALS = {"start to window": 1.0, "start to first request": 1.0, "memory": 1.15,
         "click to request": 1.20}


def process_tree(root):
    """The process and all that it started, directly or not."""
    parents = {}
    for entry in Path("/proc").iterdir():
        if entry.name.isdigit():
            try:
                # The name in the second field may hold anything, blanks and brackets too.
                fields = (entry / "stat").read_text().rpartition(")")[2].split()
                parents[int(entry.name)] = int(fields[1])
            except OSError:
                pass
    tree = {root}
    while grown := {child for child, parent in parents.items() if parent in tree} - tree:
        tree |= grown
    return tree


def memory(root):
    """Proportional set size of a process tree in MB."""
    total = 0
    for process in process_tree(root):
        try:
            for line in Path(f"/proc/{process}/smaps_rollup").read_text().splitlines():
                if line.startswith("Pss:"):
                    total += int(line.split()[1])
        except OSError:
            pass
    return total / 1024


def settled_memory(root):
    """The memory once the page has come to rest: three readings in a row within one percent."""
    readings = []

    def at_rest():
        readings.append(memory(root))
        time.sleep(0.4)
        last = readings[-3:]
        return len(last) == 3 and max(last) - min(last) < 0.01 * last[0]
    driver.wait_for(at_rest, "the memory to settle", 60)
    return readings[-1]


class Bare:
    """Its button says that the window is there."""

    name = "bare"
    # Of the window: from its left and top edge, or from the right and bottom one when below zero.
    looked_at = (0, 0, 600, 30)

    def __init__(self, binary, server):
        self.arguments = [binary, f"http://{server.host}/first", f"http://{server.host}/click"]
        self.click_path = "/click"

    def button(self, program):
        return program.application.find(name="Load")


def sources(server):
    """A table that leads the sources to the server, with no quote of any."""
    shipped = (driver.ROOT / "data" / "sources.toml").read_text()
    return "".join(f'[sources.{key}]\nrequest = "http://{server.host}/source/{key}?{{symbols}}"\n'
                   for key in re.findall(r"^\[sources\.(.+)\]$", shipped, re.MULTILINE))


class Ours:
    """Its links in the left panel say that the window is there with all that it holds."""

    looked_at = (4, -320, 100, 60)

    def __init__(self, binary, server, folder, mode):
        self.name = mode
        # A profile that has been used before, with a page of the server as its start page and a
        # window as big as the bare one: 1280 by 900 pixels of 15 twips.
        profile = Path(folder) / mode
        profile.mkdir()
        (profile / "sources.toml").write_text(sources(server))
        (profile / "settings.ini").write_text(
            f"[Settings]\nFirst=OK\nStocks1=MSFT|\nDefaultWeb=Ahttp://{server.host}/first\n"
            "[frmMain]\nTop=50\nLeft=50\nHeight=13500\nWidth=19200\n")
        sites = Path(folder) / "all-sites.toml"
        sites.write_text(f'[hosts]\ndefault = "http://{server.host}"\n')
        self.arguments = [binary, "--profile", profile, "--web", mode, "--sites", sites]
        self.click_path = "/q?s=msft&d=2b"

    def button(self, program):
        return program.application.find(name="Y!")


def measure_start(kind, server, place):
    """One start of a program: seconds to its window, to its first request, MB, and its place on the
    display, which has to be known for the first of these."""
    before = server.count("/first")
    watch = ScreenWatch(place) if place else None
    begin = time.monotonic()
    program = driver.Program(*map(str, kind.arguments))
    try:
        start = server.wait_for_request("/first", before + 1) - begin
        held = settled_memory(program.process.pid)
        left, top, width, height = kind.looked_at
        window = driver.geometry(program.window_id())
        place = (window[0] + left + (window[2] if left < 0 else 0),
                 window[1] + top + (window[3] if top < 0 else 0), width, height)
        shown = watch.stop() - begin if watch else None
        return shown, start, held, place
    finally:
        if watch:
            watch.stop()
        program.stop()


def measure_clicks(kind, server, clicks):
    """Seconds from click to request."""
    program = driver.Program(*map(str, kind.arguments))
    try:
        button = kind.button(program)
        left, top, width, height = button.extents
        driver.xdotool("mousemove", "--sync", left + width // 2, top + height // 2)
        times = []
        for _ in range(clicks):
            asked = server.count(kind.click_path)
            moment = time.monotonic()
            driver.xdotool("click", 1)
            times.append(server.wait_for_request(kind.click_path, asked + 1) - moment)
            settled_memory(program.process.pid)
        return times
    finally:
        program.stop()


def main():
    program, bare = sys.argv[1:3]
    runs = max(int(sys.argv[3]) if len(sys.argv) > 3 else 7, 5)
    with driver.desktop(), driver.Server() as server, tempfile.TemporaryDirectory() as folder:
        kinds = [Bare(bare, server), *(Ours(program, server, folder, mode)
                                          for mode in ("direct", "live"))]
        results = {kind.name: {goal: [] for goal in GOALS} for kind in kinds}

        # People start it without an assistive technology, so this is measured without one.
        assistive = {name: os.environ.pop(name) for name in
                     ("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "QTWEBENGINE_CHROMIUM_FLAGS")}
        places = {}
        for turn in range(runs + 1):
            for kind in kinds:
                shown, start, held, places[kind.name] = \
                    measure_start(kind, server, places.get(kind.name))
                if turn:
                    results[kind.name]["start to window"].append(shown * 1000)
                    results[kind.name]["start to first request"].append(start * 1000)
                    results[kind.name]["memory"].append(held)

        os.environ.update(assistive)
        for turn in range(2):
            for kind in kinds:
                times = measure_clicks(kind, server, runs)
                if turn:
                    results[kind.name]["click to request"] += [t * 1000 for t in times]

    print(f"\nThe whole program beside a bare one, medians of {runs} runs")
    modes = [kind.name for kind in kinds[1:]]
    print(f"{'':24}{'bare':>10}" + "".join(f"{mode:>10}{'ratio':>8}" for mode in modes)
          + f"{'goal':>7}")
    for what, goal in GOALS.items():
        unit = "MB" if what == "memory" else "ms"
        there = statistics.median(results["bare"][what])
        line = f"{what + ' (' + unit + ')':24}{there:10.1f}"
        for mode in modes:
            here = statistics.median(results[mode][what])
            line += f"{here:10.1f}{here / there:8.2f}"
        print(line + f"{goal:7.2f}")


if __name__ == "__main__":
    main()
