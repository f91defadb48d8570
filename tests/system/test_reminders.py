"""Daily reminders from outside: one for today opens the dialog at the next start, one for tomorrow
does not."""

import datetime
import time

import driver


def today():
    """Today where the program thinks it is."""
    time.tzset()
    return datetime.date(*time.localtime()[:3])


class Reminders(driver.SystemTest):
    def dialog(self, program):
        return program.application.find(name="Daily Reminders", role="dialog")

    def dialogs(self, program):
        return program.application.find_all(name="Daily Reminders", role="dialog")

    def test_a_reminder_for_today_opens_the_dialog_at_the_next_start(self):
        program = self.start()
        window = program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        window.find(name="Reminders").click()
        dialog = self.dialog(program)
        dialog.find(name="Reminder", role="text").click()
        driver.type_text("sell the house")
        dialog.find(name="Save & Exit").click()
        driver.wait_for(lambda: not self.dialogs(program), "the dialog to close")
        program.ask_to_close()
        self.assertEqual(program.wait_for_end(), 0, program.errors())

        program = self.start()
        dialog = self.dialog(program)
        driver.wait_for(lambda: dialog.find(name="Reminder", role="text").text == "sell the house",
                        "the text of the reminder")
        dialog.find(role="list item", name=today().strftime("%m/%d/%Y - sell the house"))
        dialog.find(name="( 1 )")
        driver.press("Escape")
        driver.wait_for(lambda: not self.dialogs(program), "the dialog to close")

    def test_a_reminder_for_tomorrow_does_not(self):
        profile = self.folder / "profile"
        profile.mkdir()
        tomorrow = today() + datetime.timedelta(days=1)
        (profile / "remind.txt").write_bytes(
            tomorrow.strftime("||%m-%d-%Y||not yet|||||\r\n").encode())
        program = self.start()
        window = program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        window.find(role="list item", name="AOL")
        driver.wait_for(lambda: any(program.pages()), "the first page")
        self.assertEqual(self.dialogs(program), [])
        window.find(name="Reminders").click()
        self.dialog(program).find(role="list item",
                                  name=tomorrow.strftime("%m/%d/%Y - not yet"))


if __name__ == "__main__":
    driver.main()
