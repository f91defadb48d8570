#!/usr/bin/env python3
"""Keeps the house in order: who may know whom, and what the documents say of it.

    house.py check [ROOT]      names every line that breaks a rule; ends with 1 when there is one
    house.py untested [ROOT]   lists the sources that have no test of their name

The order of the floors is the picture in docs/architecture.md: lines of a floor's number, a room
and what is in it, under the name of the half. A room may include rooms of lower floors of its half
and of the halves below; rooms of one floor do not know each other.
"""

import os
import re
import sys
from collections import defaultdict
from pathlib import Path

DOCUMENT = "docs/architecture.md"
HALF = re.compile(r"^    src/(\w+)\b")
ROOM = re.compile(r"^      +(\d+)  (\w+)  +\S")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
SOURCES = (".cpp", ".h")
# Left out: what is made, not written.
MADE = {".git", "build", ".cache", "__pycache__"}
# Names that Windows keeps for its devices, with any extension.
DEVICES = re.compile(r"^(con|prn|aux|nul|com\d|lpt\d)(\.|$)", re.IGNORECASE)
# The web engine is known in one room only.
ENGINE_ROOM = ("app", "engine")
ENGINE_HEADER = re.compile(r"^(QtWebEngine\w*/.*|QWebEngine\w*|QtWebEngine\w*)$")
# What a document may name as a path: a file or folder under one of the tree's own.
PATH = re.compile(r"(?<![\w/.~-])((?:src|tests|docs|data|bench|fuzz|scripts|probe|cmake|packaging"
                  r"|\.ci)/[\w./*-]*)")
LINK = re.compile(r"\]\(([^)#\s]+)")
# Where sources depend on the system that they are built for; this document lists them all.
PORTING = "docs/porting.md"
CONDITION = re.compile(r"^\s*#\s*(if|ifdef|ifndef)\b|"
                       r"^\s*#\s*include\s*<(unistd|fcntl|dlfcn|poll|sys/\w+)\.h>")


