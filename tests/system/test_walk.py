"""Page after page by hand: the tickers of the list, the links of an area, a tab for each ticker, and
the line for addresses."""

import controls
import driver


class Walk(driver.SystemTest):
    def begin(self, tickers):
        profile = self.folder / "profile"
        profile.mkdir()
        (profile / "settings.ini").write_text(
            f"[Settings]\nFirst=OK\nStocks1={'|'.join(tickers)}|\n"
            f"DefaultWeb=A{self.server.host}/first\n")
        self.program = self.start()
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, 1280, 900)
        controls.wait_for_tickers(self.window, *tickers)
        driver.wait_for(lambda: self.program.pages() == ["/first"], "the first page")

    def quote(self, ticker):
        return f"/q?s={ticker.lower()}&d=2b"

    def wait_for_page(self, page):
        driver.wait_for(lambda: self.program.pages() == [page],
                        f"{page}, not {self.program.pages()}")

    def test_tickers_and_links_one_after_the_other(self):
        self.begin(["AOL", "IBM", "MSFT"])
        controls.select(self.window, "AOL")
        self.window.find(name="Y!").click()
        self.wait_for_page(self.quote("AOL"))
        driver.press("ctrl+Down")
        self.wait_for_page(self.quote("IBM"))
        driver.press("ctrl+Down")
        self.wait_for_page(self.quote("MSFT"))
        self.assertTrue(self.window.find(role="list item", name="MSFT").selected)
        driver.press("ctrl+Down")
        self.window.find(name="MSFT is the last ticker of the list")
        driver.press("ctrl+Up")
        self.wait_for_page(self.quote("IBM"))

        # The quotes begin with this link; the next one is the profile.
        driver.press("ctrl+Left")
        self.window.find(name="Y! is the first link of its area")
        driver.press("ctrl+Right")
        self.wait_for_page("/p/i/ibm.html")
        driver.press("ctrl+Down")
        self.wait_for_page("/p/m/msft.html")
        driver.press("ctrl+Left")
        self.wait_for_page(self.quote("MSFT"))

    def test_a_tab_for_each_ticker(self):
        tickers = [f"T{number}" for number in range(1, 13)]
        self.begin(tickers)
        controls.select(self.window, "T1")
        self.window.find(name="Y!").click()
        self.wait_for_page(self.quote("T1"))
        driver.press("ctrl+shift+Return")
        question = self.program.application.find(name="Open Y! in 12 tabs?")
        driver.press("Escape")
        driver.wait_for(lambda: not question.showing, "the question to close")
        self.assertEqual(self.window.find_all(role="page tab"), [])
        driver.press("ctrl+shift+Return")
        self.program.application.find(name="Open Y! in 12 tabs?")
        driver.press("alt+y")
        self.window.find(name="The sweep opened 12 tabs")
        driver.wait_for(lambda: len(self.window.find_all(role="page tab")) == 13, "the tabs")
        for ticker in tickers[1:]:
            self.server.wait_for_request(self.quote(ticker))
        self.wait_for_page(self.quote("T1"))
        driver.press("ctrl+Tab")
        self.wait_for_page(self.quote("T1"))
        driver.press("ctrl+Tab")
        self.wait_for_page(self.quote("T2"))

    def test_the_address_of_the_page_in_the_line(self):
        self.begin(["AOL"])
        driver.press("ctrl+l")
        box = self.window.find(name="Find anything", role="text")
        driver.wait_for(lambda: box.focused, "the focus on the line")
        driver.wait_for(lambda: box.text == f"http://{self.server.host}/first", "the address")
        driver.screenshot(driver.SCREENSHOTS / "address.png")
        driver.press("End")
        driver.type_text("/more?x=1")
        driver.press("Return")
        self.wait_for_page("/first/more?x=1")
        driver.wait_for(lambda: not box.showing, "the line to close")

        # Smart navigate is its last row.
        driver.press("ctrl+l")
        driver.wait_for(lambda: box.focused, "the focus on the line")
        driver.press("Page_Down", "Page_Down", "Page_Down", "Page_Down", "Page_Down", "Return")
        dialog = self.program.application.find(
            role="dialog", name="Smart Navigate - Enter a URL or Site Name")
        driver.press("Escape")
        driver.wait_for(lambda: not dialog.showing, "the dialog to close")


if __name__ == "__main__":
    driver.main()
