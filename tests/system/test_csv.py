"""Tables from outside: portfolios go out and come in by menu, keys and the boxes for files, after a
look at what would change."""

import csv

import controls
import driver


class Csv(driver.SystemTest):
    def setUp(self):
        super().setUp()
        self.profile = self.folder / "profile"
        self.profile.mkdir()
        (self.profile / "settings.ini").write_text(
            "[Settings]\nFirst=OK\nStocks1=AOL|MSFT|\nPortName1=Tech\n")
        (self.profile / "TickNotes.txt").write_bytes(b"||MSFT||=mine|||||\r\n")
        self.program = self.start()
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, 1280, 900)
        driver.wait_for(lambda: controls.tickers(self.window), "the list")

    def test_portfolios_go_out_as_a_table_that_spreadsheets_do_not_run(self):
        path = self.folder / "out.csv"
        controls.choose(self.window, "Portfolio", "Export CSV...")
        controls.name_file(self.program, "Export CSV", path)
        driver.wait_for(lambda: path.exists() and path.stat().st_size > 0, "the table")
        with open(path, newline="", encoding="utf-8-sig") as table:
            self.assertEqual(list(csv.reader(table)),
                             [["Portfolio", "Portfolio Name", "Ticker", "Note"],
                              ["1", "Tech", "AOL", ""], ["1", "Tech", "MSFT", "'=mine"]])

    def test_a_watch_list_comes_in_after_a_look_and_goes_by_undo(self):
        path = self.folder / "watch.csv"
        path.write_bytes("ISIN;WKN;Ticker-Symbol;Wertpapiername;Währung;Notiz\r\n"
                         "DE0007164600;716460;SAP.DE;SAP;EUR;Prüfen\r\n"
                         "US5949181045;870747;MSFT;Microsoft;USD;\r\n".encode("cp1252"))
        controls.choose(self.window, "Portfolio", "Import CSV...")
        controls.name_file(self.program, "Import CSV", path)
        driver.wait_for(lambda: self.program.application.find_all(name="What would change"),
                        "the preview")
        preview = self.program.application.find(name="What would change")
        self.assertEqual(preview.text, "Portfolio 1 (Tech): SAP.DE added\n"
                                       "Note on SAP.DE added: Prüfen")
        driver.screenshot_at_rest(driver.SCREENSHOTS / "csv.png", "root")
        driver.press("alt+i")
        controls.wait_for_tickers(self.window, "AOL", "MSFT", "SAP.DE")
        self.assertIn("||SAP.DE||Prüfen|||||".encode(),
                      (self.profile / "TickNotes.txt").read_bytes())
        # In the entry box the key would be about what is typed there.
        self.window.find(role="list item", name="SAP.DE").click()
        driver.press("ctrl+z")
        controls.wait_for_tickers(self.window, "AOL", "MSFT")
        self.assertEqual((self.profile / "TickNotes.txt").read_bytes(), b"||MSFT||=mine|||||\r\n")


if __name__ == "__main__":
    driver.main()
