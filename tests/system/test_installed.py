"""An installed copy: it works from where it was put, and says so when its tables are not there."""

import shutil

import driver


class Installed(driver.SystemTest):
    def test_a_copy_finds_its_tables(self):
        prefix = self.install()
        program = driver.Program(prefix / "bin/tallowmere", "--web", "sample",
                                 profile=self.folder / "profile")
        self.addCleanup(program.stop)
        program.main_window()
        driver.wait_for(program.pages, "a page")
        for path in ("share/applications/org.tallowmere.tallowmere.desktop",
                     "share/icons/hicolor/scalable/apps/org.tallowmere.tallowmere.svg",
                     "share/icons/hicolor/256x256/apps/org.tallowmere.tallowmere.png",
                     "share/metainfo/org.tallowmere.tallowmere.metainfo.xml",
                     "share/doc/tallowmere/copyright", "share/doc/tallowmere/guide/index.html"):
            self.assertTrue((prefix / path).is_file(), path)
        # Packages have it compressed.
        self.assertTrue([*(prefix / "share/man/man1").glob("tallowmere.1*")])
        self.assertEqual(list(prefix.rglob("*.py")), [])

    def test_a_copy_without_its_tables_says_so_and_ends(self):
        prefix = self.install()
        shutil.rmtree(prefix / "share/tallowmere")
        program = driver.Program(prefix / "bin/tallowmere", profile=self.folder / "profile")
        self.addCleanup(program.stop)
        dialog = program.application.find(role="alert")
        text = dialog.find(name=None, role="label").name
        self.assertIn(str(prefix / "share/tallowmere"), text)
        dialog.find(role="push button").click()
        self.assertEqual(program.wait_for_end(), 2)
        self.assertIn(str(prefix / "share/tallowmere"), program.errors())


if __name__ == "__main__":
    driver.main()
