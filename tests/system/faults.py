#!/usr/bin/env python3
"""Plays the same short session in the whole program again and again, and each time one write of its
own files fails: no space, or a broken disk. The program lives and says so, every file is whole, and
the next start works. Several programs are at it side by side, each on a display of its own.

faults.py [--runs N] [--side-by-side W] FAILING_WRITES PROGRAM
"""

import argparse
import collections
import contextlib
import errno
import json
import os
import random
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

import crash
import driver

ERRORS = {"no space": errno.ENOSPC, "a broken disk": errno.EIO}
# What the engine keeps for itself is none of the program's files.
FOLDERS_OF_OTHERS = "engine"


class Session:
    """Somebody who enters tickers, writes a note, sets an alert, moves a ticker, records a
    multi-link, copies a colour and ends the program."""

    def __init__(self, program, spots, watched):
        self.program, self.said = program, 0
        # What the program has to say of the switch is not to be closed by the keys after it.
        player = crash.Player(program, spots, watched, None, random.Random(1), self.look_up)
        self.steps = [lambda: player.enter(1), lambda: player.enter(2), lambda: player.note(3),
                      lambda: player.alert(4), lambda: player.record(None),
                      lambda: player.color(None), lambda: player.record_anew(5),
                      lambda: self.move(player)]

    def look_up(self):
        self.said += self.boxes(self.program.window_id())

    def move(self, player):
        driver.press("alt+1")
        self.look_up()
        player.click(player.spots.ticker)
        driver.press("alt+t", *["Up"] * crash.MOVE_TO, "Right", "Down", "Return")
        self.look_up()
        driver.press("Escape", "Escape")

    def boxes(self, main):
        """Closes what the program has to say; how many boxes that were."""
        count, quiet_since = 0, time.monotonic()
        while time.monotonic() - quiet_since < 0.5 and self.program.process.poll() is None:
            if driver.active_window() not in ("", main) and \
                    len(self.program.windows() or ()) > 1:
                driver.press("Return")
                count += 1
                quiet_since = time.monotonic()
        return count

    def play(self):
        main = self.program.window_id()
        # The first writes are those of the start.
        self.said += self.boxes(main)
        for step in self.steps:
            step()
            self.said += self.boxes(main)
            assert self.program.process.poll() is None, \
                f"the program died: {self.program.errors()}"
        # A box that opens late, or a close that cannot store everything, comes first.
        for _ in range(5):
            with contextlib.suppress(AssertionError):
                self.program.ask_to_close()
            self.said += self.boxes(main)
            with contextlib.suppress(AssertionError):
                return self.program.wait_for_end(10)
        raise AssertionError(f"it does not end: {self.program.errors()}")


def run(options, folder, spots, at, error):
    """One session; the writes, what was said, and the profile."""
    profile = folder / f"profile-{at}-{error}"
    profile.mkdir()
    log = folder / f"writes-{at}-{error}"
    log.touch()
    watched = crash.Watched(profile)
    orders = {"LD_PRELOAD": str(options.library), "FAILING_WRITES_UNDER": f"{profile}/",
              "FAILING_WRITES_NOT": f"{profile}/{FOLDERS_OF_OTHERS}",
              "FAILING_WRITES_AT": str(at), "FAILING_WRITES_ERROR": str(error),
              "FAILING_WRITES_LOG": str(log)}
    os.environ.update(orders)
    try:
        program = driver.Program(options.program, "--web", "sample", profile=profile)
    finally:
        for name in orders:
            del os.environ[name]
    try:
        driver.wait_for(program.windows, "the window")
        session = Session(program, spots, watched)
        code = session.play()
        assert code == 0, f"it ended with {code}: {program.errors()}"
        said = session.said + program.errors().count("Cannot ")
    finally:
        program.stop()
    watched.check()
    return log.read_text().splitlines(), said, watched


def state(watched):
    """What a user would miss."""
    text, notes, places, _ = watched._on_disk()
    return places, notes, sorted(page.name for page in watched.folder.glob("*.mlnk")), \
        watched._pairs(text), sorted(watched.limits_on_disk())


def starts_again(options, watched):
    with driver.Program(options.program, "--web", "sample", profile=watched.folder) as program:
        driver.wait_for(program.windows, "the window of the next start")
        assert program.process.poll() is None, program.errors()


def work(options):
    """Plays its share of the sessions; the last line it prints are its figures."""
    figures = collections.Counter()
    with driver.desktop((1600, 1000)), tempfile.TemporaryDirectory(prefix="faults-") as name:
        folder = Path(name)
        first = folder / "first"
        first.mkdir()
        crash.Watched(first)
        spots = crash.learn(options, first)
        for name in ("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "QTWEBENGINE_CHROMIUM_FLAGS"):
            os.environ.pop(name)
        writes, _, clean = run(options, folder, spots, 0, 0)
        places, notes, pages, colors, limits = state(clean)
        is_colored = any(pair != crash.color_pair(slot) for slot, pair in colors.items())
        assert notes and pages and limits and is_colored and set(places.values()) > {"1"}, \
            "the session does not do all that it is to do"
        print(f"a session makes {len(writes)} writes: {len(places)} tickers, "
              f"{len(notes)} bytes of notes, {len(pages)} multi-links, {len(limits)} alerts",
              flush=True)
        kinds = list(ERRORS.items())
        for number in range(options.worker, options.runs, options.side_by_side):
            at = 1 + number * len(writes) // options.runs
            way, error = kinds[number % len(kinds)]
            figures["runs"] += 1
            try:
                lines, said, watched = run(options, folder, spots, at, error)
                starts_again(options, watched)
                failing = next((line for line in lines if line.endswith(" FAILS")), "none")
                same = state(watched) == state(clean)
                figures["failing"] += failing != "none"
                figures["told"] += said > 0
                figures["unchanged"] += same
                if not same and not said:
                    figures["failed"] += 1
                    print(f"{way} at {failing}: something is missing, and nobody was told",
                          flush=True)
            except AssertionError as problem:
                figures["failed"] += 1
                print(f"{way} at write {at}: {problem}", flush=True)
    print(json.dumps(figures), flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--runs", type=int, default=20)
    parser.add_argument("--side-by-side", type=int, default=2)
    parser.add_argument("--worker", type=int, help=argparse.SUPPRESS)
    parser.add_argument("library", type=Path)
    parser.add_argument("program", type=Path)
    options = parser.parse_args()
    options.library, options.program = options.library.resolve(), options.program.resolve()
    if options.worker is not None:
        work(options)
        return 0
    workers = [driver.start([sys.executable, "-B", __file__, "--runs", str(options.runs),
                             "--side-by-side", str(options.side_by_side), "--worker", str(number),
                             options.library, options.program], stdout=subprocess.PIPE, text=True)
               for number in range(options.side_by_side)]
    shares = []

    def follow(worker):
        for line in worker.stdout:
            if line.startswith("{"):
                shares.append(collections.Counter(json.loads(line)))
            else:
                print(line, end="", flush=True)
    threads = [threading.Thread(target=follow, args=[worker]) for worker in workers]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    figures = sum(shares, collections.Counter())
    print(f"{figures['runs']} sessions of the whole program, in {figures['failing']} of them a "
          f"write failed: {figures['told']} said so, {figures['unchanged']} ended as without it, "
          f"{figures['failed']} failed")
    return 1 if figures["failed"] or any(worker.wait() for worker in workers) else 0


if __name__ == "__main__":
    sys.exit(main())
