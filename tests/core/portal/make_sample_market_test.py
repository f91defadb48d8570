#!/usr/bin/env python3
"""Checks that the script of the sample market still writes the file that ships."""

import pathlib
import subprocess
import sys
import tempfile

data = pathlib.Path(sys.argv[1])
with tempfile.TemporaryDirectory() as folder:
    written = pathlib.Path(folder) / "sample_market.txt"
    subprocess.run([sys.executable, data / "make_sample_market.py", written], check=True)
    if written.read_bytes() != (data / "sample_market.txt").read_bytes():
        sys.exit("data/sample_market.txt is not what data/make_sample_market.py writes")
