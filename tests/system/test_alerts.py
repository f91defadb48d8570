"""Alerts from outside: set by hand, fired by a price of the invented market or of a stand-in for a
source, told by a notice of the desktop, marked in the list, kept in the log."""

import json
import re
import time
from pathlib import Path

import controls
import driver
from notices import Desktop

# A ticker list without prices asks for none.
BARE_LIST = "ListLast=False\nListChange=False\nListPercent=False\nListDay=False\n"


class Alerts(driver.SystemTest):
    def setUp(self):
        super().setUp()
        self.desktop = Desktop()
        self.addCleanup(self.desktop.stop)
        self.profile = self.folder / "profile"
        self.profile.mkdir()

    def stored(self, name):
        path = Path(self.profile, name)
        return path.read_text() if path.exists() else ""

    def fill(self, program, title, ticker, limit):
        """Types an alert into the editor and presses Enter."""
        editor = program.application.find(role="dialog", name=title)
        box = editor.find(role="text", name="Ticker")
        driver.wait_for(lambda: editor.find(role="text", name="Price").focused or box.focused,
                        "the focus in the editor")
        box.click()
        driver.press("ctrl+a")
        driver.type_text(ticker)
        price = editor.find(role="text", name="Price")
        price.click()
        driver.press("ctrl+a")
        driver.type_text(limit)
        driver.wait_for(lambda: price.text == limit, "the limit in its box")
        driver.press("Return")
        driver.wait_for(lambda: not editor.showing, "the editor to close")

    def meaning(self, window, ticker):
        return window.find(role="list item", name=ticker).description

    def test_an_alert_of_the_invented_market_fires_rests_and_is_reset(self):
        (self.profile / "settings.ini").write_text("[Settings]\nFirst=OK\nStocks1=MSFT|AOL|\n")
        program = self.start(web="sample")
        window = program.main_window()
        driver.place(program.window_id(), 40, 60, 1280, 900)
        driver.wait_for(lambda: re.search(r"\d", self.meaning(window, "MSFT")), "the price")

        controls.select(window, "MSFT")
        driver.press("ctrl+shift+n")
        editor = program.application.find(role="dialog", name="New Alert")
        editor.find(name=re.compile(r"^Now [\d,.]+ .*SAMPLE DATA"))
        editor.find(name="Enter a price.")
        driver.type_text("4a")
        editor.find(name='"4a" is not a number.')
        driver.screenshot(driver.SCREENSHOTS / "alert-editor.png")
        self.fill(program, "New Alert", "msft", "100000,5")
        driver.wait_for(lambda: "alert at or above 100,000.50" in self.meaning(window, "MSFT"),
                        "the mark")
        self.assertRegex(self.stored("alerts.txt"), r"^\d+ above 100000\.5 MSFT\n$")
        self.assertEqual(self.desktop.shown, [])

        # Another one, out of the window of all alerts, is fired by what the ticker costs.
        driver.press("ctrl+shift+a")
        alerts = program.application.find(role="dialog", name="Alerts")
        alerts.find(name="Add...").click()
        self.fill(program, "New Alert", "aol", "0.01")
        driver.wait_for(lambda: self.desktop.shown, "the notice")
        self.assertRegex(self.desktop.shown[0], r"^AOL is at [\d.]+: at or above 0\.01$")
        driver.wait_for(lambda: "alert fired at" in self.meaning(window, "AOL"), "the mark")
        alerts.find(name=re.compile(r"^fired at "))
        alerts.find(name=re.compile(r", SAMPLE DATA$"))
        log = self.stored("alert-log.txt").split("\t")
        self.assertEqual(log[2:5], ["above", "0.01", "AOL"])
        self.assertIn("SAMPLE DATA", log[8])
        driver.screenshot(driver.SCREENSHOTS / "alerts.png")

        # It rests over a restart.
        program.ask_to_close()
        program.wait_for_end()
        program = self.start(web="sample")
        window = program.main_window()
        driver.wait_for(lambda: "alert fired at" in self.meaning(window, "AOL"), "the mark")
        driver.press("ctrl+shift+a")
        alerts = program.application.find(role="dialog", name="Alerts")
        alerts.find(name=re.compile(r"^fired at ")).click()
        reset = alerts.find(name="Reset")
        driver.wait_for(lambda: reset.enabled, "the button")
        reset.click()
        driver.wait_for(lambda: self.meaning(window, "AOL").endswith("alert at or above 0.01"),
                        "the alert to be armed")
        self.assertEqual(len(self.desktop.shown), 1)
        alerts.find(name="Remove").click()
        driver.wait_for(lambda: "AOL" not in self.stored("alerts.txt"), "the alert to go")
        driver.press("Escape")
        driver.wait_for(lambda: not alerts.showing, "the window to close")
        controls.select(window, "MSFT")
        driver.press("ctrl+z")
        driver.wait_for(lambda: "AOL" in self.stored("alerts.txt"), "the alert to come back")

    def test_a_ticker_in_no_list_is_asked_for_and_fires_and_the_notice_leads_to_the_log(self):
        (self.profile / "settings.ini").write_text(
            "[Settings]\nFirst=OK\nStocks1=MSFT|\n" + BARE_LIST)
        (self.profile / "alerts.txt").write_text("1 above 500 IBM\n2 above 900 KO\n")
        prices = {"IBM": "512.34", "KO": "60.00"}

        def cnbc(path):
            moment = time.strftime("%Y-%m-%dT%H:%M:%S+0000", time.gmtime(time.time() - 60))
            symbols = path.partition("symbols=")[2].partition("&")[0].replace("%7C", ",")
            rows = [{"symbol": symbol, "code": 0, "last": prices[symbol], "change": "+1.00",
                     "last_time": moment}
                    for symbol in symbols.split(",") if symbol in prices]
            return "application/json", json.dumps({"FormattedQuoteResult": {"FormattedQuote": rows}})
        self.server.services = {"/cnbc": cnbc}
        off = "".join(f"[sources.{key}]\nenabled = false\n" for key in
                      ("yahoo-spark", "yahoo-chart", "nasdaq", "cboe", "treasury", "fred"))
        (self.profile / "sources.toml").write_text(
            f'[sources.cnbc]\nrequest = "http://{self.server.host}/cnbc?symbols={{symbols}}"\n' +
            off)
        sites = self.sites(f'[hosts]\ndefault = "http://{self.server.host}"\n')
        program = driver.Program(self.binary, "--web", "live", "--sites", sites,
                                 profile=self.profile)
        self.addCleanup(program.stop)
        window = program.main_window()
        driver.wait_for(lambda: self.desktop.shown, "the notice")
        self.assertEqual(self.desktop.shown, ["IBM is at 512.34: at or above 500.00"])
        asked = [path for path in self.server.paths() if "IBM" in path or "KO" in path]
        self.assertEqual(len(asked), 1, asked)
        self.assertNotIn("MSFT", asked[0])
        self.desktop.click()
        alerts = program.application.find(role="dialog", name="Alerts")
        alerts.find(name=re.compile(r" ET, CNBC$"))
        driver.screenshot(driver.SCREENSHOTS / "alert-live.png")


if __name__ == "__main__":
    driver.main()
