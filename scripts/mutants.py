#!/usr/bin/env python3
"""Plants small mistakes in the core, one at a time, and sees whether its tests find them:
mutants.py [N] [--seed S] [--only PATH]

A mutant is one changed operator, constant or condition. It is planted in a copy of the tree under
build/mutants, which has a build of its own; one that does not compile is drawn again. Survivors are
listed with file and line. Those that change nothing that can be observed stand, with the reason, in
tests/core/equivalent_mutants.txt and are not counted. The code is 1 when fewer than 95 % are killed.
"""

import argparse
import json
import os
import random
import re
import shlex
import shutil
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
SCRATCH = ROOT / "build" / "mutants"
TREE = SCRATCH / "tree"
BUILD = SCRATCH / "build"
PROGRAM = SCRATCH / "core_tests"
EQUIVALENT = ROOT / "tests" / "core" / "equivalent_mutants.txt"
GOAL = 0.95
BUILD_TIME = 900  # seconds; on a machine that does much else

# The formatter puts blanks around operators, and none around the brackets of templates.
OPERATORS = [(f" {old} ", f" {new} ") for old, new in [
    ("<", "<="), ("<=", "<"), (">", ">="), (">=", ">"), ("==", "!="), ("!=", "=="), ("&&", "||"),
    ("||", "&&"), ("+", "-"), ("-", "+"), ("*", "+"), ("%", "*"), ("+=", "-="), ("-=", "+=")]]
STRING = re.compile(r'R"\((?:.|\n)*?\)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'|//[^\n]*'
                    r'|/\*(?:.|\n)*?\*/|^[ \t]*#[^\n]*|static_assert\((?:.|\n)*?;', re.MULTILINE)
NUMBER = re.compile(r"(?<![\w.'])\d+(?:'\d+)*(?![\w.'])")
NEGATION = re.compile(r"(?<=[(\s!])!(?=[A-Za-z_(])")
STEP = re.compile(r"\+\+|--")
TRUTH = re.compile(r"\breturn (true|false);")
CONDITION = re.compile(r"\bif \(")


class Mutant:
    def __init__(self, path, text, start, end, new):
        self.path, self.text, self.start, self.end, self.new = path, text, start, end, new

    @property
    def line(self):
        return self.text.count("\n", 0, self.start) + 1

    def changed(self):
        return self.text[:self.start] + self.new + self.text[self.end:]

    def key(self):
        """The file and the changed line, whatever its number."""
        line = self.changed().splitlines()[self.line - 1]
        return f"{self.path}: {' '.join(line.split())}"

    def __str__(self):
        before = self.text.splitlines()[self.line - 1].strip()
        return f"{self.path}:{self.line}: {before}\n    became {self.key().partition(': ')[2]}"


def condition_end(code, start):
    """Where the bracket that opens before `start` closes."""
    depth = 1
    for at in range(start, len(code)):
        depth += {"(": 1, ")": -1}.get(code[at], 0)
        if depth == 0:
            return at
    return None


def mutants_of(path):
    """All mutants of a file."""
    text = (TREE / path).read_text()
    # Same length, so that places stay; what is no code is blanked out.
    code = STRING.sub(lambda found: re.sub(r"[^\n]", "\x01", found[0]), text)
    found = []

    def add(start, end, new):
        found.append(Mutant(path, text, start, end, new))

    for old, new in OPERATORS:
        for at in re.finditer(re.escape(old), code):
            add(at.start(), at.end(), new)
    for number in NUMBER.finditer(code):
        add(number.start(), number.end(), str(int(number[0].replace("'", "")) + 1))
    for at in NEGATION.finditer(code):
        add(at.start(), at.end(), "")
    for at in STEP.finditer(code):
        add(at.start(), at.end(), "--" if at[0] == "++" else "++")
    for at in TRUTH.finditer(code):
        add(at.start(1), at.end(1), "false" if at[1] == "true" else "true")
    for at in CONDITION.finditer(code):
        end = condition_end(code, at.end())
        condition = code[at.end():end]
        # A name that is declared in a condition cannot be negated there.
        if end and ";" not in condition and not re.search(r"[^=!<>]=[^=]", condition):
            add(at.end(), end, "!(" + text[at.end():end] + ")")
    return found


def run(*command, seconds=None, directory=ROOT):
    return subprocess.run(list(map(str, command)), cwd=directory, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, errors="replace", timeout=seconds)


def copy_tree():
    """What the core and its tests need, copied; what did not change keeps its time."""
    listed = run("git", "ls-files", "--cached", "--others", "--exclude-standard", "CMakeLists.txt",
                 "bench", "cmake", "src/core", "tests", "data", "docs", "scripts").stdout.split("\n")
    wanted = {name for name in listed if name and (ROOT / name).is_file()}
    for name in wanted:
        source, target = ROOT / name, TREE / name
        if not target.exists() or source.read_bytes() != target.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, target)
    for old in TREE.rglob("*"):
        if old.is_file() and str(old.relative_to(TREE)) not in wanted:
            old.unlink()


