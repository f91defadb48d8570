"""The watch window from outside: it loads its page over and over until it is closed."""

import driver

FIRST = 60  # seconds of a new window's first wait
SHORTEST = 30  # seconds that the window takes at least


class Watch(driver.SystemTest):
    def page(self, ticker):
        return f"/q?s={ticker.lower()}&d=2b"

    def watch(self, program, ticker):
        """Opens a ticker's page and watches it, after the first wait at the shortest interval; gives
        the moment at which the window loaded it."""
        window = program.main_window()
        item = window.find(role="list item", name=ticker)
        item.click()
        driver.wait_for(lambda: item.selected, f"{ticker} to be selected")
        window.find(name="Y!").click()
        self.server.wait_for_request(self.page(ticker))
        window.find(name="Wiz").click()
        opened = self.server.wait_for_request(self.page(ticker), times=2)
        seconds = program.application.find(name=f"{ticker} - Watch Wizard").find(
            name="Refresh (Secs)", role="text")
        seconds.double_click()
        driver.type_text("5x")
        driver.press("Tab")
        driver.wait_for(lambda: seconds.text == str(SHORTEST), "the shortest time allowed")
        return opened

    def test_a_page_is_loaded_at_the_set_interval_until_the_window_closes(self):
        program = self.start()
        program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        self.watch(program, "AOL")
        driver.press("ctrl+w")
        driver.wait_for(lambda: not program.application.find_all(name="AOL - Watch Wizard"),
                        "the window to close")

        opened = self.watch(program, "MSFT")
        driver.screenshot(driver.SCREENSHOTS / "watch.png")
        # The wait that was under way keeps its seconds. A wait is one second longer than set.
        again = self.server.wait_for_request(self.page("MSFT"), times=3, seconds=FIRST + 20)
        self.assertGreater(again - opened, FIRST)
        self.assertLess(again - opened, FIRST + 5)
        third = self.server.wait_for_request(self.page("MSFT"), times=4, seconds=SHORTEST + 20)
        self.assertGreater(third - again, SHORTEST)
        self.assertLess(third - again, SHORTEST + 5)
        # The first window would have been due before the second.
        self.assertEqual(self.server.count(self.page("AOL")), 2)


if __name__ == "__main__":
    driver.main()
