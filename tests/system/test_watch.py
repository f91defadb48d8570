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

    def serve(self, price, clock):
        self.server.pages[self.page("MSFT")] = (
            "<title>quote</title><body style='margin:0;font-size:40px'>"
            f"<p style='margin:0;height:100px'>{clock}</p><p>{price}</p><p>volume</p>")

    def reload(self, window, times):
        driver.press("ctrl+r")
        self.server.wait_for_request(self.page("MSFT"), times=times)

    def test_a_change_of_the_page_is_told_and_shown(self):
        program = self.start()
        program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        self.serve("price 10", "clock 1")
        self.watch(program, "MSFT")
        window = program.application.find(name="MSFT - Watch Wizard")
        driver.press("ctrl+t")
        self.serve("price <b>11</b>", "clock 1")
        self.reload(window, 3)
        changed = self.told(window, "1 line is new, 1 is gone")
        window.find(name="Show", role="push button").click()
        dialog = program.application.find(name="What Changed - MSFT - Watch Wizard")
        text = dialog.find(name="What changed", role="text")
        driver.wait_for(lambda: text.text == "- price 10\n+ price 11", "the change")
        driver.screenshot(driver.SCREENSHOTS / "watch-change.png")
        driver.press("Escape")
        driver.wait_for(lambda: not dialog.showing and not changed.showing, "the dialog to close")

        # Of a part alone: a double click marks the word in the second line of the page.
        left, top, _, _ = window.find(name="Watched page").extents
        driver.move_pointer(left + 30, top + 165)
        driver.xdotool("click", "--repeat", 2, "--delay", 60, 1)
        driver.press("ctrl+m")
        self.serve("price <b>11</b>", "clock 2")
        self.reload(window, 4)
        self.serve("price <b>12</b>", "clock 3")
        self.reload(window, 5)
        self.told(window, "1 line is new, 1 is gone")
        driver.press("ctrl+d")
        dialog = program.application.find(name="What Changed - MSFT - Watch Wizard")
        text = dialog.find(name="What changed", role="text")
        driver.wait_for(lambda: text.text == "- price 11\n+ price 12", f"the part, not {text.text}")

    def told(self, window, words):
        """The line of the window that tells a change, once it does."""
        return driver.wait_for(lambda: next((label for label in window.find_all(role="label")
                                             if label.name.endswith(f": {words}")), None),
                               f"a line that ends with {words!r}")


if __name__ == "__main__":
    driver.main()
