#!/usr/bin/env python3
"""Kills the program over and over while somebody types tickers and notes: what was once on disk
stays there, no file is ever torn, and the next start always works.

crash.py [--kills N] [--seed S] PROGRAM
"""

import argparse
import random
import re
import signal
import tempfile
import threading
import time
from pathlib import Path

import driver

NOTES = re.compile(rb"(?:\|\|[A-Z0-9]+\|\|note \d{6}\|\|\|\|\|\r\n|\r\n)*")
LONGEST_LIFE = 4.0  # seconds from the window to the kill


class Torn(AssertionError):
    """A file that holds neither the old content nor the new."""


class Watched:
    """The profile: what was seen on its disk, and whether all of that is still there."""

    def __init__(self, folder):
        self.settings = folder / "settings.ini"
        self.notes = folder / "TickNotes.txt"
        self.tickers = set()
        self.note = 0

    def _on_disk(self):
        text = self.settings.read_text(encoding="utf-8") if self.settings.exists() else ""
        notes = self.notes.read_bytes() if self.notes.exists() else b""
        numbers = [int(number) for number in re.findall(rb"note (\d{6})", notes)]
        return text, notes, set(re.findall(r"KT\d{6}", text)), max(numbers, default=0)

    def look(self):
        """Remembers what is on disk by now."""
        _, _, tickers, note = self._on_disk()
        self.tickers |= tickers
        self.note = max(self.note, note)

    def check(self):
        text, notes, tickers, note = self._on_disk()
        if self.tickers - tickers:
            raise Torn(f"tickers are gone: {sorted(self.tickers - tickers)[:5]}")
        if note < self.note:
            raise Torn(f"the note {self.note} is gone: {notes[-200:]!r}")
        if not NOTES.fullmatch(notes):
            raise Torn(f"the notes are torn: {notes[-200:]!r}")
        if text and not text.lstrip().startswith("["):
            raise Torn(f"the settings are torn: {text[:200]!r}")


def wait_for_box(program, before):
    """Whether a further window opened that is there to stay; false when the program is gone."""
    deadline = time.monotonic() + LONGEST_LIFE
    while program.process.poll() is None and time.monotonic() < deadline:
        now = program.windows() or set()
        if len(now - before) == 1 and driver.xdotool("getactivewindow") in now - before:
            return True
    return False


def play(program, spot, watched, numbers, chance):
    """Types until the program is gone."""
    while program.process.poll() is None:
        number = next(numbers)
        if chance.random() < 0.6:
            driver.press("ctrl+t")
            driver.type_text(f"KT{number:06d}")
            driver.press("Return")
        elif chance.random() < 0.5:
            driver.press(f"alt+{chance.randrange(1, 4)}")
        else:
            driver.press("alt+1")
            driver.move_pointer(*spot)
            driver.xdotool("click", "1")
            before = program.windows() or set()
            driver.press("alt+t", "Up", "Right", "Return")
            # What is typed is meant for the box, and for nothing else.
            if wait_for_box(program, before):
                driver.type_text(f"note {number:06d}")
                driver.press("Return")
        watched.look()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program")
    parser.add_argument("--kills", type=int, default=1000)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    chance = random.Random(options.seed)
    numbers = iter(range(1, 10**6))
    began = time.monotonic()
    with driver.desktop((1600, 1000)), tempfile.TemporaryDirectory(prefix="crash-") as folder:
        profile = Path(folder)
        watched = Watched(profile)
        spot = None
        for kill in range(1, options.kills + 1):
            program = driver.Program(options.program, "--web", "sample", profile=profile)
            try:
                if spot is None:
                    first = program.main_window().find(role="list item")
                    spot = [first.extents[0] + 15, first.extents[1] + first.extents[3] // 2]
                else:
                    driver.wait_for(lambda: program.window_id(), "the window of the next start")
                life = chance.uniform(0, LONGEST_LIFE)
                timer = threading.Timer(life, program.process.send_signal, [signal.SIGKILL])
                timer.start()
                try:
                    play(program, spot, watched, numbers, chance)
                finally:
                    timer.cancel()
            finally:
                program.stop()
            watched.check()
            if kill % 50 == 0 or kill == options.kills:
                print(f"{kill} kills in {time.monotonic() - began:.0f} s: {len(watched.tickers)} "
                      f"tickers and {watched.note} notes were on disk, nothing is lost or torn",
                      flush=True)


if __name__ == "__main__":
    main()
