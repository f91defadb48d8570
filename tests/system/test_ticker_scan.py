"""The ticker scan from outside: tickers of a page are in the portfolio after a restart."""

import controls
import driver

PAGE = "/q?s=aol&d=2b"
LISTING = "<html><head><title>list</title></head><body>" + "".join(
    f'<a href="/q?s={ticker}&d=t">company</a> ' for ticker in
    ("IBM", "IBM", "BRK.B", "123", "TOOLONGBY1")) + "</body></html>"


class TickerScan(driver.SystemTest):
    def test_scanned_tickers_are_in_the_portfolio_after_a_restart(self):
        self.server.pages[PAGE] = LISTING
        program = self.start()
        window = program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        item = window.find(role="list item", name="AOL")
        item.click()
        driver.wait_for(lambda: item.selected, "AOL to be selected")
        window.find(name="Y!").click()
        driver.wait_for(lambda: program.pages() == ["list"], "the page with the list")

        driver.press("ctrl+i")
        dialog = program.application.find(name="Ticker Scan", role="dialog")
        sample = dialog.find(name="Sample Link (Highlight Ticker)", role="text")
        sample.click()
        driver.type_text(f"http://{self.server.host}/q?s=IBM&d=t")
        driver.press("End", *["Left"] * 4, *["shift+Left"] * 3)
        dialog.find(name="Scan").click()
        found = dialog.find(role="list", name="Tickers found")
        driver.wait_for(lambda: [entry.name for entry in found.find_all(role="list item")]
                        == ["IBM", "BRK.B"], "the tickers of the page")
        driver.screenshot(driver.SCREENSHOTS / "ticker-scan.png")
        dialog.find(name="Send Tickers to Portfolio #1").click()
        driver.wait_for(lambda: controls.tickers(window) == ["AOL", "YHOO", "MSFT", "IBM", "BRK.B"],
                        "the tickers in the portfolio")
        dialog.find(name="Close").click()
        driver.wait_for(lambda: not program.application.find_all(name="Ticker Scan",
                                                                 role="dialog"),
                        "the dialog to close")
        program.ask_to_close()
        self.assertEqual(program.wait_for_end(), 0, program.errors())

        program = self.start()
        window = program.main_window()
        driver.wait_for(lambda: controls.tickers(window) == ["AOL", "YHOO", "MSFT", "IBM", "BRK.B"],
                        "the tickers after the restart")


if __name__ == "__main__":
    driver.main()
