"""Live mode from outside: today's quotes of stand-ins for the sources, in the strip, in the pane and
on the condensed page; and what is shown when they cannot be reached."""

import json
import time

import driver

# Last value and change, by the symbol as CNBC's service spells it.
QUOTES = {
    ".NYA": ("21,658.43", "+1.20"),
    ".SPX": ("6,421.03", "-5.66"),
    ".OEX": ("3,141.10", "UNCH"),
    "US30Y": ("4.512%", "-0.012"),
    ".DJI": ("45,979.04", "+42.15"),
    ".IXIC": ("21,321.98", "+0.75"),
    "MSFT": ("512.34", "+2.34"),
    "AOL": ("31.50", "-0.25"),
}
STRIP = [
    "NYSE : 21,658.43 +1.20",
    "S&P 500 : 6,421.03 -5.66",
    "S&P 100 : 3,141.10 0.00",
    "30Y-TSY : 4.51 -0.01",
    "DJIA : 45,979.04 +42.15",
    "NAS/NMS : 21,321.98 +0.75",
]
LINKS = """
[links]
3 = "portal:"
index_page = "portal:"
quote_page = "portal:"
chart_images = "portal:"
logo = "portal:"
stream_ticker = "portal:"
read_indices = "portal:"
read_portfolio = "portal:"
read_profile = "portal:"
read_lists = "portal:"
"""


def hour_ago():
    return time.time() - 3600


def symbols(path):
    return path.partition("symbols=")[2].partition("&")[0].replace("%7C", ",").split(",")


def cnbc(path):
    moment = time.strftime("%Y-%m-%dT%H:%M:%S+0000", time.gmtime(hour_ago()))
    rows = [{"symbol": symbol, "code": 0, "name": "Name of " + symbol, "last": QUOTES[symbol][0],
             "change": QUOTES[symbol][1], "last_time": moment}
            for symbol in symbols(path) if symbol in QUOTES]
    return "application/json", json.dumps({"FormattedQuoteResult": {"FormattedQuote": rows}})


def spark(path):
    days = [hour_ago() - 86400 * day for day in (4, 3, 2, 1, 0)]
    return "application/json", json.dumps({
        symbol: {"symbol": symbol, "timestamp": [int(day) for day in days],
                 "close": [500.0, 505.5, 503.25, 510.0, 512.34], "chartPreviousClose": 499.0}
        for symbol in symbols(path)})


class LiveQuotes(driver.SystemTest):
    def setUp(self):
        super().setUp()
        self.profile = self.folder / "profile"
        self.profile.mkdir()
        (self.profile / "settings.ini").write_text("[Settings]\nFirst=OK\nStocks1=MSFT|AOL|\n")
        self.second = driver.Server()
        self.addCleanup(self.second.close)
        self.server.services = {"/cnbc": cnbc}
        self.second.services = {"/spark": spark}

    def start_live(self):
        """Starts the program with a source at each server, and all sites at the first one."""
        off = "".join(f"[sources.{key}]\nenabled = false\n"
                      for key in ("yahoo-chart", "nasdaq", "cboe", "treasury", "fred"))
        (self.profile / "sources.toml").write_text(
            f'[sources.cnbc]\nrequest = "http://{self.server.host}/cnbc?symbols={{symbols}}"\n'
            f'[sources.yahoo-spark]\n'
            f'request = "http://{self.second.host}/spark?symbols={{symbols}}&range={{range}}"\n'
            + off)
        sites = self.sites(f'[hosts]\ndefault = "http://{self.server.host}"\n{LINKS}')
        program = driver.Program(self.binary, "--web", "live", "--sites", sites,
                                 profile=self.profile)
        self.addCleanup(program.stop)
        self.addCleanup(driver.screenshot,
                        driver.SCREENSHOTS / f"{self.id().rpartition('.')[2]}.png")
        window = program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        return program, window

    def wait_for_page(self, program, *texts):
        driver.wait_for(lambda: any(all(text in page for text in texts)
                                    for page in program.page_texts()),
                        f"a page that says {texts}")

    def test_the_strip_the_quote_page_and_the_condensed_page_show_todays_quotes(self):
        program, window = self.start_live()
        for text in STRIP:
            window.find(name=text)
        # Nothing but the source was asked, and for all six indices at once.
        self.assertEqual(len(self.server.paths()), 1, self.server.paths())

        window.find(role="list item", name="MSFT").click()
        window.find(name="Y!").click()
        driver.wait_for(lambda: program.pages() == ["MSFT"], "the quote page")
        self.wait_for_page(program, "Name of MSFT", "512.34", ", CNBC")

        menu = window.find(role="menu bar")
        for caption in ("Portfolio", "Query Portfolio", "Condensed (1-day)"):
            menu = menu.find(name=caption)
            menu.click()
        self.wait_for_page(program, "512.34", "Name of AOL", "31.50", "CNBC")

    def test_without_sources_the_pages_say_so_and_go_on_when_they_are_back(self):
        def hang_up(_):
            return None
        self.server.services = {"/cnbc": hang_up}
        self.second.services = {"/spark": hang_up}
        program, window = self.start_live()
        self.wait_for_page(program, "Could not be reached", "CNBC", "Yahoo! Finance")
        self.assertFalse([text for text in STRIP if window.find_all(name=text)])

        self.second.services = {"/spark": spark}
        window.find(role="list item", name="MSFT").click()
        chip = window.find(name="Y!")
        chip.click()

        def shows_a_price():
            pages = program.page_texts()
            if any("No source" in page for page in pages):
                chip.click()
            return any("512.34" in page and "ET, Yahoo! Finance" in page for page in pages)
        driver.wait_for(shows_a_price, "the price of the source that is back")


if __name__ == "__main__":
    driver.main()
