"""The ticker strip from outside: switched off, its page asks for nothing more."""

import driver

# A page that asks ten times a second, as a streaming one does.
STREAM = "<html><title>ticks</title><script>setInterval(() => fetch('/tick'), 100)</script></html>"


class TickerStrip(driver.SystemTest):
    def setup(self, program):
        driver.xdotool("windowactivate", "--sync", program.window_id())
        driver.press("ctrl+comma")
        return program.application.find(role="dialog", name="Browser Setup & Help")

    def switch(self, program):
        """Toggles the strip in the setup; gives how often it had asked just before."""
        dialog = self.setup(program)
        left, top, _, height = dialog.find(role="check box", name="Ticker").extents
        before = self.server.count("/tick")
        driver.move_pointer(left + 8, top + height // 2)
        driver.xdotool("click", 1)
        dialog.find(role="push button", name="OK").click()
        driver.wait_for(lambda: not program.application.find_all(role="dialog"),
                        "the dialog to close")
        return before

    def test_switched_off_it_asks_for_nothing_more_until_it_is_switched_on(self):
        self.server.pages["/javaticker.html"] = STREAM
        program = self.start()
        program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        self.switch(program)
        self.server.wait_for_request("/tick", times=5)

        self.switch(program)
        stopped = self.server.count("/tick")
        # The strip would ask thirty times while this page is loaded three times.
        window = program.main_window()
        for times in range(1, 4):
            window.find(name="REFRESH").click()
            with self.assertRaises(AssertionError):
                self.server.wait_for_request("/tick", times=stopped + 1, seconds=1)
        self.assertEqual(self.server.count("/tick"), stopped)

        self.switch(program)
        self.server.wait_for_request("/javaticker.html", times=2)
        self.server.wait_for_request("/tick", times=stopped + 5)


if __name__ == "__main__":
    driver.main()
