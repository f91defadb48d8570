#!/usr/bin/env python3
"""Kills the program over and over while somebody types tickers and notes, moves tickers to other
portfolios, sets alerts, records multi-links and sets colours: what was once on disk stays there, no
file is ever torn, and the next start always works. Several programs are at it side by side, each on
a display and a profile of its own.

crash.py [--kills N] [--seed S] [--side-by-side W] PROGRAM
"""

import argparse
import collections
import json
import os
import random
import re
import signal
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

import driver

NOTES = re.compile(rb"(?:\|\|[A-Z0-9]+\|\|note \d{6}\|\|\|\|\|\r\n|\r\n)*")
# A window that comes late gets the keys that were meant for another: any ticker, any limit.
ALERT = r"\d+ above (\d+) [A-Z0-9]+\n"
PAGE_HEAD = b"<html><head><title></title></head><body"
PAGE_TAIL = b"</body></html>"
# Where the submenus stand in the menu of the ticker, from its end.
NOTE, MOVE_TO = 4, 6
# The colours that a link gets in the editor, which keys that come late may reach.
EDITED_COLORS = (-2147483640, 12640511)
LONGEST_LIFE = 5.0  # seconds from the window to the kill
KILLS_OF_A_PROFILE = 60
SLOTS = range(101, 105)  # links of the user's own that are there from the start
FIRST_FREE, LAST_FREE = 105, 124
KINDS = ("tickers", "moves", "notes", "alerts", "multilinks", "colours")


def color_pair(slot):
    """The colours that a link has at first: they stay together, wherever they are put."""
    return slot * 1000, slot * 2000


def settings_at_first():
    lines = ["[Settings]", "First=OK", "Stocks1=KT000000|"]
    for slot in SLOTS:
        front, back = color_pair(slot)
        lines += [f"Custom{slot}=h.example/{slot}", f"CustomT{slot}=Link{slot}",
                  f"CustomF{slot}={front}", f"CustomB{slot}={back}"]
    # 1600 by 1000 pixels of 15 twips: every link is in view.
    return "\n".join(lines + ["[frmMain]", "Top=0", "Left=0", "Height=15000", "Width=24000", ""])


class Torn(AssertionError):
    """A file that holds neither the old content nor the new."""


class Watched:
    """A profile: what was seen on its disk, and whether all of that is still there."""

    def __init__(self, folder):
        self.folder = folder
        self.settings = folder / "settings.ini"
        self.notes = folder / "TickNotes.txt"
        self.alerts = folder / "alerts.txt"
        self.settings.write_text(settings_at_first())
        self.tickers, self.pages, self.limits = set(), set(), set()
        self.note = self.moves = self.colors = 0
        self.places = {}

    def _on_disk(self):
        text = self.settings.read_text(encoding="utf-8") if self.settings.exists() else ""
        notes = self.notes.read_bytes() if self.notes.exists() else b""
        numbers = [int(number) for number in re.findall(rb"note (\d{6})", notes)]
        places = {ticker: number for number, line in re.findall(r"^Stocks(\d+)=(.*)$", text, re.M)
                  for ticker in re.findall(r"KT\d{6}", line)}
        return text, notes, places, max(numbers, default=0)

    def _pairs(self, text):
        values = {key: int(value) for key, value in
                  re.findall(r"^(Custom[FB]\d+)=(-?\d+)$", text, re.M)}
        return {slot: (values.get(f"CustomF{slot}"), values.get(f"CustomB{slot}"))
                for slot in SLOTS}

    def _alerts_on_disk(self):
        return self.alerts.read_text() if self.alerts.exists() else ""

    def limits_on_disk(self):
        """The limits of the alerts, each of which was set once."""
        return re.findall(ALERT, self._alerts_on_disk())

    def look(self):
        """Remembers what is on disk by now."""
        text, _, places, note = self._on_disk()
        self.tickers |= set(places)
        self.note = max(self.note, note)
        self.limits |= set(self.limits_on_disk())
        self.pages |= {page.name for page in self.folder.glob("*.mlnk")}
        self.moves += sum(places[ticker] != was for ticker, was in self.places.items()
                          if ticker in places)
        self.places = places
        self.colors = max(self.colors, sum(pair != color_pair(slot) for slot, pair in
                                           self._pairs(text).items()))

    def check(self):
        text, notes, places, note = self._on_disk()
        if self.tickers - set(places):
            raise Torn(f"tickers are gone: {sorted(self.tickers - set(places))[:5]}")
        lists = collections.Counter(re.findall(r"KT\d{6}", text))
        if doubled := [ticker for ticker, times in lists.items() if times > 1]:
            raise Torn(f"tickers are in two portfolios: {doubled}")
        if note < self.note:
            raise Torn(f"the note {self.note} is gone: {notes[-200:]!r}")
        if not NOTES.fullmatch(notes):
            raise Torn(f"the notes are torn: {notes[-200:]!r}")
        alerts = self._alerts_on_disk()
        if not re.fullmatch(f"(?:{ALERT})*", alerts):
            raise Torn(f"the alerts are torn: {alerts[-200:]!r}")
        if gone := self.limits - set(self.limits_on_disk()):
            raise Torn(f"alerts are gone: {sorted(gone)[:5]}")
        if text and not text.lstrip().startswith("["):
            raise Torn(f"the settings are torn: {text[:200]!r}")
        allowed = {EDITED_COLORS, *map(color_pair, SLOTS)}
        for slot, pair in self._pairs(text).items():
            if pair not in allowed:
                raise Torn(f"the colours of link {slot} are torn: {pair}")
        self._check_pages()

    def _check_pages(self):
        for page in [*self.folder.glob("*.mlnk"), *self.folder.glob("multiweb.html")]:
            content = page.read_bytes().rstrip()
            if not (content.startswith(PAGE_HEAD) and content.endswith(PAGE_TAIL)):
                raise Torn(f"{page.name} is torn: {content[-100:]!r}")
        # The link to a page is stored as its recording begins, the page as it ends.
        for name in self.pages:
            if not (self.folder / name).exists():
                raise Torn(f"{name} is gone")


