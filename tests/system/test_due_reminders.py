"""A reminder comes due while the program runs: at midnight a notice of the desktop says so, and a
click on it opens the reminders. The time zone is chosen so that midnight is near."""

import os
import time

import driver
from notices import Desktop

UNTIL_MIDNIGHT = 60  # seconds; enough for a start on a slow machine


def zone_near_midnight():
    """The time zone in which it is UNTIL_MIDNIGHT seconds before midnight now."""
    ahead = (24 * 3600 - UNTIL_MIDNIGHT - int(time.time())) % (24 * 3600)
    # POSIX counts to the west.
    sign, ahead = ("-", ahead) if ahead <= 12 * 3600 else ("+", 24 * 3600 - ahead)
    return f"NEAR{sign}{ahead // 3600}:{ahead // 60 % 60:02}:{ahead % 60:02}"


class DueReminders(driver.SystemTest):
    def setUp(self):
        super().setUp()
        self.zone = os.environ["TZ"]
        os.environ["TZ"] = zone_near_midnight()
        time.tzset()
        self.addCleanup(self.restore_zone)
        self.desktop = Desktop()
        self.addCleanup(self.desktop.stop)

    def restore_zone(self):
        os.environ["TZ"] = self.zone
        time.tzset()

    def test_midnight_brings_a_notice_that_leads_to_the_reminders(self):
        profile = self.folder / "profile"
        profile.mkdir()
        (profile / "settings.ini").write_text("[Settings]\nFirst=OK\nStocks1=AOL|\n")
        tomorrow = time.strftime("%m-%d-%Y", time.localtime(time.time() + 3600))
        (profile / "remind.txt").write_text(f"||{tomorrow}||Sell all|||||\r\n", newline="")
        program = self.start()
        window = program.main_window()
        self.assertEqual(program.application.find_all(role="dialog"), [])
        driver.wait_for(lambda: self.desktop.shown, "the notice", 2 * UNTIL_MIDNIGHT)
        self.assertEqual(self.desktop.shown, ["Reminder: Sell all"])
        window.find(name="Reminder: Sell all")
        driver.screenshot(driver.SCREENSHOTS / "due-reminder.png", program.window_id())
        self.assertEqual(program.application.find_all(role="dialog"), [])
        self.desktop.click()
        dialog = program.application.find(role="dialog", name="Daily Reminders")
        driver.wait_for(lambda: dialog.showing, "the reminders")


if __name__ == "__main__":
    driver.main()
