#!/usr/bin/env python3
"""Plants every kind of disorder into a small house and sees it named, by file and line."""

import importlib.util
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "house.py"
loader = importlib.util.spec_from_file_location("house", SCRIPT)
house = importlib.util.module_from_spec(loader)
loader.loader.exec_module(house)

PICTURE = """# How it is built

    src/app/
       3  shell    start and close
       2  links    what a click does
       2  tools    colours
       1  engine   the panes
    src/core/
       2  links    addresses
       1  text     bytes
"""

TREE = {
    "docs/architecture.md": PICTURE,
    "src/app/main.cpp": '#include "app/shell/Session.h"\n',
    "src/app/shell/Session.h": '#include "app/links/Panel.h"\n',
    "src/app/links/Panel.h": '#include "app/engine/Pane.h"\n#include "core/text/bytes.h"\n',
    "src/app/tools/Colors.h": '#include "core/links/address.h"\n',
    "src/app/engine/Pane.h": "#include <QWebEngineView>\n",
    "src/core/links/address.h": '#include "core/text/bytes.h"\n',
    "src/core/text/bytes.h": "#include <string>\n",
    "src/core/text/bytes.cpp": '#include "core/text/bytes.h"\n',
    "tests/core/text/bytes_test.cpp": "",
}


class HouseTest(unittest.TestCase):
    def complaints(self, **planted):
        """What is said of the small house with further or other files, named by their paths."""
        with tempfile.TemporaryDirectory() as folder:
            for path, text in {**TREE, **planted.get("files", {})}.items():
                file = Path(folder) / path
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text, encoding="utf-8")
            return house.House(folder).check()

    def test_an_orderly_house_is_passed_without_a_word(self):
        self.assertEqual(self.complaints(), [])

    def test_a_climb_to_a_higher_floor_is_named(self):
        self.assertEqual(
            self.complaints(files={
                "src/core/text/bytes.h": '#include <string>\n#include "core/links/address.h"\n'}),
            ["src/core/text/bytes.h:2: climbs from src/core/text to core/links/address.h"])

    def test_rooms_of_one_floor_do_not_know_each_other(self):
        self.assertEqual(
            self.complaints(files={"src/app/tools/Colors.h": '#include "app/links/Panel.h"\n'}),
            ["src/app/tools/Colors.h:1: climbs from src/app/tools to app/links/Panel.h"])

    def test_a_circle_of_two_rooms_is_a_climb(self):
        self.assertEqual(
            self.complaints(files={"src/app/engine/Pane.h": '#include "app/links/Panel.h"\n'}),
            ["src/app/engine/Pane.h:1: climbs from src/app/engine to app/links/Panel.h"])

    def test_the_core_never_knows_the_application(self):
        self.assertEqual(
            self.complaints(files={"src/core/links/address.h": '#include "app/engine/Pane.h"\n'}),
            ["src/core/links/address.h:1: climbs from src/core to app/engine/Pane.h"])

    def test_the_core_includes_nothing_of_qt(self):
        self.assertEqual(
            self.complaints(files={"src/core/text/bytes.h": "#include <QString>\n"}),
            ["src/core/text/bytes.h:1: the core includes nothing of Qt: QString"])

    def test_what_depends_on_the_system_is_listed(self):
        on_linux = "#include <string>\n#ifdef __linux__\n#include <unistd.h>\n#endif\n"
        planted = {"src/core/text/bytes.h": on_linux, "docs/porting.md": "Nothing\n"}
        self.assertEqual(self.complaints(files=planted),
                         ["src/core/text/bytes.h:2: depends on the system; docs/porting.md has no "
                          "row about it"])
        planted["src/core/text/bytes.h"] = "#include <sys/stat.h>\n"
        self.assertEqual([line[:23] for line in self.complaints(files=planted)],
                         ["src/core/text/bytes.h:1"])
        for row in ("`src/core/text/bytes.h`", "`src/core/text/*`"):
            planted["docs/porting.md"] = f"| {row} | why |\n"
            self.assertEqual(self.complaints(files=planted), [])

    def test_only_the_room_of_the_engine_knows_the_engine(self):
        for header in ("QWebEnginePage", "QtWebEngineCore/qtwebenginecoreglobal.h"):
            self.assertEqual(
                self.complaints(files={"src/app/tools/Colors.h": f"#include <{header}>\n"}),
                [f"src/app/tools/Colors.h:1: only src/app/engine may include {header}"])

    def test_a_header_that_is_not_there_is_named(self):
        self.assertEqual(
            self.complaints(files={"src/core/text/bytes.cpp": '#include "text/bytes.h"\n'}),
            ["src/core/text/bytes.cpp:1: there is no src/text/bytes.h"])

    def test_a_room_without_a_floor_is_named(self):
        self.assertEqual(
            self.complaints(files={"src/core/other/thing.h": "", "src/stray.h": ""}),
            ["src/core/other/thing.h:1: the picture of the floors does not have its folder",
             "src/stray.h:1: the picture of the floors does not have its folder"])

    def test_a_floor_without_a_room_is_named(self):
        self.assertEqual(
            self.complaints(files={"docs/architecture.md": PICTURE + "       3  portal   pages\n"}),
            ["docs/architecture.md:11: there is no room src/core/portal"])

    def test_a_house_without_a_picture_is_no_house(self):
        self.assertIn("docs/architecture.md:1: there is no picture of the floors",
                      self.complaints(files={"docs/architecture.md": "# Nothing\n"}))

    def test_paths_that_differ_only_in_case_are_named(self):
        self.assertEqual(
            self.complaints(files={"src/app/tools/colors.h": ""}),
            ["src/app/tools/Colors.h:1: differs only in case from src/app/tools/colors.h"])
        self.assertEqual(
            self.complaints(files={"tests/Core/x.txt": ""}),
            ["tests/Core:1: differs only in case from tests/core"])

    def test_names_that_a_system_keeps_for_itself_are_named(self):
        self.assertEqual(
            self.complaints(files={"data/aux.txt": ""}),
            ["data/aux.txt:1: has a name that some systems keep for a device"])

    def test_a_capital_letter_in_the_core_is_named(self):
        self.assertEqual(
            self.complaints(files={"src/core/text/Bytes2.h": ""}),
            ["src/core/text/Bytes2.h:1: names of the core are lower case"])

    def test_paths_in_documents_have_to_exist(self):
        text = ("see `src/core/text/bytes.h`, `src/core/`, tests/core/*/bytes_test.cpp,\n"
                "`src/text/bytes.h` and tests/app/*_test.cpp, [this](architecture.md),\n"
                "[that](missing.md), [the web](https://example.org/docs/x.md).\n")
        self.assertEqual(
            self.complaints(files={"docs/other.md": text}),
            ["docs/other.md:2: there is no src/text/bytes.h",
             "docs/other.md:2: there is no tests/app/*_test.cpp",
             "docs/other.md:3: there is no docs/missing.md"])

    def test_sources_without_a_test_are_listed(self):
        with tempfile.TemporaryDirectory() as folder:
            for path in ("docs/architecture.md", "src/core/text/a.cpp", "src/core/text/b.cpp",
                         "src/app/links/C.cpp", "src/app/links/D.cpp", "src/app/links/E.h",
                         "tests/core/text/a_test.cpp", "tests/app/links/CTest.cpp"):
                file = Path(folder) / path
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text("", encoding="utf-8")
            self.assertEqual(list(house.House(folder).untested()),
                             ["src/app/links/D.cpp", "src/core/text/b.cpp"])


if __name__ == "__main__":
    sys.dont_write_bytecode = True
    unittest.main()