class Spots:
    """Where things are on the screen, learned once with the help of the accessibility tree; later
    starts do without it, as they are quicker then."""

    def __init__(self, program):
        window = program.main_window()
        driver.wait_for(lambda: window.extents[2:] == (1600, 1000), "the window in its size")
        controls = list(window.walk())

        def spot(found):
            left, top, width, height = found.extents
            return left + min(15, width // 2), top + height // 2

        def named(name):
            return spot(next(control for control in controls if control.name == name))
        self.ticker = spot(window.find(role="list item"))
        self.record = named("ML")
        self.links = [spot(control) for control in controls
                      if control.description in ("Full Yahoo! Quote", "3 small Yahoo! charts")]
        self.slots = [named(f"Link{slot}") for slot in SLOTS]
        self.free = [spot(control) for number in range(FIRST_FREE, LAST_FREE)
                     for control in controls
                     if control.description == f"Custom link {number}, empty"]
        assert len(self.links) == 2 and self.free, (self.links, self.free)
        self._click(self.free[0])
        editor = program.application.find(name="Custom Link Properties", role="dialog")
        self.title = spot(editor.find(role="text", name="Title"))
        self.start = spot(editor.find(role="push button", name="Multi Link"))

    @staticmethod
    def _click(place, button=1):
        driver.move_pointer(*place)
        driver.xdotool("click", button)


class Player:
    """Somebody who works with the program until it is gone, and who looks up, by `look_up`, after
    a switch to another portfolio."""

    def __init__(self, program, spots, watched, numbers, chance, look_up=lambda: None):
        self.program, self.spots, self.watched = program, spots, watched
        self.numbers, self.chance, self.look_up = numbers, chance, look_up

    def play(self):
        actions = [self.enter] * 4 + [self.switch, self.note, self.note, self.alert, self.move,
                                      self.move, self.record, self.record_anew, self.color,
                                      self.color]
        while self.program.process.poll() is None:
            self.chance.choice(actions)(next(self.numbers))
            self.watched.look()

    def click(self, place, button=1):
        driver.move_pointer(*place)
        driver.xdotool("click", button)

    def opened(self, before):
        """Whether a further window opened that is there to stay; false when the program is gone."""
        deadline = time.monotonic() + LONGEST_LIFE
        while self.program.process.poll() is None and time.monotonic() < deadline:
            now = self.program.windows() or set()
            if len(now - before) == 1 and driver.active_window() in now - before:
                return True
        return False

    def enter(self, number):
        driver.press("ctrl+t")
        driver.type_text(f"KT{number:06d}")
        driver.press("Return")

    def switch(self, _):
        driver.press(f"alt+{self.chance.randrange(1, 4)}")

    def note(self, number):
        driver.press("alt+1")
        self.look_up()
        self.click(self.spots.ticker)
        before = self.program.windows() or set()
        driver.press("alt+t", *["Up"] * NOTE, "Right", "Return")
        # What is typed is meant for the box, and for nothing else.
        if self.opened(before):
            driver.type_text(f"note {number:06d}")
            driver.press("Return")

    def alert(self, number):
        driver.press("alt+1")
        self.look_up()
        self.click(self.spots.ticker)
        before = self.program.windows() or set()
        driver.press("ctrl+shift+n")
        if self.opened(before):
            # Above any price there is: it waits for good. Its box has the focus.
            driver.type_text(f"{900000 + number:06d}")
            driver.press("Return")

    def move(self, _):
        self.switch(_)
        self.click(self.spots.ticker)
        downs = ["Down"] * self.chance.randrange(3)
        driver.press("alt+t", *["Up"] * MOVE_TO, "Right", *downs, "Return", "Escape", "Escape")

    def record(self, _):
        for place in (self.spots.record, *self.spots.links, self.spots.record):
            self.click(place)

    def record_anew(self, number):
        used = len(re.findall(r"MULTILINK:", self.watched.settings.read_text()))
        if used >= len(self.spots.free):
            return
        before = self.program.windows() or set()
        self.click(self.spots.free[used])
        if self.opened(before):
            self.click(self.spots.title)
            driver.press("ctrl+a")
            driver.type_text(f"M{number:06d}")
            self.click(self.spots.start)
            for place in (*self.spots.links, self.spots.record):
                self.click(place)

    def color(self, _):
        """Copies the colours of a link to another."""
        one, other = self.chance.sample(self.spots.slots, 2)
        self.click(one, 3)
        driver.press(*["Down"] * 5, "Return")
        self.click(other, 3)
        driver.press(*["Down"] * 6, "Return")


def kill_one(options, profile, spots, watched, numbers, chance):
    """A start, a life and a kill."""
    program = driver.Program(options.program, "--web", "sample", profile=profile)
    try:
        # Some never get as far as a window.
        is_early = chance.random() < 0.1
        if is_early:
            time.sleep(chance.uniform(0, 0.6))
            program.process.send_signal(signal.SIGKILL)
            return
        driver.wait_for(program.windows, "the window of the next start")
        timer = threading.Timer(chance.uniform(0, LONGEST_LIFE),
                                program.process.send_signal, [signal.SIGKILL])
        timer.start()
        try:
            Player(program, spots, watched, numbers, chance).play()
        finally:
            timer.cancel()
        assert program.process.returncode == -signal.SIGKILL, \
            f"it ended by itself with {program.process.returncode}: {program.errors()}"
    finally:
        program.stop()


def learn(options, profile):
    with driver.Program(options.program, "--web", "sample", profile=profile) as program:
        try:
            return Spots(program)
        finally:
            program.process.kill()


def work(options):
    """Kills one program after the other; a line of figures now and then."""
    chance = random.Random(options.seed)
    numbers = iter(range(1, 10**6))
    figures = collections.Counter()
    with driver.desktop((1600, 1000)), tempfile.TemporaryDirectory(prefix="crash-") as folder:
        spots = watched = profile = None
        for kill in range(options.kills):
            if kill % KILLS_OF_A_PROFILE == 0:
                profile = Path(folder) / f"profile-{kill}"
                profile.mkdir()
                watched = Watched(profile)
                if spots is None:
                    spots = learn(options, profile)
                    for name in ("QT_LINUX_ACCESSIBILITY_ALWAYS_ON",
                                 "QTWEBENGINE_CHROMIUM_FLAGS"):
                        os.environ.pop(name)
                before = collections.Counter()
            kill_one(options, profile, spots, watched, numbers, chance)
            watched.check()
            now = collections.Counter(tickers=len(watched.tickers), moves=watched.moves,
                                      notes=watched.note and sum(1 for _ in re.finditer(
                                          rb"note \d{6}", watched.notes.read_bytes())),
                                      alerts=len(watched.limits),
                                      multilinks=len(watched.pages), colours=watched.colors)
            figures += now - before
            before = now
            figures["kills"] += 1
            if (kill + 1) % 5 == 0 or kill + 1 == options.kills:
                print(json.dumps(figures), flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program")
    parser.add_argument("--kills", type=int, default=1000)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--side-by-side", type=int, default=2)
    parser.add_argument("--worker", action="store_true", help=argparse.SUPPRESS)
    options = parser.parse_args()
    if options.worker:
        work(options)
        return
    began = time.monotonic()
    workers, latest = [], {}
    told = 0
    for number in range(options.side_by_side):
        share = options.kills // options.side_by_side + (
            number < options.kills % options.side_by_side)
        workers.append(driver.start(
            [sys.executable, "-B", __file__, "--worker", "--kills", str(share), "--seed",
             str(options.seed * 100 + number), options.program], stdout=subprocess.PIPE, text=True))
    lock = threading.Lock()

    def follow(number):
        nonlocal told
        for line in workers[number].stdout:
            with lock:
                latest[number] = collections.Counter(json.loads(line))
                total = sum(latest.values(), collections.Counter())
                if total["kills"] // 50 > told or total["kills"] == options.kills:
                    told = total["kills"] // 50
                    seconds = time.monotonic() - began
                    print(f"{total['kills']} kills in {seconds:.0f} s "
                          f"({seconds / total['kills']:.2f} s each), every start worked; on disk "
                          f"were {total['tickers']} tickers, {total['moves']} moves of them, "
                          f"{total['notes']} notes, {total['alerts']} alerts, "
                          f"{total['multilinks']} multi-links, "
                          f"{total['colours']} changed colours: nothing lost or torn", flush=True)
    threads = [threading.Thread(target=follow, args=[number]) for number in range(len(workers))]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    if any(worker.wait() for worker in workers):
        sys.exit("a worker found something, see above")
    total = sum(latest.values(), collections.Counter())
    if missing := [kind for kind in KINDS if not total[kind]]:
        sys.exit(f"nothing of this was ever on disk, so nothing is known of it: {missing}")


if __name__ == "__main__":
    main()
