"""The portfolio table from outside: opened, sorted, filtered, its columns chosen by keys, a page
opened from a row, and what it asks the sources for."""

import json
import re
import time

import controls
import driver

KNOWN = ("AOL", "YHOO", "MSFT", "IBM", "GE", "KO")


class PortfolioTable(driver.SystemTest):
    def open(self, web, settings, sources=None):
        profile = self.folder / "profile"
        profile.mkdir()
        (profile / "settings.ini").write_text("[Settings]\nFirst=OK\n" + settings)
        if sources:
            (profile / "sources.toml").write_text(sources)
        self.program = self.start(web=web)
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 0, 0, 1000, 700)
        driver.wait_for(lambda: any(self.program.pages()), "the first page")
        controls.choose(self.window, "View", "Table...")
        self.find_table()

    def find_table(self):
        self.frame = self.program.application.find(name=re.compile("^Portfolio Table"))
        self.table = self.frame.find(name="Tickers", role="table")
        driver.wait_for(lambda: driver.active_window() == self.identity(), "the table in front")

    def identity(self):
        return driver.xdotool("search", "--name", "^Portfolio Table").split()[0]

    def tickers(self):
        return [cell.name for cell in self.table.find_all(role="table cell") if cell.name in KNOWN]

    def wait_for_tickers(self, *wanted):
        driver.wait_for(lambda: self.tickers() == list(wanted),
                        f"the rows {wanted}, not {self.tickers()}")

    def cell(self, name):
        return self.table.find(role="table cell", name=name)

    def heading(self, name):
        return self.table.find(role="table column header", name=name)

    def has_heading(self, name):
        return any(heading.showing for heading in
                   self.table.find_all(role="table column header", name=name))

    def test_the_table_of_the_sample_market_is_sorted_filtered_and_opens_pages(self):
        self.open("sample", "Stocks1=YHOO|MSFT|AOL|\nStocks2=KO|IBM|\nPortName2=Old\n")
        self.wait_for_tickers("YHOO", "MSFT", "AOL")
        self.table.find(role="table cell", name=re.compile(r"^[\d,]+\.\d\d$"))
        self.heading("Symbol").click()
        self.wait_for_tickers("AOL", "MSFT", "YHOO")
        self.heading("Symbol").click()
        self.wait_for_tickers("YHOO", "MSFT", "AOL")
        driver.screenshot(driver.SCREENSHOTS / "table.png")

        driver.press("ctrl+f")
        driver.type_text("micro")
        self.wait_for_tickers("MSFT")
        self.frame.find(name="1 of 3 tickers")
        driver.press("Down", "Return")
        self.window.find(name=re.compile("company=MSFT"))
        self.assertTrue(self.window.find(role="list item", name="MSFT").selected)
        driver.press("ctrl+f", "Escape")
        self.wait_for_tickers("YHOO", "MSFT", "AOL")

        self.frame.find(name="This Portfolio", role="combo box").click()
        driver.press("Down", "Return")
        self.wait_for_tickers("YHOO", "MSFT", "KO", "IBM", "AOL")
        self.cell("2 Old")

    def test_columns_are_chosen_by_keys_and_kept(self):
        self.open("direct", "Stocks1=MSFT|AOL|\n")
        driver.place(self.identity(), 0, 0, 1900, 700)
        driver.wait_for(lambda: self.has_heading("Time"), "the last column")
        self.choose_time()
        driver.wait_for(lambda: not self.has_heading("Time"), "the column to go")
        self.heading("Name")
        driver.press("ctrl+w")
        driver.wait_for(lambda: not self.frame.showing, "the window to close")
        settings = self.folder / "profile" / "settings.ini"
        driver.wait_for(lambda: "-Time" in settings.read_text(), "the settings")
        driver.xdotool("windowactivate", "--sync", self.program.window_id())
        driver.press("F9")
        self.find_table()
        self.wait_for_tickers("MSFT", "AOL")
        driver.place(self.identity(), 0, 0, 1900, 700)
        self.heading("Source")
        self.assertFalse(self.has_heading("Time"))
        self.choose_time()
        driver.wait_for(lambda: self.has_heading("Time"), "the column to come")

    def choose_time(self):
        """By the keys of the menu of the columns, whose last item it is."""
        before = self.program.windows()
        driver.press("alt+c")
        driver.wait_for(lambda: (self.program.windows() or set()) - before, "the menu")
        driver.press("Up", "Return")

    def test_the_rows_are_asked_for_in_one_request(self):
        moment = time.strftime("%Y-%m-%dT%H:%M:%S+0000", time.gmtime(time.time() - 60))

        def cnbc(path):
            symbols = path.partition("symbols=")[2].partition("&")[0].split("%7C")
            rows = [{"symbol": symbol, "code": 0, "name": f"{symbol} Company", "last": "512.34",
                     "change": "+2.34", "volume": "1,234,567", "yrloprice": "400.00",
                     "yrhiprice": "600.00", "last_time": moment} for symbol in symbols]
            return "application/json", json.dumps({"FormattedQuoteResult": {"FormattedQuote": rows}})
        self.server.services = {"/cnbc": cnbc}
        off = "".join(f"[sources.{key}]\nenabled = false\n"
                      for key in ("yahoo-spark", "yahoo-chart", "nasdaq", "cboe", "treasury", "fred"))
        self.open("live", "Stocks1=MSFT|\nStocks2=GE|KO|\nListLast=False\nListChange=False\n"
                          "ListPercent=False\nListDay=False\n[Table]\nAll=True\n",
                  f'[sources.cnbc]\nrequest = "http://{self.server.host}/cnbc?symbols={{symbols}}"\n'
                  f"{off}")
        self.wait_for_tickers("MSFT", "GE", "KO")
        for text in ("KO Company", "1.2M", "400.00 - 600.00"):
            self.cell(text)
        asked = [path for path in self.server.paths() if "KO" in path]
        self.assertEqual(len(asked), 1, asked)
        self.assertIn("MSFT%7CGE%7CKO", asked[0])


if __name__ == "__main__":
    driver.main()
