"""Tickers by the names of their companies, from outside: offered below the entry box, and fetched
as a list from the server that publishes it once the user has filled in whom to write to."""

import json

import controls
import driver

LIST = {"0": {"cik_str": 1, "ticker": "ZZZQ", "title": "MICROBREW HOLDINGS"},
        "1": {"cik_str": 2, "ticker": "MSFT", "title": "MICROSOFT CORP"}}


class CompanyNames(driver.SystemTest):
    def open(self, web, sources=""):
        profile = self.folder / "profile"
        profile.mkdir(exist_ok=True)
        (profile / "settings.ini").write_text("[Settings]\nFirst=OK\nStocks1=AOL|\n")
        if sources:
            (profile / "sources.toml").write_text(sources)
        self.program = self.start(web=web)
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, 1280, 900)
        self.box = self.window.find(name="Ticker entry")
        self.box.click()

    def offered(self):
        """The rows that are offered, none when there is no list."""
        return [item.name for names in self.window.find_all(role="list", name="Tickers by Name")
                for item in names.find_all(role="list item")]

    def wait_for_offer(self, row):
        driver.wait_for(lambda: row in self.offered(), f"{row} to be offered, not {self.offered()}")

    def test_a_name_is_typed_and_its_ticker_entered_by_keys(self):
        self.open("sample")
        driver.type_text("microso")
        self.wait_for_offer("MSFT  Microsoft")
        driver.press("Down", "Return")
        controls.wait_for_tickers(self.window, "AOL", "MSFT")
        self.assertEqual(self.box.text, "")
        driver.wait_for(lambda: not self.offered(), "the list of names to go")

    def test_a_row_is_clicked(self):
        self.open("direct")
        driver.type_text("ibm, microso")
        self.wait_for_offer("MSFT  Microsoft")
        self.window.find(role="list item", name="MSFT  Microsoft").click()
        controls.wait_for_tickers(self.window, "AOL", "IBM", "MSFT")

    def test_what_is_typed_is_entered_as_it_stands(self):
        self.open("sample")
        driver.type_text("microso")
        self.wait_for_offer("MSFT  Microsoft")
        driver.press("Return")
        controls.wait_for_tickers(self.window, "AOL", "MICROSO")

    def test_the_list_is_fetched_once_for_who_left_a_contact(self):
        self.server.services["/list"] = lambda path: ("application/json", json.dumps(LIST))
        keys = ("cnbc", "yahoo-spark", "yahoo-chart", "nasdaq", "cboe", "treasury", "fred")
        off = "".join(f"[sources.{key}]\nenabled = false\n" for key in keys)
        self.open("live", f'[companies]\nrequest = "http://{self.server.host}/list"\n'
                          f'contact = "A B a@b.example"\n{off}')
        driver.type_text("micro")
        kept = self.folder / "profile" / "companies.json"
        driver.wait_for(lambda: kept.exists() and "ZZZQ" in kept.read_text(), "the list to be kept")
        driver.type_text("b")
        self.wait_for_offer("ZZZQ  MICROBREW HOLDINGS")
        self.assertEqual(self.server.paths().count("/list"), 1)
        self.program.ask_to_close()
        self.assertEqual(self.program.wait_for_end(), 0)
        self.open("live")
        driver.type_text("microb")
        self.wait_for_offer("ZZZQ  MICROBREW HOLDINGS")
        self.assertEqual(self.server.paths().count("/list"), 1)


if __name__ == "__main__":
    driver.main()
