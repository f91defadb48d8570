#!/usr/bin/env python3
"""Lets each single write of a session over the stores fail once, in three ways: no space, a broken
disk, and no space after half of it. Afterwards every store is old or new, the step said so, and
what was refused succeeds when it is tried again.

write_faults.py [--every N] FAILING_WRITES STORE_SESSION
"""

import argparse
import collections
import errno
import os
import subprocess
import sys
import tempfile
from pathlib import Path

WAYS = {"no space": errno.ENOSPC, "a broken disk": errno.EIO, "half a write": 0}


def session(library, program, at=0, error=0):
    """Runs a session of which the write with this number fails: its exit code, what it printed and
    the writes, a line each."""
    with tempfile.TemporaryDirectory(prefix="faults-") as folder:
        tried, clean, log = (Path(folder) / name for name in ("tried", "clean", "log"))
        tried.mkdir()
        clean.mkdir()
        log.touch()
        environment = dict(os.environ, LD_PRELOAD=str(library), FAILING_WRITES_UNDER=f"{tried}/",
                           FAILING_WRITES_AT=str(at), FAILING_WRITES_ERROR=str(error),
                           FAILING_WRITES_LOG=str(log))
        answer = subprocess.run([program, tried, clean], env=environment, capture_output=True,
                                text=True, timeout=60)
        return answer.returncode, answer.stdout + answer.stderr, log.read_text().splitlines()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--every", type=int, default=1, help="only each N-th write fails")
    parser.add_argument("library", type=Path)
    parser.add_argument("program", type=Path)
    options = parser.parse_args()

    code, words, writes = session(options.library, options.program)
    if code != 0 or not writes:
        sys.exit(f"the session fails without a fault: {words}")
    kinds = collections.Counter(line.split()[1] for line in writes)
    print(f"{words.strip()}; {len(writes)} writes: " +
          ", ".join(f"{number} {kind}" for kind, number in kinds.most_common()))

    runs = told = failed = 0
    for way, error in WAYS.items():
        for at in range(1, len(writes) + 1, options.every):
            if way == "half a write" and writes[at - 1].split()[1] != "write":
                continue
            code, words, lines = session(options.library, options.program, at, error)
            runs += 1
            if not any(line.endswith(" FAILS") for line in lines):
                sys.exit(f"write {at} was not made to fail")
            told += "0 said" not in words
            if code != 0:
                failed += 1
                print(f"{way} at {writes[at - 1]}: {words.strip()} ({code})")
    print(f"{runs} sessions, each with one failing write: in {told} of them a step said so, in "
          f"{failed} a store was neither old nor new, or silent, or dead")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
