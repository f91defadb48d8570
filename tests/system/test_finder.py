"""The box that finds everything, by hand: links for tickers of any kind, portfolios, notes."""

import controls
import driver

SETTINGS = """[Settings]
First=OK
Stocks1=AOL|MSFT|
Stocks3=IBM|
PortName3=Oil
"""
NOTES = "||IBM||Watch the mainframes.\r\nBarrels of them.|||||\r\n"


def zacks(ticker):
    return f"/cgi-bin/AW/DoInquiry.zcom?ticker={ticker}&type=100"


class Finder(driver.SystemTest):
    def begin(self):
        profile = self.folder / "profile"
        profile.mkdir()
        (profile / "settings.ini").write_text(SETTINGS)
        (profile / "TickNotes.txt").write_bytes(NOTES.encode())
        self.program = self.start()
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, 1280, 900)
        controls.wait_for_tickers(self.window, "AOL", "MSFT")
        controls.select(self.window, "MSFT")

    def rows(self):
        for found in self.window.find_all(name="Found", role="list"):
            return [row.name for row in found.find_all(role="list item")]
        return []

    def type(self, line, first):
        """Opens the box, types a line and waits for its first row."""
        driver.press("ctrl+k")
        box = self.window.find(name="Find anything", role="text")
        driver.wait_for(lambda: box.focused, "the focus on the line")
        driver.type_text(line)
        driver.wait_for(lambda: self.rows()[:1] == [first], f"the row {first!r}")
        return box

    def find(self, line, first, keys="Return"):
        box = self.type(line, first)
        driver.press(keys)
        driver.wait_for(lambda: not box.showing, "the box to close")

    def test_a_page_for_any_ticker_by_typing(self):
        self.begin()
        self.find("zacks", "Link: Zacks - ZACKS Research")
        self.server.wait_for_request(zacks("MSFT"))
        self.find("qqqq zacks", "Link: QQQQ: Zacks - ZACKS Research")
        self.server.wait_for_request(zacks("QQQQ"))
        self.assertEqual(self.window.find_all(role="page tab"), [])

        # In tabs: one by Ctrl and Enter, one each for several tickers.
        self.find("ibm zacks", "Link: IBM: Zacks - ZACKS Research", "ctrl+Return")
        self.server.wait_for_request(zacks("IBM"))
        driver.wait_for(lambda: len(self.window.find_all(role="page tab")) == 2, "the tab")
        self.find("aapl,nvda zacks", "Link: AAPL, NVDA: Zacks - ZACKS Research")
        self.server.wait_for_request(zacks("AAPL"))
        self.server.wait_for_request(zacks("NVDA"))
        driver.wait_for(lambda: len(self.window.find_all(role="page tab")) == 4, "the tabs")
        driver.wait_for(lambda: self.program.pages() == [zacks("AAPL")], "the first of them in front")
        controls.wait_for_tickers(self.window, "AOL", "MSFT")

        # What was opened most comes first by now, over a restart too.
        self.program.ask_to_close()
        self.assertEqual(self.program.wait_for_end(), 0)
        self.program = self.start()
        self.window = self.program.main_window()
        controls.wait_for_tickers(self.window, "AOL", "MSFT")
        self.type("", "Link: Zacks - ZACKS Research")

    def test_portfolios_notes_and_new_tickers(self):
        self.begin()
        self.find("/p 3", "Portfolio: #3: Oil")
        controls.wait_for_tickers(self.window, "IBM")
        self.find("/p 1", "Portfolio: #1: Portfolio #1")
        controls.wait_for_tickers(self.window, "AOL", "MSFT")

        self.find("barrels", "Note: IBM: Watch the mainframes.\u2026")
        dialog = self.program.application.find(name="Ticker Notes")
        driver.wait_for(lambda: dialog.extents[2] > 50, "the size of the box")
        driver.press("Return")
        driver.wait_for(lambda: not dialog.showing, "the box to close")
        controls.wait_for_tickers(self.window, "IBM")

        box = self.type("nvda", "Ticker: NVDA")
        self.window.find(name="Tab adds NVDA to the list. Enter opens, with Ctrl in a new tab, "
                              "with Shift in your browser. Esc closes.")
        driver.screenshot(driver.SCREENSHOTS / "finder.png")
        driver.press("Tab")
        self.window.find(name="NVDA added.")
        self.assertTrue(box.focused)
        driver.press("Escape")
        driver.wait_for(lambda: not box.showing, "the box to close")
        controls.wait_for_tickers(self.window, "IBM", "NVDA")

        # A section of the guide.
        self.find("notes about", "Guide: Notes about a ticker")
        driver.wait_for(lambda: any("user guide" in page for page in self.program.pages()),
                        "the guide")


if __name__ == "__main__":
    driver.main()
