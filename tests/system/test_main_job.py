"""The main job from outside: a ticker, a click, a page; and everything as it was after a restart."""

import controls
import driver

# Last value and change of the six indices, as the portal's page tells them.
INDICES = {
    "^NYA": ("658.43", "+1.20"),
    "^SPC": ("1,421.03", '<font color="#ff0020">-5.66</font>'),
    "^OEX": ("741.10", "0.00"),
    "^TYX": ("6.231", "<font color=\"#ff0020\">-0.012</font>"),
    "^DJI": ("10,979.04", "+42.15"),
    "^IXIC": ("4,321.98", "+0.75"),
}
INDEX_QUERY = "/q?s=^nya+^spc+^oex+^tyx+^dji+^ixic"
INDEX_TEXTS = [
    "NYSE : 658.43 +1.20",
    "S&P 500 : 1,421.03 -5.66",
    "S&P 100 : 741.10 0.00",
    "30Y-TSY : 6.231 -0.012",
    "DJIA : 10,979.04 +42.15",
    "NAS/NMS : 4,321.98 +0.75",
]


def index_page():
    rows = "".join(
        f'<tr align=right><td nowrap align=left><a href="/q?s={symbol}&d=t">{symbol}</a></td>'
        f"<td nowrap align=center>4:00PM</td><td nowrap><b>{last}</b></td>"
        f"<td nowrap>{change}</td></tr>\n" for symbol, (last, change) in INDICES.items())
    return f"<html><body><table>{rows}</table>Quotes delayed 20 minutes.</body></html>"


class MainJob(driver.SystemTest):
    def setUp(self):
        super().setUp()
        self.server.pages[INDEX_QUERY] = index_page()

    def window(self, program):
        window = program.main_window()
        # Big enough for every link to be in view.
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        return window

    def portfolio_number(self, window, number):
        numbers = [chip for chip in window.find_all(name=str(number))
                   if chip.description == "Portfolio number"]
        self.assertEqual(len(numbers), 1)
        return numbers[0]

    def enter(self, window, text):
        window.find(role="text", name="Ticker entry").click()
        driver.type_text(text)
        driver.press("Return")

    def test_first_start_offers_three_tickers_and_the_page_of_the_indices(self):
        program = self.start()
        window = self.window(program)
        controls.wait_for_tickers(window, "AOL", "YHOO", "MSFT")
        self.server.wait_for_request(INDEX_QUERY + "&d=t")

    def test_a_ticker_a_click_a_page(self):
        program = self.start()
        window = self.window(program)
        self.portfolio_number(window, 3).click()
        controls.wait_for_tickers(window)

        self.enter(window, "msft")
        controls.wait_for_tickers(window, "MSFT")
        item = window.find(role="list item", name="MSFT")
        item.click()
        driver.wait_for(lambda: item.selected, "MSFT to be selected")
        window.find(name="Y!").click()
        self.server.wait_for_request("/q?s=msft&d=2b")
        driver.wait_for(lambda: program.pages() == ["/q?s=msft&d=2b"], "the page in the pane")

        item.double_click()
        self.server.wait_for_request("/q?s=msft&d=2b", times=2)

    def test_a_link_without_a_ticker_asks_for_one(self):
        program = self.start()
        window = self.window(program)
        self.portfolio_number(window, 3).click()
        controls.wait_for_tickers(window)
        window.find(name="Y!").click()
        driver.wait_for(lambda: "Select a Ticker" in " ".join(
            widget.name + widget.text for widget in program.application.walk()), "the request to select a ticker")
        self.assertEqual(self.server.count("/q?s=&d=2b"), 0)

    def test_a_broker_opens_in_the_second_pane(self):
        program = self.start(more_hosts=f'datek = "http://{self.server.host}/datek"\n')
        window = self.window(program)
        driver.wait_for(lambda: program.pages() == [INDEX_QUERY + "&d=t"], "the first page")
        window.find(name="Datek").click()
        self.server.wait_for_request("/datek/")
        driver.wait_for(lambda: program.pages() == ["/datek/"], "the broker's page alone in view")

        # A research link brings the first pane back; the broker's page is kept meanwhile.
        window.find(role="list item", name="AOL").click()
        window.find(name="Y!").click()
        driver.wait_for(lambda: program.pages() == ["/q?s=aol&d=2b"], "the first pane again")

    def test_the_strip_shows_the_six_indices(self):
        program = self.start()
        window = self.window(program)
        for text in INDEX_TEXTS:
            window.find(name=text)
        window.find(name=INDEX_TEXTS[0]).click()
        self.server.wait_for_request(INDEX_QUERY + "&d=t", times=2)

    def test_everything_is_as_it_was_after_a_restart(self):
        program = self.start()
        window = self.window(program)
        self.portfolio_number(window, 3).click()
        controls.wait_for_tickers(window)
        self.enter(window, "msft, ibm")
        controls.wait_for_tickers(window, "MSFT", "IBM")
        place = driver.geometry(program.window_id())
        program.ask_to_close()
        self.assertEqual(program.wait_for_end(), 0, program.errors())

        program = self.start()
        window = program.main_window()
        controls.wait_for_tickers(window, "MSFT", "IBM")
        window.find(name="Portfolio #3")
        driver.wait_for(lambda: driver.geometry(program.window_id()) == place,
                        f"the window where it was: {place}, not "
                        f"{driver.geometry(program.window_id())}")
        self.portfolio_number(window, 1).click()
        controls.wait_for_tickers(window, "AOL", "YHOO", "MSFT")


if __name__ == "__main__":
    driver.main()
