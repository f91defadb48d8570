"""Smart navigate from outside: a name or an address opens its page and is offered the next time."""

import driver


class Navigate(driver.SystemTest):
    def window(self, program):
        window = program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        driver.wait_for(lambda: any(program.pages()), "the first page")
        return window

    def navigate(self, program, window, *keys, text="", becomes=None):
        """Opens the dialog by its link, types a text, presses keys until the box holds what it is to
        become, and Enter."""
        window.find(role="push button", name="Navigate").click()
        dialog = program.application.find(
            role="dialog", name="Smart Navigate - Enter a URL or Site Name")
        box = dialog.find(role="text")
        driver.wait_for(lambda: box.focused, "the box to have the focus")
        driver.type_text(text)
        driver.wait_for(lambda: box.text == text, f"{text!r} in the box")
        for key in keys:
            driver.press(key)
        driver.wait_for(lambda: box.text == (becomes or text), f"{becomes!r}, not {box.text!r}")
        driver.press("Return")
        driver.wait_for(lambda: not dialog.showing, "the dialog to close")

    def test_an_address_opens_and_is_offered_after_a_restart(self):
        first, second = f"{self.server.host}/first?a=1", f"{self.server.host}/second"
        program = self.start()
        window = self.window(program)
        self.navigate(program, window, text=first)
        self.server.wait_for_request("/first?a=1")
        driver.wait_for(lambda: program.pages() == ["/first?a=1"], "the page")
        self.navigate(program, window, text=second)
        self.server.wait_for_request("/second")
        program.ask_to_close()
        self.assertEqual(program.wait_for_end(), 0, program.errors())

        program = self.start()
        window = self.window(program)
        # Down takes the newest entry, and once more the one before it.
        self.navigate(program, window, "Down", "Down", becomes=first)
        self.server.wait_for_request("/first?a=1", times=2)
        # What is typed is completed from the list below it.
        self.navigate(program, window, "Down", text="second", becomes=second)
        self.server.wait_for_request("/second", times=2)

    def test_a_name_becomes_an_address_and_is_in_the_history(self):
        program = driver.Program(driver.SystemTest.binary, "--web", "sample",
                                 profile=self.folder / "profile")
        self.addCleanup(program.stop)
        window = self.window(program)
        self.navigate(program, window, text="tallow")
        # The sample market has no such site, and says so by the address that was built.
        driver.wait_for(lambda: program.pages() == ["No page - SAMPLE DATA"], "the page")
        window.find(name="www.tallow.com")
        self.assertIn("NAV1=www.tallow.com",
                      (self.folder / "profile" / "settings.ini").read_text())


if __name__ == "__main__":
    driver.main()
