#!/usr/bin/env python3
"""Measures many watch windows that are open at once:
watch_windows.py [--minutes N] [--windows N] PROGRAM

Each reloads its page of a server on the loopback interface every 31 seconds, the shortest interval
that the window takes. What is told: whether a reload was missed or late, the memory of the process
tree at the start and at the end, and the processor use of the program's own process in the seconds
in which nothing is loaded.
"""

import argparse
import os
import statistics
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests" / "system"))
import driver  # noqa: E402
from whole_program import memory  # noqa: E402

SECONDS = 30
CYCLE = SECONDS + 1
LATE = 1.0  # seconds
TICKS = os.sysconf("SC_CLK_TCK")


def processor_seconds(process):
    fields = Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / TICKS


def moments(server, window):
    return [moment for moment, path in list(server.requests) if path == f"/watched{window}"]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program")
    parser.add_argument("--minutes", type=float, default=10)
    parser.add_argument("--windows", type=int, default=20)
    options = parser.parse_args()
    windows = range(1, options.windows + 1)

    if os.geteuid() == 0:
        os.environ["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
    quiet_use, held = [], []
    with driver.Server() as server:
        process = driver.start([options.program, server.host, str(options.windows), str(SECONDS)],
                               stderr=subprocess.DEVNULL)
        try:
            for window in windows:
                server.wait_for_request(f"/watched{window}", seconds=120)
            # The first round warms the caches.
            for window in windows:
                server.wait_for_request(f"/watched{window}", times=2, seconds=2 * CYCLE)
            end = time.monotonic() + options.minutes * 60
            while time.monotonic() < end:
                asked = len(server.requests)
                before, used = time.monotonic(), processor_seconds(process.pid)
                time.sleep(1)
                now, later = time.monotonic(), processor_seconds(process.pid)
                last = server.requests[-1][0]
                # What a page takes after its request is over in two seconds.
                if len(server.requests) == asked and before - last > 2:
                    quiet_use.append((later - used) / (now - before))
                if now - last > CYCLE / 2 and (not held or now - held[-1][0] > CYCLE / 2):
                    held.append((now, memory(process.pid)))
            ended = time.monotonic()
        finally:
            driver.stop(process)

        missed = sum(ended - moments(server, window)[-1] > CYCLE + LATE for window in windows)
        waits = [later - sooner for window in windows
                 for sooner, later in zip(moments(server, window), moments(server, window)[1:])]
    print(f"\n{options.windows} watch windows at {SECONDS} s for {options.minutes:g} minutes")
    print(f"reloads {len(waits)}, missed {missed}, late {sum(w > CYCLE + LATE for w in waits)}; "
          f"from one to the next {min(waits):.2f} to {max(waits):.2f} s, "
          f"median {statistics.median(waits):.3f} s (due after {CYCLE})")
    if held:
        print(f"memory of the process tree {held[0][1]:.0f} MB at first, {held[-1][1]:.0f} MB at "
              f"last, {max(mb for _, mb in held):.0f} MB at most")
    print(f"processor between reloads {100 * statistics.mean(quiet_use):.2f} % "
          f"(goal 2), over {len(quiet_use)} seconds")


if __name__ == "__main__":
    main()
