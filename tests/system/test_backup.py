"""Backups from outside: all stores go into one archive and come back from it after a look at what
would change; a profile of another machine is imported; a restore that was cut off is finished by the
next start."""

import zipfile

import controls
import driver

NOTES = b"||MSFT||mine|||||\r\n"


class Backup(driver.SystemTest):
    def setUp(self):
        super().setUp()
        self.profile = self.folder / "profile"
        self.profile.mkdir()
        (self.profile / "settings.ini").write_text(
            "[Settings]\nFirst=OK\nStocks1=AOL|MSFT|IBM|\nPortName1=Tech\n")
        (self.profile / "TickNotes.txt").write_bytes(NOTES)

    def open(self):
        self.program = self.start()
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, 1280, 900)
        driver.wait_for(lambda: controls.tickers(self.window), "the list")

    def notes(self):
        path = self.profile / "TickNotes.txt"
        return path.read_bytes() if path.exists() else None

    def delete(self, ticker):
        item = self.window.find(role="list item", name=ticker)
        item.click()
        driver.wait_for(lambda: item.selected, f"{ticker} to be selected")
        driver.press("Delete")

    def test_what_was_backed_up_comes_back_and_the_restore_can_be_undone(self):
        self.open()
        archive = self.folder / "mine.zip"
        controls.choose(self.window, "Tools", "Back Up...")
        controls.name_file(self.program, "Back Up", archive)
        driver.wait_for(archive.exists, "the archive")
        self.assertEqual(sorted(zipfile.ZipFile(archive).namelist()),
                         ["TickNotes.txt", "settings.ini"])
        self.assertEqual(archive.stat().st_mode & 0o077, 0)
        self.delete("MSFT")
        controls.wait_for_tickers(self.window, "AOL", "IBM")
        controls.choose(self.window, "Tools", "Restore...")
        controls.name_file(self.program, "Restore", archive)
        window = self.program.application.find(role="dialog", name="Restore")
        window.find(name="Portfolios")
        driver.screenshot_at_rest(driver.SCREENSHOTS / "restore.png", "root")
        window.find(role="push button", name="Restore").click()
        controls.wait_for_tickers(self.window, "AOL", "MSFT", "IBM")
        self.assertEqual(self.notes(), NOTES)
        self.window.find(name="Restored from mine.zip")
        driver.press("ctrl+z")
        controls.wait_for_tickers(self.window, "AOL", "IBM")
        self.assertEqual(self.notes(), b"\r\n")

    def test_a_profile_of_another_machine_is_imported_by_keys(self):
        other = self.folder / "other"
        other.mkdir()
        (other / "settings.ini").write_text("[Settings]\nStocks1=GE|\n\n[frmMain]\nWidth=1\n")
        self.open()
        controls.choose(self.window, "Tools", "Import Profile...")
        dialog = self.program.application.find(name="Import Profile")
        driver.wait_for(lambda: dialog.extents[2] > 50, "the dialog's size")
        driver.press("ctrl+a")
        driver.type_text(str(other))
        driver.press("Return")
        window = self.program.application.find(role="dialog", name="Restore")
        driver.wait_for(lambda: window.extents[2] > 50, "the window's size")
        driver.press("alt+r")
        controls.wait_for_tickers(self.window, "GE")
        self.assertEqual(self.notes(), NOTES)

    def test_a_restore_that_was_cut_off_is_finished_by_the_next_start(self):
        (self.profile / "TickNotes.txt").unlink()
        with zipfile.ZipFile(self.profile / "restore.zip", "w") as rest:
            rest.writestr("settings.ini", "[Settings]\nFirst=OK\nStocks1=GE|AMD|\n")
            rest.writestr("TickNotes.txt", "||GE||new|||||\r\n")
        self.open()
        controls.wait_for_tickers(self.window, "GE", "AMD")
        self.assertEqual(self.notes(), b"||GE||new|||||\r\n")
        self.assertFalse((self.profile / "restore.zip").exists())

    def test_no_copy_is_made_before_the_first_page(self):
        self.open()
        self.assertFalse((self.profile / "backups").exists())


if __name__ == "__main__":
    driver.main()
