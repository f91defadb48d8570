"""What is installed and shown of licences holds the whole licence and all whose work is in the
program."""

import html
import re
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


def words(text):
    return " ".join(text.split())


class Licences(unittest.TestCase):
    def setUp(self):
        self.copyright = (ROOT / "packaging/copyright").read_text(encoding="utf-8")
        page = (ROOT / "data/help/licences.html").read_text(encoding="utf-8")
        self.page = words(html.unescape(re.sub(r"<[^>]*>", " ", page)))
        self.licence = (ROOT / "LICENSE").read_text(encoding="utf-8")

    def test_both_hold_the_whole_licence(self):
        terms = words(self.licence.split("\n\n", 2)[2])
        self.assertTrue(terms.startswith("Permission is hereby granted"))
        self.assertIn(terms, words(re.sub(r"^ \.$", "", self.copyright, flags=re.M)))
        self.assertIn(terms, self.page)

    def test_both_name_all_whose_work_is_in_the_program(self):
        holders = re.findall(r"^(?:Copyright:)? +(\d{4}[-\d]* [^\n]+)$", self.copyright, re.M)
        self.assertGreaterEqual(len(holders), 6)
        for holder in holders:
            self.assertIn(words(holder), self.page)
        self.assertIn(re.search(r"Copyright \(c\) (.+)", self.licence).group(1), holders)

    def test_every_parser_that_the_core_includes_is_named(self):
        included = {match for path in (ROOT / "src/core").rglob("*.[ch]*")
                    for match in re.findall(r"#include <(toml\+\+|nlohmann)/",
                                            path.read_text(encoding="utf-8"))}
        self.assertEqual(included, {"toml++", "nlohmann"})
        for name in ("toml++", "nlohmann-json"):
            self.assertIn(f"Files: {name}\n", self.copyright)


if __name__ == "__main__":
    sys.exit(unittest.main())
