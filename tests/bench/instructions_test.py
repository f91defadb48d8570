"""What the check of the counted instructions says of figures that rose, fell, or were counted
elsewhere."""

import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "bench"))
import instructions  # noqa: E402

HERE = "debian 12 x86_64 avx2"
KEPT = dict.fromkeys(instructions.FIGURES, 1000)


def changed(**figures):
    return KEPT | figures


class Check(unittest.TestCase):
    def verdict(self, figures, where=HERE):
        return instructions.verdict(where, figures, HERE, KEPT)

    def test_equal_figures_pass(self):
        self.assertEqual(self.verdict(KEPT)[1], 0)

    def test_five_percent_more_still_pass(self):
        self.assertEqual(self.verdict(changed(click=1050))[1], 0)

    def test_more_than_that_fails_and_names_what_rose_and_what_to_do(self):
        said, code = self.verdict(changed(click=1051, fetch=2000))
        self.assertEqual(code, 1)
        self.assertIn("click, fetch", said)
        self.assertNotIn("switch", said)
        self.assertIn("--write", said)

    def test_fewer_instructions_pass(self):
        self.assertEqual(self.verdict(changed(start=1))[1], 0)

    def test_a_figure_of_which_nothing_is_kept_fails(self):
        kept = {name: count for name, count in KEPT.items() if name != "paint"}
        self.assertEqual(instructions.verdict(HERE, KEPT, HERE, kept)[1], 1)

    def test_another_base_has_no_figures(self):
        said, code = self.verdict(changed(start=9999), where="debian 13 x86_64 avx2")
        self.assertEqual(code, 0)
        self.assertIn("no figures are kept for debian 13 x86_64 avx2", said)

    def test_what_is_written_is_read_again(self):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "figures.toml"
            figures = changed(start=152_923_510)
            path.write_text(instructions.text(HERE, figures))
            self.assertEqual(instructions.read(path), (HERE, figures))

    def test_figures_are_kept_of_all_that_is_counted(self):
        kept_base, kept = instructions.read(instructions.KEPT)
        self.assertTrue(kept_base)
        self.assertEqual(list(kept), list(instructions.FIGURES))


class Dumps(unittest.TestCase):
    def test_only_whole_dumps_of_the_main_thread_count_in_their_order(self):
        with tempfile.TemporaryDirectory() as folder:
            for name, content in {
                    "counts.2-01": "desc: Trigger: --dump-after=B\ntotals: 20\n",
                    "counts.10-01": "desc: Trigger: --dump-after=C\ntotals: 30\n",
                    "counts.1-01": "desc: Trigger: --dump-before=A\ntotals: 10\n",
                    "counts.1-02": "desc: Trigger: --dump-before=A\ntotals: 77\n",
                    "counts.11-01": "desc: Trigger: --dump-after=D\n"}.items():
                (Path(folder) / name).write_text(content)
            self.assertEqual(instructions.dumps(folder),
                             [("--dump-before=A", 10), ("--dump-after=B", 20),
                              ("--dump-after=C", 30)])


if __name__ == "__main__":
    unittest.main()
