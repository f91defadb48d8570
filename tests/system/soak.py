#!/usr/bin/env python3
"""Uses the program for a long time and watches what it holds: clicks on links and their menus,
portfolio switches, quote pages, multi-links, and watch windows that reload all the while. One
program does so in sample mode, one in live mode against stand-ins for the sources and the web that
fail now and then; each has a display of its own. Once a minute a line tells memory, descriptors and
processes.

soak.py [--minutes M] [--windows W] [--modes sample,live] [--seed S] PROGRAM

The code is 1 when the memory of the program's own process grows by more than 5 % from the tenth
minute to the end, when descriptors or processes grow, when the program ends, or when a watch window
of the program in live mode loads its page late or not at all. In sample mode no address leaves the
program, so that nobody outside sees its windows reload.
"""

import argparse
import contextlib
import json
import os
import random
import statistics
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

import driver

sys.path.insert(0, str(driver.ROOT / "bench"))
from whole_program import process_tree  # noqa: E402

WAIT = 31  # seconds from one load of a watched page to the next
LATE = 2.0  # seconds
WARM = 10  # minutes
MOST_GROWTH = 0.05
WATCHED = ("WAAA", "WBBB", "WCCC", "WDDD", "WEEE")
WATCHED_LINKS = ("Yahoo! Research Sheet", "Upgrade & Downgrade History", "Yahoo! Profile Sheet",
                 "ZACKS Research")
PORTFOLIOS = ("MSFT|AOL|IBM|", "GE|KO|", "INTC|CSCO|ORCL|DELL|", "", "|".join(WATCHED) + "|")
# Above the list of links that are about the ticker, and of those about the market.
LINK_AREAS = ((0, 320, 378, 600), (1280, 1600, 80, 145))
NO_LINKS = ("Tools", ".com")


def symbols(path):
    return path.partition("symbols=")[2].partition("&")[0].replace("%7C", ",").split(",")


class StandIns(driver.Server):
    """The sources of quotes and the web of live mode: of twenty answers of a source one is an
    error, one is broken off, one is rubbish."""

    def __init__(self, seed):
        super().__init__()
        self._chance = random.Random(seed)
        self.services = {"/cnbc": self._failing(self._cnbc), "/spark": self._failing(self._spark)}

    def forget(self):
        """Begins the list of requests anew."""
        with self._changed:
            self.requests.clear()

    def _failing(self, service):
        def answer(path):
            fate = self._chance.randrange(20)
            if fate == 0:
                return "text/plain", "down", 503
            if fate == 1:
                return None
            return ("application/json", "{\"oops") if fate == 2 else service(path)
        return answer

    def _cnbc(self, path):
        moment = time.strftime("%Y-%m-%dT%H:%M:%S+0000", time.gmtime(time.time() - 60))
        rows = [{"symbol": symbol, "code": 0, "name": symbol, "last_time": moment, "change": "+1.00",
                 "last": f"{self._chance.uniform(10, 500):.2f}"} for symbol in symbols(path)]
        return "application/json", json.dumps({"FormattedQuoteResult": {"FormattedQuote": rows}})

    def _spark(self, path):
        days = [int(time.time()) - 86400 * day for day in range(5, 0, -1)]
        return "application/json", json.dumps({
            symbol: {"symbol": symbol, "timestamp": days, "close": [5.0, 5.5, 5.2, 5.1, 5.3]}
            for symbol in symbols(path)})


def write_profile(profile, server):
    lists = "".join(f"Stocks{number}={tickers}\n" for number, tickers in enumerate(PORTFOLIOS, 1))
    (profile / "settings.ini").write_text(
        f"[Settings]\nFirst=OK\n{lists}[frmMain]\nTop=0\nLeft=0\nHeight=15000\nWidth=24000\n")
    off = "".join(f"[sources.{key}]\nenabled = false\n"
                  for key in ("yahoo-chart", "nasdaq", "cboe", "treasury", "fred"))
    (profile / "sources.toml").write_text(
        f'[sources.cnbc]\nrequest = "http://{server.host}/cnbc?symbols={{symbols}}"\n'
        f'[sources.yahoo-spark]\nrequest = "http://{server.host}/spark?symbols={{symbols}}"\n{off}')
    pages = "".join(f'{name} = "portal:"\n' for name in (
        "3", "index_page", "quote_page", "chart_images", "logo", "stream_ticker", "read_indices",
        "read_portfolio", "read_profile", "read_lists"))
    sites = profile / "all-sites.toml"
    sites.write_text(f'[hosts]\ndefault = "http://{server.host}"\n[links]\n{pages}')
    return sites


