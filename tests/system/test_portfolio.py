"""Portfolios from outside: tickers are moved by menu, the report is read and its links followed."""

import controls
import driver


def links(page):
    """The links of a web page by their texts."""
    found, waiting = {}, page.children()
    while waiting:
        widget = waiting.pop()
        if widget.role == "link":
            found[widget.name] = widget
        waiting += widget.children()
    return found


class Portfolio(driver.SystemTest):
    def setUp(self):
        super().setUp()
        self.program = self.start()
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, 1600, 1000)
        controls.wait_for_tickers(self.window, "AOL", "YHOO", "MSFT")

    def select_portfolio(self, number):
        for chip in self.window.find_all(name=str(number)):
            if chip.description == "Portfolio number":
                chip.click()

    def test_a_ticker_is_moved_to_another_portfolio_by_menu(self):
        item = self.window.find(role="list item", name="YHOO")
        item.click()
        driver.wait_for(lambda: item.selected, "YHOO to be selected")
        controls.choose(self.window, "Ticker", "Move YHOO to :", "Portfolio #2")
        controls.wait_for_tickers(self.window, "AOL", "MSFT")
        self.select_portfolio(2)
        controls.wait_for_tickers(self.window, "YHOO")
        self.select_portfolio(1)
        controls.wait_for_tickers(self.window, "AOL", "MSFT")

    def test_a_link_of_the_report_is_followed(self):
        driver.press("ctrl+shift+r")

        def link():
            pages = self.program.documents()
            return links(pages[0]).get("MSFT") if len(pages) == 1 else None
        msft = driver.wait_for(link, "the report with its link to MSFT")
        driver.wait_for(lambda: msft.extents[2] > 0, "the link to be laid out")
        driver.screenshot(driver.SCREENSHOTS / "report.png")
        msft.click()
        self.server.wait_for_request("/click?page=quote&symbol=MSFT&button=Go")

    def test_the_portfolio_is_queried_by_menu(self):
        controls.choose(self.window, "Portfolio", "Query Portfolio", "5-Day Charts")
        self.server.wait_for_request("/quotes?symbols=aol+yhoo+msft&d=2b")


if __name__ == "__main__":
    driver.main()
