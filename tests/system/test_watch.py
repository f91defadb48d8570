"""The watch window from outside: it loads its page over and over until it is closed."""

import time

import driver

PAGE = "/q?s=aol&d=2b"
SHORTEST = 30  # seconds that the window takes at least


class Watch(driver.SystemTest):
    def test_a_page_is_loaded_at_the_set_interval_until_the_window_closes(self):
        program = self.start()
        window = program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        item = window.find(role="list item", name="AOL")
        item.click()
        driver.wait_for(lambda: item.selected, "AOL to be selected")
        window.find(name="Y!").click()
        self.server.wait_for_request(PAGE)
        window.find(name="Wiz").click()
        opened = self.server.wait_for_request(PAGE, times=2)

        watch = program.application.find(name="AOL - Watch Wizard")
        seconds = watch.find(name="Refresh (Secs)", role="text")
        seconds.double_click()
        driver.type_text("5x")
        driver.press("Tab")
        driver.wait_for(lambda: seconds.text == str(SHORTEST), "the shortest time allowed")
        driver.screenshot(driver.SCREENSHOTS / "watch.png")
        again = self.server.wait_for_request(PAGE, times=3, seconds=SHORTEST + 20)
        # A wait is one second longer than set, and its end is seen a second later at the most.
        self.assertGreater(again - opened, SHORTEST)
        self.assertLess(again - opened, SHORTEST + 10)

        driver.press("ctrl+w")
        driver.wait_for(lambda: not program.application.find_all(name="AOL - Watch Wizard"),
                        "the window to close")
        # Nothing can be waited for where nothing may come.
        time.sleep(SHORTEST + 4)
        self.assertEqual(self.server.count(PAGE), 3)


if __name__ == "__main__":
    driver.main()