def at_rest(read):
    """What is read once it has stayed the same for a while: windows are placed a moment after they
    are there."""
    values = [read()]
    while values[-3:] != values[-1:] * 3:
        time.sleep(0.3)
        values.append(read())
    return values[-1]


class User:
    """Somebody at the main window. Where things are is learned with the help of the accessibility
    tree from a first program; the one that is watched runs without it, as most do."""

    def __init__(self, program, chance):
        window = program.main_window()
        driver.wait_for(lambda: window.extents[2:] == (1600, 1000), "the window in its size")
        controls = [control for control in window.walk() if control.role == "push button"]

        def spot(control):
            left, top, width, height = control.extents
            return left + width // 2, top + height // 2

        def named(description):
            return spot(next(c for c in controls if c.description == description))
        self.links = [spot(control) for control in controls
                      for left, right, top, bottom in LINK_AREAS
                      if left <= control.extents[0] < right and top <= control.extents[1] < bottom
                      and control.name not in NO_LINKS]
        self.recordable = [named("Full Yahoo! Quote"), named("Yahoo! Profile Sheet"),
                           named("4 large Yahoo! charts")]
        self.watchable = [named(link) for link in WATCHED_LINKS]
        self.record = named("Multi Links")
        self.watch, self.refresh = named("Launch a Watch Wizard"), named("Refresh Browser Window")
        left, top, _, height = window.find(role="list item").extents
        self.tickers = [(left + 20, top + height // 2 + line * height) for line in range(len(WATCHED))]
        self.chance, self.counts = chance, {}

    def begin(self, program):
        self.program, self.main = program, program.window_id()

    def to_front(self):
        """Puts the main window in front and closes what else took the keys."""
        for _ in range(20):
            driver.xdotool("windowactivate", self.main)
            if driver.active_window() == self.main:
                return
            driver.press("Escape")
        raise AssertionError("a window stays in front")

    def click(self, place, button=1):
        driver.move_pointer(*place)
        driver.xdotool("click", button)

    def watch_page(self, server, number, is_live):
        """Opens a page about a ticker that nothing else is about, and a watch window of it; gives
        the window and, as far as it can be seen from outside, the address of the page."""
        for _ in range(8):
            path = self.try_page(server, number, is_live)
            if path is None:
                continue
            before = self.program.windows() or set()
            asked = server.count(path)
            self.click(self.watch)
            with contextlib.suppress(AssertionError):
                window = driver.wait_for(lambda: self.new_window(before), "the window", 20)
                if is_live:
                    server.wait_for_request(path, asked + 1)
                return window, path
        driver.screenshot(driver.SCREENSHOTS / "soak.png")
        raise AssertionError("no watch window opens, see build/screenshots/soak.png")

    def try_page(self, server, number, is_live):
        """A window that has just started may not take a click yet."""
        self.to_front()
        driver.press("alt+5")
        self.click(self.tickers[number % len(WATCHED)])
        asked = len(server.paths())
        self.click(self.watchable[number // len(WATCHED)])
        ticker = WATCHED[number % len(WATCHED)]

        def page():
            return next((path for path in server.paths()[asked:]
                         if ticker in path.upper() and "symbols=" not in path), None)
        if not is_live:
            return ""
        with contextlib.suppress(AssertionError):
            return driver.wait_for(page, f"the page about {ticker}", 20)
        return None

    def shorten_wait(self, window, seconds):
        """Types the shortest interval into the box at this place of a watch window."""
        driver.xdotool("windowactivate", window)
        driver.wait_for(lambda: driver.active_window() == window, "the watch window in front")
        place = at_rest(lambda: driver.geometry(window))
        self.click((place[0] + seconds[0], place[1] + seconds[1]))
        driver.press("ctrl+a")
        driver.type_text("30")
        driver.press("Tab")

    def see_waits(self, server, windows, paths, seconds):
        """Waits until every window has loaded its page at the interval that was typed. A first wait
        is a minute, whatever is typed meanwhile; what was typed past the box is typed again."""
        for window, path in zip(windows, paths):
            for times in range(4, 10):
                waited = server.wait_for_request(path, times, 180) - \
                    server.wait_for_request(path, times - 1)
                if waited < 1.5 * WAIT:
                    break
                self.shorten_wait(window, seconds)
            else:
                raise AssertionError(f"{path} is not loaded every {WAIT} s")

    def new_window(self, before):
        """A further window that is neither a tool tip nor a box with a message."""
        for window in (self.program.windows() or set()) - before:
            _, _, width, height = driver.geometry(window)
            if width > 250 and height > 250:
                return window
        return None

    def act(self):
        self.to_front()
        name = self.chance.choice(["link"] * 6 + ["menu"] * 2 + ["switch"] * 2 +
                                  ["quotes", "report", "reload", "multi_link"])
        getattr(self, name)()
        self.counts[name] = self.counts.get(name, 0) + 1

    def link(self):
        self.click(self.chance.choice(self.tickers[:3]))
        self.click(self.chance.choice(self.links))

    def menu(self):
        self.click(self.chance.choice(self.links), 3)
        driver.press("Down", "Down", "Return")
        driver.press("alt+p", *["Down"] * self.chance.randrange(4), "Escape", "Escape")

    def switch(self):
        driver.press(f"alt+{self.chance.randrange(1, 5)}")

    def quotes(self):
        self.click(self.chance.choice(self.tickers[:3]))
        self.click(self.recordable[0])

    def report(self):
        driver.press("ctrl+shift+r")

    def reload(self):
        self.click(self.refresh)

    def multi_link(self):
        for place in (self.record, *self.chance.sample(self.recordable, 2), self.record):
            self.click(place)


def smaps(process, key):
    for line in Path(f"/proc/{process}/smaps_rollup").read_text().splitlines():
        if line.startswith(key + ":"):
            return int(line.split()[1]) / 1024
    return 0.0


def sample(process):
    """What a program holds: MB of its own process (resident, proportional) and of its tree,
    descriptors, processes."""
    tree = process_tree(process)
    whole = 0.0
    for child in tree:
        try:
            whole += smaps(child, "Pss")
        except OSError:
            pass
    return {"rss": smaps(process, "Rss"), "pss": smaps(process, "Pss"), "tree": whole,
            "descriptors": len(os.listdir(f"/proc/{process}/fd")), "processes": len(tree)}


def reloads(server, paths, since, until):
    """Of the watched pages: how many loads there were, how many late, how many windows went silent,
    and the longest wait."""
    waits, silent = [], 0
    for path in paths:
        moments = [moment for moment, asked in list(server.requests)
                   if asked == path and moment <= until]
        waits += [later - sooner for sooner, later in zip(moments, moments[1:]) if later >= since]
        silent += not moments or until - moments[-1] > WAIT + LATE
    return len(waits), sum(wait > WAIT + LATE for wait in waits), silent, max(waits, default=0)


def verdict(samples, late, silent):
    """What is wrong, in words."""
    # With a short run at least its second half is looked at.
    start = min(WARM, len(samples) // 2)
    first, last = samples[start:start + 5], samples[-5:]

    def grown(key):
        before = statistics.median(entry[key] for entry in first)
        return before, statistics.median(entry[key] for entry in last)
    wrong = []
    before, after = grown("pss")
    if after > before * (1 + MOST_GROWTH):
        wrong.append(f"its memory grew from {before:.0f} to {after:.0f} MB")
    before, after = grown("descriptors")
    if after > before * (1 + MOST_GROWTH) + 5:
        wrong.append(f"its descriptors grew from {before:.0f} to {after:.0f}")
    before, after = grown("processes")
    if after > before + 3:
        wrong.append(f"its processes grew from {before:.0f} to {after:.0f}")
    if late or silent:
        wrong.append(f"{late} late reloads, {silent} silent windows")
    return wrong


def soak(options, mode):
    chance = random.Random(options.seed)
    is_live = mode == "live"
    with driver.desktop((1600, 1000)), StandIns(options.seed) as server, \
            tempfile.TemporaryDirectory(prefix="soak-") as folder:
        profile = Path(folder)
        sites = write_profile(profile, server)
        arguments = ("--web", mode, "--sites", sites) if is_live else ("--web", mode)
        with driver.Program(options.program, *arguments, profile=profile) as program:
            user = User(program, chance)
            # Where the seconds are in a watch window, and how many keys lead there.
            user.begin(program)
            window, _ = user.watch_page(server, 0, is_live)
            box = program.application.find(name="Refresh (Secs)", role="text")
            box_at, frame = at_rest(lambda: (box.extents, driver.geometry(window)))
            left, top, width, height = box_at
            seconds = (left - frame[0] + width // 2, top - frame[1] + height // 2)
            assert 0 < seconds[0] < frame[2] and 0 < seconds[1] < frame[3] + 60, (box_at, frame)
            program.process.kill()
        for name in ("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "QTWEBENGINE_CHROMIUM_FLAGS"):
            os.environ.pop(name)
        with driver.Program(options.program, *arguments, profile=profile) as program:
            driver.wait_for(program.windows, "the window")
            user.begin(program)
            server.forget()
            windows, paths = [], []
            for number in range(options.windows):
                window, path = user.watch_page(server, number, is_live)
                paths.append(path)
                windows.append(window)
                user.shorten_wait(window, seconds)
            if is_live:
                user.see_waits(server, windows, paths, seconds)
            began = time.monotonic()
            samples = []

            def seen_reloads():
                return reloads(server, paths if is_live else (), began, time.monotonic())
            while time.monotonic() - began < options.minutes * 60:
                assert program.process.poll() is None, \
                    f"the program ended with {program.process.returncode}: {program.errors()}"
                if time.monotonic() - began >= 60 * len(samples):
                    samples.append(sample(program.process.pid))
                    loads, late, silent, longest = seen_reloads()
                    print(json.dumps({"mode": mode, "minute": len(samples) - 1, **samples[-1],
                                      "actions": sum(user.counts.values()), "loads": loads,
                                      "late": late, "longest": longest}), flush=True)
                user.act()
                time.sleep(chance.uniform(0, 1))
            samples.append(sample(program.process.pid))
            loads, late, silent, longest = seen_reloads()
            wrong = verdict(samples, late, silent)
            print(json.dumps({"mode": mode, "minute": len(samples) - 1, **samples[-1],
                              "actions": sum(user.counts.values()), "loads": loads, "late": late,
                              "longest": longest, "counts": user.counts, "wrong": wrong}),
                  flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program")
    parser.add_argument("--minutes", type=float, default=120)
    parser.add_argument("--windows", type=int, default=20)
    parser.add_argument("--modes", default="sample,live")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--worker", action="store_true", help=argparse.SUPPRESS)
    options = parser.parse_args()
    if options.worker:
        soak(options, options.modes)
        return 0
    workers = {mode: driver.start(
        [sys.executable, "-B", __file__, "--worker", "--modes", mode, "--minutes",
         str(options.minutes), "--windows", str(options.windows), "--seed", str(options.seed),
         options.program], stdout=subprocess.PIPE, text=True) for mode in options.modes.split(",")}
    print("mode    minute  own RSS  own PSS  tree PSS  descriptors  processes  actions  "
          "reloads  late  longest wait")
    results, lock = {}, threading.Lock()

    def follow(mode):
        for line in workers[mode].stdout:
            entry = json.loads(line)
            with lock:
                print("{mode:7} {minute:6}  {rss:7.1f}  {pss:7.1f}  {tree:8.1f}  {descriptors:11}  "
                      "{processes:9}  {actions:7}  {loads:7}  {late:4}  {longest:9.2f} s"
                      .format(**entry), flush=True)
                results[mode] = entry
    threads = [threading.Thread(target=follow, args=[mode]) for mode in workers]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    failed = False
    for mode, worker in workers.items():
        code, last = worker.wait(), results.get(mode, {})
        wrong = last.get("wrong", ["it broke off, see above"])
        failed |= code != 0 or bool(wrong)
        counts = ", ".join(f"{number} {name}" for name, number in
                           sorted(last.get("counts", {}).items()))
        print(f"{mode}: {options.windows} watch windows; {counts}: "
              f"{'; '.join(wrong) if wrong else 'nothing grew, no reload was seen to be late'}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
