"""The colour dialog from outside: what is chosen there is on the screen, and stays after a
restart."""

import driver

NAVY, MAROON = (0x10, 0x20, 0x30), (0x70, 0x12, 0x34)


class Colors(driver.SystemTest):
    def open(self):
        program = self.start()
        window = program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        return program, window

    def choose(self, program, window, area, button, color, confirm="OK"):
        """Gives an area a colour by way of the setup and the colour dialog."""
        window.find(name="Setup--Help").click()
        setup = program.application.find(role="dialog", name="Browser Setup & Help")
        setup.find(name="Set Colors").click()
        dialog = program.application.find(role="dialog", name="Color Settings")
        item = dialog.find(role="list item", name=area)
        item.click()
        driver.wait_for(lambda: item.selected, f"{area} to be selected")
        dialog.find(role="push button", name=button).click()
        picker = program.application.find(
            role="dialog", name="Background Color" if button == "Back" else "Text Color")
        box = picker.find(role="text", name="HTML:")
        box.double_click()
        driver.press("ctrl+a")
        driver.type_text("#%02x%02x%02x" % color)
        driver.wait_for(lambda: box.text == "#%02x%02x%02x" % color, "the colour in its box")
        picker.find(role="push button", name=confirm).click()
        driver.wait_for(lambda: not picker.showing, "the picker to close")
        dialog.find(role="push button", name="OK").click()
        # The button of the setup closes that dialog too.
        driver.wait_for(lambda: not program.application.find_all(role="dialog"), "both to close")

    def point_of_list(self, window):
        """A point of the ticker list below its tickers."""
        left, top, width, height = window.find(role="list", name="Ticker list").extents
        return left + width // 2, top + height - 6

    def point_of_link(self, window):
        """A point of the link "Y!" beside its caption."""
        left, top, _, height = window.find(name="Y!").extents
        return left + 3, top + height // 2

    def wait_for_pixel(self, point, color):
        driver.wait_for(lambda: driver.pixel(*point) == color,
                        f"{color} at {point}, where there is {driver.pixel(*point)}")

    def test_a_chosen_colour_is_on_the_screen_and_still_there_after_a_restart(self):
        program, window = self.open()
        # The defaults, 0x800000 and 0x808000, are dark blue and teal.
        self.wait_for_pixel(self.point_of_list(window), (0, 0, 0x80))
        self.wait_for_pixel(self.point_of_link(window), (0, 0x80, 0x80))
        self.choose(program, window, "Ticker List", "Back", NAVY)
        self.choose(program, window, "Charting/Quotes", "Back", MAROON)
        self.wait_for_pixel(self.point_of_list(window), NAVY)
        self.wait_for_pixel(self.point_of_link(window), MAROON)
        program.ask_to_close()
        self.assertEqual(program.wait_for_end(), 0, program.errors())

        program, window = self.open()
        self.wait_for_pixel(self.point_of_list(window), NAVY)
        self.wait_for_pixel(self.point_of_link(window), MAROON)

    def color_dialog(self, program, window):
        window.find(name="Setup--Help").click()
        setup = program.application.find(role="dialog", name="Browser Setup & Help")
        setup.find(name="Set Colors").click()
        return program.application.find(role="dialog", name="Color Settings")

    def close(self, program, dialog, button):
        dialog.find(role="push button", name=button).click()
        driver.wait_for(lambda: not program.application.find_all(role="dialog"), "both to close")

    def test_a_scheme_is_seen_behind_the_dialog_and_taken_back_by_cancel(self):
        program, window = self.open()
        designed = (0, 0, 0x80)
        self.wait_for_pixel(self.point_of_list(window), designed)
        dialog = self.color_dialog(program, window)
        driver.wait_for(lambda: dialog.extents[2] > 50, "the dialog's size")
        dialog.find(role="combo box").click()
        driver.press("Down", "Down", "Return")
        self.wait_for_pixel(self.point_of_list(window), (0x1B, 0x20, 0x27))
        driver.screenshot(driver.SCREENSHOTS / "scheme-dark.png", program.window_id())
        driver.screenshot(driver.SCREENSHOTS / "colors-dialog.png")
        self.close(program, dialog, "Cancel")
        self.wait_for_pixel(self.point_of_list(window), designed)
        self.assertNotIn("bTL", (self.folder / "profile" / "settings.ini").read_text())

    def test_a_scheme_stays_and_is_reset(self):
        program, window = self.open()
        dialog = self.color_dialog(program, window)
        driver.wait_for(lambda: dialog.extents[2] > 50, "the dialog's size")
        dialog.find(role="combo box").click()
        driver.press("Down", "Down", "Down", "Return")
        self.wait_for_pixel(self.point_of_list(window), (0, 0, 0))
        self.close(program, dialog, "OK")
        driver.screenshot(driver.SCREENSHOTS / "scheme-contrast.png", program.window_id())
        # Pages of our own go with it. The window manager may be late with the focus.
        window.find(role="list item", name="MSFT").click()
        driver.press("ctrl+shift+r")
        left, top, width, height = window.find(name="Research page").extents
        driver.wait_for(lambda: max(driver.pixel(left + width - 40, top + height - 60)) < 40,
                        "a dark report")
        driver.screenshot(driver.SCREENSHOTS / "report-dark.png", program.window_id())
        program.ask_to_close()
        self.assertEqual(program.wait_for_end(), 0, program.errors())

        program, window = self.open()
        self.wait_for_pixel(self.point_of_list(window), (0, 0, 0))
        dialog = self.color_dialog(program, window)
        driver.wait_for(lambda: dialog.extents[2] > 50, "the dialog's size")
        item = dialog.find(role="list item", name="Ticker List")
        item.click()
        driver.wait_for(lambda: item.selected, "the area to be selected")
        dialog.find(role="push button", name="Reset Area").click()
        self.wait_for_pixel(self.point_of_list(window), (0, 0, 0x80))
        self.close(program, dialog, "OK")

    def test_cancel_changes_nothing(self):
        program, window = self.open()
        self.choose(program, window, "Ticker List", "Back", MAROON, confirm="Cancel")
        self.wait_for_pixel(self.point_of_list(window), (0, 0, 0x80))
        settings = (self.folder / "profile" / "settings.ini").read_text()
        self.assertNotIn("[Colors]", settings)


if __name__ == "__main__":
    driver.main()
