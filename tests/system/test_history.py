"""The lists under Back and Forward from outside: a right click or a long press on the label shows
where it leads, and a choice goes there at once."""

import driver


class History(driver.SystemTest):
    PAGES = ("/one", "/two", "/three")

    def setUp(self):
        super().setUp()
        self.program = self.start()
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, 1280, 900)
        driver.wait_for(lambda: any(self.program.pages()), "the first page")
        for page in self.PAGES:
            driver.press("ctrl+shift+l")
            dialog = self.program.application.find(
                role="dialog", name="Smart Navigate - Enter a URL or Site Name")
            driver.wait_for(lambda: dialog.extents[2] > 50, "the dialog's size")
            driver.type_text(self.server.host + page)
            driver.press("Return")
            self.wait_for_page(page)

    def wait_for_page(self, page):
        driver.wait_for(lambda: self.program.pages() == [page], f"the page {page}")

    def wait_for_menu(self, shown=True):
        driver.wait_for(lambda: len(self.program.windows() or ()) == (2 if shown else 1),
                        "the menu" if shown else "the menu to close")

    def test_a_right_click_lists_the_pages_and_a_choice_goes_there(self):
        self.window.find(name="<<<").click(button=3)
        self.wait_for_menu()
        driver.screenshot(driver.SCREENSHOTS / "history.png")
        driver.press("Down", "Down", "Return")
        self.wait_for_page("/one")
        self.window.find(name=">>>").click(button=3)
        self.wait_for_menu()
        driver.press("Down", "Down", "Return")
        self.wait_for_page("/three")
        self.window.find(name="<<<").click()
        self.wait_for_page("/two")

    def test_a_long_press_opens_the_list_and_a_short_one_goes_back(self):
        left, top, width, height = self.window.find(name="<<<").extents
        driver.move_pointer(left + width // 2, top + height // 2)
        driver.xdotool("mousedown", 1)
        self.wait_for_menu()
        driver.xdotool("mouseup", 1)
        driver.press("Down", "Return")
        self.wait_for_page("/two")
        self.window.find(name="<<<").click()
        self.wait_for_page("/one")

    def test_the_keyboard_opens_it_from_the_menu_bar(self):
        driver.press("alt+g")
        self.wait_for_menu()
        driver.press("t")
        driver.wait_for(lambda: len(self.program.windows() or ()) == 3, "the list")
        driver.press("Return")
        self.wait_for_page("/two")


if __name__ == "__main__":
    driver.main()
