"""Live mode from outside: today's quotes of stand-ins for the sources, in the strip, in the pane and
on the condensed page; and what is shown when they cannot be reached."""

import json
import re
import sys
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
# A ticker list without prices asks for none.
BARE_LIST = "ListLast=False\nListChange=False\nListPercent=False\nListDay=False\n"
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
        (self.profile / "settings.ini").write_text(
            "[Settings]\nFirst=OK\nStocks1=MSFT|AOL|\n" + BARE_LIST)
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

    def test_a_ticker_that_no_source_knows_is_marked_once_they_said_so(self):
        (self.profile / "settings.ini").write_text(
            "[Settings]\nFirst=OK\nStocks1=MSFT|NOSUCH|\n" + BARE_LIST)
        self.second.services = {"/spark": lambda _: ("application/json", "{}")}
        program, window = self.start_live()

        def meaning(ticker):
            return window.find(role="list item", name=ticker).description
        self.assertEqual(meaning("NOSUCH"), "")
        for ticker in ("NOSUCH", "MSFT"):
            window.find(role="list item", name=ticker).click()
            window.find(name="Y!").click()
        self.wait_for_page(program, "Name of MSFT")
        driver.wait_for(lambda: meaning("NOSUCH") == "not known to the sources of quotes",
                        "the mark")
        self.assertEqual(meaning("MSFT"), "")

    def test_a_frozen_source_leaves_the_quotes_to_the_next_one(self):
        def frozen(path):
            kind, body = cnbc(path)
            rows = json.loads(body)
            for row in rows["FormattedQuoteResult"]["FormattedQuote"]:
                row["last"] = "1.00"
                row["last_time"] = time.strftime("%Y-%m-%dT%H:%M:%S+0000",
                                                 time.gmtime(time.time() - 6 * 86400))
            return kind, json.dumps(rows)
        self.server.services = {"/cnbc": frozen}
        _, window = self.start_live()
        window.find(name=re.compile(r"^DJIA : 512\.34 "))
        self.assertFalse(window.find_all(name=re.compile(r" : 1\.00")))

    def test_quotes_are_back_soon_after_the_user_asks(self):
        def refuse(_):
            return "text/plain", "no", 403
        self.server.services = {"/cnbc": refuse}
        self.second.services = {"/spark": refuse}
        program, window = self.start_live()
        self.wait_for_page(program, "Could not be reached", "CNBC", "Yahoo! Finance")
        # Each refusal doubles the rest: by now the sources would rest for minutes.
        refresh = window.find(name="REFRESH")
        asked = len(self.server.paths())
        driver.wait_for(lambda: refresh.click() or len(self.server.paths()) >= asked + 2,
                        "two more refusals", 150)
        self.server.services = {"/cnbc": cnbc}
        since = time.monotonic()
        driver.wait_for(lambda: refresh.click() or any("45,979.04" in page
                                                       for page in program.page_texts()),
                        "the quotes", 90)
        print(f"back after {time.monotonic() - since:.0f} s", file=sys.stderr)

    def test_nothing_is_sent_twice_when_the_connection_breaks(self):
        def hang_up(_):
            return None
        self.server.services = {"/cnbc": hang_up}
        self.second.services = {"/spark": hang_up}
        program, window = self.start_live()
        self.wait_for_page(program, "Could not be reached", "CNBC", "Yahoo! Finance")
        window.find(role="list item", name="MSFT").click()
        for _ in range(5):
            window.find(name="Y!").click()
        self.wait_for_page(program, "No source")
        for server in (self.server, self.second):
            last = {}
            for moment, path in server.requests:
                self.assertGreater(moment - last.get(path, -60), 14.5, server.requests)
                last[path] = moment

    def test_a_page_of_the_web_makes_nobody_ask_a_source(self):
        program, window = self.start_live()
        window.find(name=STRIP[5])
        images = "".join(f"<img src='http://{self.server.host}/c/1y/x/x{i}.gif'>"
                         f"<img src='portal://{self.server.host}/t?s=y{i}'>" for i in range(50))
        frames = "".join(f"<iframe src='http://{self.server.host}/q?s=z{i}'></iframe>"
                         f"<iframe sandbox srcdoc=\"<img src='http://{self.server.host}/t?s=w{i}'>\">"
                         "</iframe>" for i in range(5))
        self.server.pages["/dljd/mwactive.htm"] = (
            f"<title>evil</title><h1><a href='http://{self.server.host}/q?s=linked&d=2b'>lead me on"
            f"</a></h1>{images}{frames}<img src='/done.gif'>")
        before = len(self.server.paths()), len(self.second.paths())
        window.find(name="Active").click()
        self.server.wait_for_request("/done.gif")
        # A link of such a page leads on, to what is at hand.
        def link():
            for page in program.documents():
                if page.name == "evil" and page.extents[2] > 0 and page.children():
                    return page
            return None
        left, top, _, _ = driver.wait_for(link, "the page with the link").extents
        driver.move_pointer(left + 60, top + 35)
        driver.xdotool("click", 1)
        self.wait_for_page(program, "A page of the web led here")
        sources = [path for path in self.server.paths()[before[0]:] if path.startswith("/cnbc")]
        self.assertEqual(sources, [])
        self.assertEqual(self.second.paths()[before[1]:], [])


if __name__ == "__main__":
    driver.main()
