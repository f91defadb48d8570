"""The list of the shortcuts and other keys for a command, by hand."""

import re

import driver


class Shortcuts(driver.SystemTest):
    def open_list(self, program, window):
        menu = window.find(role="menu bar").find(name="Help")
        menu.click()
        menu.find(name="Keyboard Shortcuts...").click()
        dialog = program.application.find(name="Keyboard Shortcuts", role="dialog")
        driver.wait_for(lambda: dialog.extents[2] > 50, "the size of the dialog")
        return dialog

    def say(self, dialog, text):
        dialog.find(role="label", name=text)

    def test_keys_are_taken_over_and_given_back(self):
        program = self.start()
        window = program.main_window()
        driver.place(program.window_id(), 40, 60, 1280, 900)

        # What people expect of these keys.
        driver.press("ctrl+shift+l")
        dialog = program.application.find(name=re.compile("^Smart Navigate"), role="dialog")
        driver.press("ctrl+w")
        driver.wait_for(lambda: not dialog.showing, "the dialog to close")
        self.assertTrue(window.showing)

        dialog = self.open_list(program, window)
        dialog.find(name="Find", role="text").click()
        driver.type_text("about")
        dialog.find(name="New shortcut").click()
        driver.press("ctrl+shift+e")
        self.say(dialog, 'Ctrl+Shift+E is the shortcut of "Reminders".')
        dialog.find(name="Set", role="push button").click()
        question = program.application.find(name="Quorvane")
        question.find(name="Yes", role="push button").click()
        self.say(dialog, '"About Tallowmere" has Ctrl+Shift+E now.')
        driver.screenshot(driver.SCREENSHOTS / "shortcuts.png")
        driver.press("Escape")
        driver.wait_for(lambda: not dialog.showing, "the list to close")
        driver.xdotool("windowactivate", "--sync", program.window_id())

        driver.press("ctrl+shift+e")
        about = program.application.find(name="About Tallowmere")
        driver.press("Return")
        driver.wait_for(lambda: not about.showing, "the box to close")

        # The guide tells the keys that hold now.
        driver.press("F1")
        driver.wait_for(lambda: any("Ctrl+Shift+E" in text and "versions and licences" in text
                                    for text in program.page_texts()), "the guide")

        dialog = self.open_list(program, window)
        dialog.find(name="Reset All...", role="push button").click()
        question = program.application.find(name="Quorvane")
        question.find(name="Yes", role="push button").click()
        self.say(dialog, "All commands have the shortcuts that they came with.")
        driver.press("Escape")
        driver.wait_for(lambda: not dialog.showing, "the list to close")
        driver.xdotool("windowactivate", "--sync", program.window_id())
        driver.press("ctrl+shift+e")
        program.application.find(name="Daily Reminders")


if __name__ == "__main__":
    driver.main()
