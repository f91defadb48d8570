"""Site menus from outside: an item of a submenu is chosen with the keyboard alone."""

import driver


class SiteMenu(driver.SystemTest):
    def test_an_item_three_levels_deep_is_chosen_with_the_keyboard(self):
        program = self.start()
        window = program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        item = window.find(role="list item", name="AOL")
        item.click()
        driver.wait_for(lambda: item.selected, "AOL to be selected")

        def windows():
            return len(program.windows() or ())

        # The click opens the menu and leaves the focus on its link.
        without = driver.wait_for(windows, "the windows")
        window.find(name="WSC").click()
        driver.wait_for(lambda: windows() > without, "the menu at the pointer")
        driver.press("Escape")
        # Away from the link, whose tooltip would be a window too.
        driver.xdotool("mousemove", "--sync", 1000, 700)
        driver.wait_for(lambda: windows() == without, "the menu to close")

        driver.press("Return")
        driver.wait_for(lambda: windows() == without + 1, "the menu below its link")
        # A menu takes the keys a moment after its window is there.
        driver.screenshot_at_rest(driver.SCREENSHOTS / "site-menu.png", "root")
        driver.type_text("ch")
        driver.press("Right")
        driver.wait_for(lambda: windows() == without + 2, "the submenu")
        driver.screenshot_at_rest(driver.SCREENSHOTS / "site-menu.png", "root")
        driver.type_text("mom")
        driver.press("Return")
        self.server.wait_for_request(
            "/wsc/Technical.html?Button=RUN&ind=s,206,d,d,d,d&TESelect=206&nocache=75382&PH=2&"
            "Symbol=aol")


if __name__ == "__main__":
    driver.main()