def build_all():
    # Without optimising and without symbols one changed file is compiled and linked in seconds.
    for command in (["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DTALLOWMERE_APP=OFF",
                     "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g0"],
                    ["ninja", "-C", BUILD, "core_tests"]):
        answer = run(*command)
        if answer.returncode != 0:
            sys.exit(f"the copy does not build:\n{answer.stdout[-3000:]}")


def compile_commands():
    """How each source is compiled, by its path in the tree, without its output."""
    commands = {}
    for entry in json.loads((BUILD / "compile_commands.json").read_text()):
        source = Path(entry["file"])
        if source.is_relative_to(TREE / "src"):
            words = shlex.split(entry["command"])
            at = words.index("-o")
            commands[str(source.relative_to(TREE))] = words[:at] + words[at + 2:]
    return commands


def build(mutant, commands):
    """Compiles the one file and links it in front of the library, whose own copy of it is then
    passed over; false when it does not compile."""
    source = TREE / mutant.path
    source.write_text(mutant.changed())
    try:
        compiled = run(*commands[str(mutant.path)], "-o", SCRATCH / "mutant.o",
                       seconds=BUILD_TIME, directory=BUILD)
    except subprocess.TimeoutExpired:
        return False
    finally:
        source.write_text(mutant.text)
    if compiled.returncode != 0:
        return False
    objects = sorted((BUILD / "tests" / "CMakeFiles" / "core_tests.dir").rglob("*.o"))
    linked = run("c++", *objects, SCRATCH / "mutant.o", BUILD / "libtallowmere_core.a", "-lgmock",
                 "-lgtest_main", "-lgtest", "-o", PROGRAM, seconds=BUILD_TIME)
    if linked.returncode != 0:
        sys.exit(f"the tests do not link:\n{linked.stdout[-3000:]}")
    return True


class Tests:
    def __init__(self):
        shutil.copy(BUILD / "tests" / "core_tests", PROGRAM)
        began = time.monotonic()
        answer = self._run("*", 600)
        if answer.returncode != 0:
            sys.exit(f"the tests fail without any mutant:\n{answer.stdout[-3000:]}")
        self.patience = 20 + 3 * (time.monotonic() - began)

    @staticmethod
    def _run(pattern, seconds):
        return run(PROGRAM, "--gtest_brief=1", "--gtest_fail_fast",
                   f"--gtest_filter={pattern}", seconds=seconds)

    def fail(self, path):
        """Whether a test fails, crashes or never ends; those of the file itself come first."""
        own = TREE / "tests" / "core" / path.relative_to("src/core").with_suffix("")
        own = own.with_name(own.name + "_test.cpp")
        patterns = [("*", self.patience)]
        if own.exists():
            suites = sorted(set(re.findall(r"^TEST(?:_F|_P)?\((\w+)", own.read_text(), re.M)))
            patterns.insert(0, (":".join(f"{suite}.*:*/{suite}.*" for suite in suites),
                                self.patience / 2))
        try:
            return any(self._run(*pattern).returncode != 0 for pattern in patterns)
        except subprocess.TimeoutExpired:
            return True


def known_equivalents():
    lines = EQUIVALENT.read_text().splitlines() if EQUIVALENT.exists() else []
    return {line for line in lines if line.startswith("src/")}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("count", nargs="?", type=int, default=200)
    parser.add_argument("--seed", type=int, default=None)
    parser.add_argument("--only", default="", help="only files below this path")
    options = parser.parse_args()
    seed = random.randrange(10**6) if options.seed is None else options.seed

    os.environ.update(CCACHE_DISABLE="1")
    copy_tree()
    print("building the copy", flush=True)
    build_all()
    commands = compile_commands()
    tests = Tests()

    candidates = [mutant for path in sorted((TREE / "src" / "core").rglob("*.cpp"))
                  if not path.name.endswith("_windows.cpp")
                  for mutant in mutants_of(path.relative_to(TREE))
                  if str(mutant.path).startswith(options.only)]
    random.Random(seed).shuffle(candidates)
    print(f"{len(candidates)} mutants are possible, {options.count} are planted, seed {seed}; "
          f"a run of the tests may take {tests.patience:.0f} s", flush=True)

    equivalents = known_equivalents()
    killed, survivors, stillborn, skipped = 0, [], 0, 0
    began = time.monotonic()
    for mutant in candidates:
        if killed + len(survivors) == options.count:
            break
        if mutant.key() in equivalents:
            skipped += 1
            continue
        if not build(mutant, commands):
            stillborn += 1
            continue
        if tests.fail(mutant.path):
            killed += 1
        else:
            survivors.append(mutant)
            print(f"survived: {mutant}", flush=True)
        done = killed + len(survivors)
        if done % 10 == 0:
            print(f"{done} of {options.count}: {killed} killed, {len(survivors)} survived, "
                  f"{time.monotonic() - began:.0f} s", flush=True)
    total = killed + len(survivors)
    print(f"seed {seed}: {killed} of {total} killed ({100 * killed / max(total, 1):.1f} %), "
          f"{stillborn} did not compile, {skipped} known to change nothing were passed over")
    for mutant in survivors:
        print(mutant)
    return 0 if killed >= GOAL * total else 1


if __name__ == "__main__":
    sys.exit(main())
