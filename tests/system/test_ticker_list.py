"""The ticker list from outside: prices beside the tickers, and tickers that are dragged, moved by
keys and sorted."""

import json
import re
import time

import controls
import driver

NUMBERS = re.compile(r"^[\d,]+\.\d\d, [+-]?[\d,.]+, [+-]?[\d.]+%")


def middle(widget):
    left, top, width, height = widget.extents
    return left + width // 2, top + height // 2


def drag(source, to_x, to_y, key=None):
    """Drags a control to a place in steps, as a hand does, with a key held."""
    from_x, from_y = middle(source)
    driver.move_pointer(from_x, from_y)
    driver.xdotool("mousedown", 1)
    if key:
        driver.xdotool("keydown", key)
    for step in range(1, 11):
        driver.move_pointer(from_x + (to_x - from_x) * step // 10,
                            from_y + (to_y - from_y) * step // 10)
    driver.xdotool("mouseup", 1)
    if key:
        driver.xdotool("keyup", key)


class TickerList(driver.SystemTest):
    def open(self, web, settings, size=(1600, 1000)):
        profile = self.folder / "profile"
        profile.mkdir()
        (profile / "settings.ini").write_text("[Settings]\nFirst=OK\n" + settings)
        self.program = self.start(web=web)
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, *size)

    def item(self, ticker):
        return self.window.find(role="list item", name=ticker)

    def words(self, ticker):
        return self.item(ticker).description

    def number(self, number):
        return next(chip for chip in self.window.find_all(name=str(number))
                    if chip.description.startswith("Portfolio number"))

    def test_prices_of_the_sample_market_stand_beside_the_tickers(self):
        self.open("sample", "Stocks1=AOL|YHOO|MSFT|IBM|NOSUCH|\n"
                            "[frmMain]\nLeftWidth=420\n")
        driver.wait_for(lambda: NUMBERS.match(self.words("MSFT")), "the price of MSFT")
        self.assertEqual(self.words("NOSUCH"), "")
        self.assertEqual(controls.tickers(self.window), ["AOL", "YHOO", "MSFT", "IBM", "NOSUCH"])
        driver.screenshot_at_rest(driver.SCREENSHOTS / "list-wide.png", self.program.window_id())
        for caption in ("Last Price", "Change", "Change in Percent", "Line of the Day"):
            controls.choose(self.window, "View", "Quotes in the List", caption)
        driver.wait_for(lambda: self.words("MSFT") == "", "the bare list")
        controls.choose(self.window, "View", "Quotes in the List", "Change")
        driver.wait_for(lambda: NUMBERS.match(self.words("MSFT")), "the price of MSFT again")
        # Type-ahead is about the ticker.
        self.item("AOL").click()
        driver.type_text("ms")
        driver.wait_for(lambda: self.item("MSFT").selected, "MSFT to be selected")

    def test_the_list_in_view_is_asked_for_in_one_request(self):
        moment = time.strftime("%Y-%m-%dT%H:%M:%S+0000", time.gmtime(time.time() - 60))

        def cnbc(path):
            symbols = path.partition("symbols=")[2].partition("&")[0].split("%7C")
            rows = [{"symbol": symbol, "code": 0, "last": "512.34", "change": "+2.34",
                     "last_time": moment} for symbol in symbols]
            return "application/json", json.dumps({"FormattedQuoteResult": {"FormattedQuote": rows}})
        self.server.services = {"/cnbc": cnbc}
        profile = self.folder / "profile"
        profile.mkdir()
        (profile / "settings.ini").write_text("[Settings]\nFirst=OK\nStocks1=MSFT|AOL|\n")
        off = "".join(f"[sources.{key}]\nenabled = false\n"
                      for key in ("yahoo-spark", "yahoo-chart", "nasdaq", "cboe", "treasury", "fred"))
        (profile / "sources.toml").write_text(
            f'[sources.cnbc]\nrequest = "http://{self.server.host}/cnbc?symbols={{symbols}}"\n{off}')
        self.program = self.start(web="live")
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, 1600, 1000)
        driver.wait_for(lambda: self.words("AOL").startswith("512.34, +2.34, +0.46%"), "the price")
        asked = [path for path in self.server.paths() if "MSFT" in path]
        self.assertEqual(len(asked), 1, asked)
        self.assertIn("MSFT%7CAOL", asked[0])

    def test_a_ticker_is_dragged_within_the_list_and_taken_back(self):
        self.open("direct", "Stocks1=AOL|YHOO|MSFT|\n")
        controls.wait_for_tickers(self.window, "AOL", "YHOO", "MSFT")
        left, top, width, _ = self.item("AOL").extents
        drag(self.item("MSFT"), left + width // 2, top + 1)
        controls.wait_for_tickers(self.window, "MSFT", "AOL", "YHOO")
        driver.press("ctrl+z")
        controls.wait_for_tickers(self.window, "AOL", "YHOO", "MSFT")

    def test_a_ticker_is_dropped_on_a_number(self):
        self.open("direct", "Stocks1=AOL|YHOO|MSFT|\nStocks2=GE|\n")
        controls.wait_for_tickers(self.window, "AOL", "YHOO", "MSFT")
        drag(self.item("YHOO"), *middle(self.number(2)))
        controls.wait_for_tickers(self.window, "AOL", "MSFT")
        drag(self.item("AOL"), *middle(self.number(2)), key="ctrl")
        self.number(2).click()
        controls.wait_for_tickers(self.window, "GE", "YHOO", "AOL")
        self.number(1).click()
        controls.wait_for_tickers(self.window, "AOL", "MSFT")

    def test_a_ticker_is_moved_by_keys_and_the_list_is_sorted(self):
        self.open("direct", "Stocks1=YHOO|AOL|MSFT|\n")
        controls.wait_for_tickers(self.window, "YHOO", "AOL", "MSFT")
        controls.select(self.window, "MSFT")
        driver.press("alt+Up", "alt+Up")
        controls.wait_for_tickers(self.window, "MSFT", "YHOO", "AOL")
        driver.press("alt+Down")
        controls.wait_for_tickers(self.window, "YHOO", "MSFT", "AOL")
        self.assertTrue(self.item("MSFT").selected)
        controls.choose(self.window, "Portfolio", "Sort by Symbol")
        controls.wait_for_tickers(self.window, "AOL", "MSFT", "YHOO")
        driver.press("ctrl+z")
        controls.wait_for_tickers(self.window, "YHOO", "MSFT", "AOL")


if __name__ == "__main__":
    driver.main()
