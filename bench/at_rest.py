#!/usr/bin/env python3
"""What programs take at rest that nobody touches: at_rest.py [--minutes N] PROGRAM BARE_PROGRAM

Side by side, each on a display and a profile of its own: a bare program with one web view, ours with
a portfolio of forty tickers whose quotes stand in the list (over the invented market, and live
against a server on the loopback interface that answers for the sources), and ours with the ticker
strip. Counted are the processor time of the whole process tree and how often each of its threads
woke up. That of the program's own process is told apart: the rest is the engine's.
"""

import argparse
import collections
import json
import os
import subprocess
import sys
import tempfile
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests" / "system"))
import driver  # noqa: E402
import whole_program  # noqa: E402

TICKS = os.sysconf("SC_CLK_TCK")
TICKERS = [f"T{number}" for number in range(40)]
KINDS = ("bare", "sample", "live", "strip")
LISTED = 5  # threads that woke up most often
SETTLING = 20  # seconds after the last that happens at the start


def cnbc(path):
    """Quotes for all symbols that are asked for, as one of the sources tells them."""
    moment = time.strftime("%Y-%m-%dT%H:%M:%S+0000", time.gmtime(time.time() - 60))
    symbols = path.partition("symbols=")[2].partition("&")[0].replace("%7C", ",").split(",")
    rows = [{"symbol": symbol, "code": 0, "last": f"{100 + time.time() % 50:.2f}",
             "change": "+1.00", "last_time": moment} for symbol in symbols]
    return "application/json", json.dumps({"FormattedQuoteResult": {"FormattedQuote": rows}})


def arguments(kind, options, server, folder):
    if kind == "bare":
        return [options.bare, f"http://{server.host}/first", f"http://{server.host}/click"]
    profile = Path(folder) / "profile"
    profile.mkdir()
    start_page = f"Ahttp://{server.host}/first"
    (profile / "settings.ini").write_text(
        f"[Settings]\nFirst=OK\nStocks1={'|'.join(TICKERS)}|\nDefaultWeb={start_page}\n"
        f"WSCTick={kind == 'strip'}\n[frmMain]\nTop=50\nLeft=50\nHeight=13500\nWidth=19200\n")
    (profile / "sources.toml").write_text(
        f'[sources.cnbc]\nrequest = "http://{server.host}/cnbc?symbols={{symbols}}"\n' +
        "".join(f"[sources.{key}]\nenabled = false\n" for key in
                ("yahoo-spark", "yahoo-chart", "nasdaq", "cboe", "treasury", "fred")))
    sites = Path(folder) / "all-sites.toml"
    sites.write_text(f'[hosts]\ndefault = "http://{server.host}"\n')
    mode = "live" if kind == "live" else "sample"
    return [options.program, "--profile", profile, "--web", mode, "--sites", sites]


def look(root):
    """Processor seconds by process, and wake-ups by the names of process and thread."""
    seconds, wakes = {}, collections.Counter()
    for process in whole_program.process_tree(root):
        folder = Path(f"/proc/{process}")
        try:
            fields = (folder / "stat").read_text().rpartition(")")[2].split()
            seconds[process] = (int(fields[11]) + int(fields[12])) / TICKS
            name = (folder / "comm").read_text().strip()
            for thread in (folder / "task").iterdir():
                status = (thread / "status").read_text()
                wakes[f"{name} / {(thread / 'comm').read_text().strip()}"] += int(
                    status.partition("\nvoluntary_ctxt_switches:")[2].split()[0])
        except OSError:
            continue
    return seconds, wakes


def work(kind, options):
    """Watches one program; its figures as a line."""
    with driver.desktop((1400, 1000)), driver.Server() as server, \
            tempfile.TemporaryDirectory() as folder:
        for name in ("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "QTWEBENGINE_CHROMIUM_FLAGS"):
            os.environ.pop(name)
        server.services = {"/cnbc": cnbc}
        program = driver.Program(*map(str, arguments(kind, options, server, folder)))
        try:
            driver.wait_for(program.windows, "the window")
            time.sleep(SETTLING)
            began, (seconds, wakes) = time.monotonic(), look(program.process.pid)
            asked = len(server.requests)
            time.sleep(options.minutes * 60)
            later, woke = look(program.process.pid)
            lasted = time.monotonic() - began
            used = {process: later[process] - seconds.get(process, 0) for process in later}
            woke.subtract(wakes)
            print(json.dumps({
                "own": used[program.process.pid] / lasted, "all": sum(used.values()) / lasted,
                "wakes": woke.total() / lasted, "asked": len(server.requests) - asked,
                "threads": [[name, count / lasted] for name, count in woke.most_common(LISTED)]}))
        finally:
            program.stop()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--minutes", type=float, default=10)
    parser.add_argument("--kind", choices=KINDS, help=argparse.SUPPRESS)
    parser.add_argument("program")
    parser.add_argument("bare")
    options = parser.parse_args()
    if options.kind:
        work(options.kind, options)
        return
    workers = {kind: driver.start([sys.executable, "-B", __file__, "--minutes",
                                   str(options.minutes), "--kind", kind, options.program,
                                   options.bare], stdout=subprocess.PIPE, text=True)
               for kind in KINDS}
    print(f"\nAt rest for {options.minutes:g} minutes, of one core")
    print(f"{'':8}{'own process':>13}{'all':>9}{'wake-ups / s':>14}{'requests':>10}")
    for kind, worker in workers.items():
        figures = json.loads(worker.communicate()[0])
        print(f"{kind:8}{figures['own']:12.2%}{figures['all']:10.2%}{figures['wakes']:13.1f}"
              f"{figures['asked']:10}")
        for name, count in figures["threads"]:
            print(f"{'':12}{name:36}{count:7.1f}")


if __name__ == "__main__":
    main()