class House:
    """The tree under a root, and the floors that its picture gives to the rooms."""

    def __init__(self, root):
        self.root = Path(root)
        self.paths = sorted(self._walk())
        self.halves = []  # from the roof down
        self.floors = {}  # (half, room) -> number
        self.complaints = []
        self._read_picture()

    def _walk(self):
        for folder, folders, files in os.walk(self.root):
            folders[:] = [name for name in folders if name not in MADE]
            for name in files:
                yield (Path(folder) / name).relative_to(self.root).as_posix()

    def _lines(self, path):
        text = (self.root / path).read_text(encoding="utf-8", errors="replace")
        return enumerate(text.split("\n"), 1)

    def _complain(self, path, line, text):
        self.complaints.append(f"{path}:{line}: {text}")

    def _read_picture(self):
        half = None
        for number, line in self._lines(DOCUMENT):
            if found := HALF.match(line):
                half = found.group(1)
                self.halves.append(half)
            elif half and (found := ROOM.match(line)):
                floor, room = int(found.group(1)), found.group(2)
                if (half, room) in self.floors:
                    self._complain(DOCUMENT, number, f"the room src/{half}/{room} is drawn twice")
                self.floors[half, room] = floor
                if not (self.root / "src" / half / room).is_dir():
                    self._complain(DOCUMENT, number, f"there is no room src/{half}/{room}")

    def check(self):
        if not self.floors:
            self._complain(DOCUMENT, 1, "there is no picture of the floors")
        sources = [path for path in self.paths
                   if path.startswith("src/") and path.endswith(SOURCES)]
        self.check_rooms(sources)
        for path in sources:
            self.check_includes(path)
        self.check_names()
        self.check_documents()
        self.check_porting()
        return self.complaints

    def room_of(self, path):
        """(half, room) of src/half/room/..., (half, None) of src/half/file, (None, None) else."""
        parts = path.split("/")[1:]
        if parts[0] not in self.halves:
            return None, None
        return parts[0], parts[1] if len(parts) > 2 else None

    def check_rooms(self, sources):
        seen = set()
        for path in sources:
            room = self.room_of(path)
            if room in seen or room in self.floors or room[1] is None and room[0]:
                continue
            seen.add(room)
            self._complain(path, 1, "the picture of the floors does not have its folder")

    def check_includes(self, path):
        here = self.room_of(path)
        for number, line in self._lines(path):
            found = INCLUDE.match(line)
            if not found:
                continue
            header = found.group(2)
            if ENGINE_HEADER.match(header) and here != ENGINE_ROOM:
                self._complain(path, number, f"only src/app/engine may include {header}")
            elif found.group(1) == "<" and header.startswith("Q") and here[0] == "core":
                self._complain(path, number, f"the core includes nothing of Qt: {header}")
            elif found.group(1) == '"':
                self._check_include(path, number, here, header)

    def _check_include(self, path, number, here, header):
        there = self.room_of("src/" + header)
        if f"src/{header}" not in self.paths:
            self._complain(path, number, f"there is no src/{header}")
        elif there == here or here[1] is None:
            pass
        elif self.halves.index(there[0]) < self.halves.index(here[0]):
            self._complain(path, number, f"climbs from src/{here[0]} to {header}")
        elif there[0] == here[0] and self.floors.get(there, 0) >= self.floors.get(here, 0):
            self._complain(path, number, f"climbs from src/{'/'.join(here)} to {header}")

    def check_names(self):
        spellings = defaultdict(set)
        for path in self.paths:
            parts = path.split("/")
            for end in range(1, len(parts) + 1):
                part = "/".join(parts[:end])
                spellings[part.lower()].add(part)
            if any(DEVICES.match(part) for part in parts):
                self._complain(path, 1, "has a name that some systems keep for a device")
            if path.startswith("src/core/") and re.search("[A-Z]", path):
                self._complain(path, 1, "names of the core are lower case")
        for same in spellings.values():
            if len(same) > 1:
                first, *others = sorted(same)
                self._complain(first, 1, f"differs only in case from {', '.join(others)}")

    def check_documents(self):
        folders = {"/".join(path.split("/")[:end])
                   for path in self.paths for end in range(1, path.count("/") + 1)}
        for document in self.paths:
            if not document.endswith(".md"):
                continue
            beside = Path(document).parent
            for number, line in self._lines(document):
                for name in PATH.findall(line):
                    self._check_named(document, number, name.rstrip("/."), folders)
                for link in LINK.findall(line):
                    if "://" in link or link.startswith("mailto:"):
                        continue
                    target = os.path.normpath((beside / link).as_posix())
                    if target not in self.paths and target not in folders:
                        self._complain(document, number, f"there is no {target}")

    def _check_named(self, document, number, name, folders):
        if "*" in name:
            pattern = re.compile(re.escape(name).replace(r"\*", "[^/]*") + "$")
            exists = any(pattern.match(path) for path in self.paths)
        else:
            exists = name in self.paths or name in folders
        if not exists:
            self._complain(document, number, f"there is no {name}")

    def check_porting(self):
        """What depends on the system is named by its path in the document about it."""
        if PORTING not in self.paths:
            return
        named = {name.rstrip("/.") for _, line in self._lines(PORTING)
                 for name in PATH.findall(line)}
        folders = {name.removesuffix("/*") for name in named if name.endswith("/*")}
        for path in self.paths:
            if (not path.endswith(SOURCES) or path in named
                    or path.rpartition("/")[0] in folders):
                continue
            for number, line in self._lines(path):
                if CONDITION.match(line):
                    self._complain(path, number, f"depends on the system; {PORTING} has no row "
                                                 "about it")
                    break

    def untested(self):
        tests = set(self.paths)
        for path in self.paths:
            core = re.fullmatch(r"src/(core/.*)\.cpp", path)
            app = re.fullmatch(r"src/(app/.*)\.cpp", path)
            if core and f"tests/{core.group(1)}_test.cpp" not in tests:
                yield path
            elif app and f"tests/{app.group(1)}Test.cpp" not in tests:
                yield path


def main(arguments):
    if not 1 <= len(arguments) <= 2 or arguments[0] not in ("check", "untested"):
        print(__doc__, file=sys.stderr)
        return 2
    root = arguments[1] if len(arguments) == 2 else Path(__file__).resolve().parents[1]
    house = House(root)
    found = house.check() if arguments[0] == "check" else list(house.untested())
    for line in found:
        print(line)
    return 1 if found and arguments[0] == "check" else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
