"""The setup dialog from outside: every field is as it was after a restart, and the start page opens
at the next start in its pane."""

import driver
from driver import Atspi


class Setup(driver.SystemTest):
    CHECKS = ("Firewall / AOL", "Ticker", "Tool Tips", "Active Edges", "Societe Anonyme Member")

    def open(self, **more):
        program = self.start(**more)
        program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        return program

    def setup(self, program):
        """The dialog, opened by its key: with active edges its link may be out of sight."""
        driver.xdotool("windowactivate", "--sync", program.window_id())
        driver.press("ctrl+comma")
        return program.application.find(role="dialog", name="Browser Setup & Help")

    def close(self, program, dialog, button="OK"):
        dialog.find(role="push button", name=button).click()
        driver.wait_for(lambda: not program.application.find_all(role="dialog"),
                        "the dialog to close")

    def toggle(self, dialog, name):
        check = dialog.find(role="check box", name=name)
        before = check.has(Atspi.StateType.CHECKED)
        left, top, _, height = check.extents
        driver.move_pointer(left + 8, top + height // 2)
        driver.xdotool("click", 1)
        driver.wait_for(lambda: check.has(Atspi.StateType.CHECKED) != before, f"a change of {name}")

    def fill(self, dialog, role, name, text):
        box = dialog.find(role=role, name=name)
        box.click()
        driver.wait_for(lambda: box.focused, f"the focus in {name}")
        driver.type_text(text)
        # A box for a password does not say what it holds.
        driver.wait_for(lambda: box.text == (text if role == "text" else ""), f"{text} in {name}")

    def show_member_box(self, program, dialog):
        """The gesture that shows the member's check box: two right clicks on Help."""
        button = dialog.find(role="push button", name="Help")
        button.click(button=3)
        self.assertFalse(dialog.find_all(role="check box", name="Societe Anonyme Member"))
        button.click(button=3)
        message = program.application.find(role="alert", name="Quorvane")
        message.find(name="SA mode set to ON.. Double right click the Help Button to turn it OFF.")
        message.find(role="push button", name="OK").click()
        driver.wait_for(lambda: not message.showing, "the message to close")

    def restart(self, program):
        program.ask_to_close()
        self.assertEqual(program.wait_for_end(), 0, program.errors())
        return self.open()

    def test_every_field_survives_a_restart(self):
        program = self.open()
        dialog = self.setup(program)
        self.show_member_box(program, dialog)
        for name in self.CHECKS:
            self.toggle(dialog, name)
        self.fill(dialog, "text", "Proxy Server IP", self.server.host)
        self.fill(dialog, "text", "Login", "me")
        self.fill(dialog, "password text", "Password", "s3cret")
        driver.screenshot(driver.SCREENSHOTS / "setup.png")
        self.close(program, dialog)
        # The strip's page is loaded at once.
        self.server.wait_for_request("/javaticker.html")

        program = self.restart(program)
        # So it is at the next start, and a member's pages are opened there.
        self.server.wait_for_request("/javaticker.html", times=2)
        self.server.wait_for_request("/members/")
        dialog = self.setup(program)
        self.show_member_box(program, dialog)
        self.assertEqual({name: dialog.find(role="check box", name=name).has(Atspi.StateType.CHECKED)
                          for name in self.CHECKS},
                         {name: name != "Tool Tips" for name in self.CHECKS})
        self.assertEqual(dialog.find(role="text", name="Proxy Server IP").text, self.server.host)
        self.assertEqual(dialog.find(role="text", name="Login").text, "me")
        # What the box of the password holds is written back when the dialog closes.
        dialog.find(role="password text", name="Password").click()
        driver.press("End")
        driver.type_text("!")
        self.close(program, dialog)
        settings = (self.folder / "profile" / "settings.ini").read_text()
        self.assertIn("MNP=s3cret!\n", settings)

    def test_the_start_page_opens_at_the_next_start_in_its_pane(self):
        more = f'datek = "http://{self.server.host}/datek"\n'
        program = self.open(more_hosts=more)
        window = program.main_window()
        window.find(role="list item", name="MSFT").click()
        window.find(name="Y!").click()
        driver.wait_for(lambda: program.pages() == ["/q?s=msft&d=2b"], "the page in the first pane")
        self.close(program, self.setup(program), "Set Startup Page")
        program = self.restart(program)
        driver.wait_for(lambda: program.pages() == ["/q?s=msft&d=2b"], "the start page")
        program.application.find(role="panel", name="Research page")

        # From the pane of the brokers it comes back there.
        program.ask_to_close()
        program.wait_for_end()
        program = self.open(more_hosts=more)
        program.main_window().find(name="Datek").click()
        driver.wait_for(lambda: program.pages() == ["/datek/"], "the broker's page")
        self.close(program, self.setup(program), "Set Startup Page")
        program = self.restart(program)
        driver.wait_for(lambda: program.pages() == ["/datek/"], "the broker's page at the start")
        program.application.find(role="panel", name="Broker page")


if __name__ == "__main__":
    driver.main()
