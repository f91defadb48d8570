"""Undo from outside: what is removed comes back, by key, by menu and by the bar below the list, in
the order of the commands and over a restart; and the right button acts on the row that it is pressed
on."""

import controls
import driver


class Undo(driver.SystemTest):
    def setUp(self):
        super().setUp()
        profile = self.folder / "profile"
        profile.mkdir()
        (profile / "settings.ini").write_text(
            "[Settings]\nFirst=OK\nStocks1=AOL|MSFT|IBM|\nPortName1=Tech\n")
        (profile / "TickNotes.txt").write_bytes(b"||MSFT||mine|||||\r\n")
        self.open()

    def open(self):
        self.program = self.start()
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, 1280, 900)
        driver.wait_for(lambda: controls.tickers(self.window), "the list")

    def close(self):
        self.program.ask_to_close()
        self.assertEqual(self.program.wait_for_end(), 0, self.program.errors())

    def notes(self):
        return (self.folder / "profile" / "TickNotes.txt").read_bytes()

    def stocks(self, number=1):
        text = (self.folder / "profile" / "settings.ini").read_text()
        lines = [line for line in text.splitlines() if line.startswith(f"Stocks{number}=")]
        return lines[0].partition("=")[2] if lines else None

    def item(self, ticker):
        return self.window.find(role="list item", name=ticker)

    def bar(self):
        """The words of the bar below the list, None while there is none."""
        found = self.window.find_all(role="push button", name="Undo")
        return found[0].description if found else None

    def wait_for_status(self, text):
        self.window.find(name=text)

    def test_a_deleted_ticker_comes_back_by_key_and_goes_again(self):
        controls.select(self.window, "MSFT")
        driver.press("Delete")
        controls.wait_for_tickers(self.window, "AOL", "IBM")
        driver.wait_for(lambda: self.bar() == "MSFT and its note removed.", "the bar")
        driver.screenshot(driver.SCREENSHOTS / "undo-bar.png", self.program.window_id())
        self.assertEqual(self.notes(), b"\r\n")
        driver.press("ctrl+z")
        controls.wait_for_tickers(self.window, "AOL", "MSFT", "IBM")
        self.assertTrue(self.item("MSFT").selected)
        self.assertEqual(self.notes(), b"||MSFT||mine|||||\r\n")
        self.assertEqual(self.stocks(), "AOL|MSFT|IBM|")
        self.assertIsNone(self.bar())
        self.wait_for_status("Undone: Delete MSFT")
        driver.press("ctrl+shift+z")
        controls.wait_for_tickers(self.window, "AOL", "IBM")
        self.assertEqual(self.stocks(), "AOL|IBM|")

    def test_undo_goes_back_command_by_command_over_a_restart(self):
        controls.select(self.window, "IBM")
        controls.choose(self.window, "Ticker", "Move IBM to :", "Portfolio #2")
        controls.wait_for_tickers(self.window, "AOL", "MSFT")
        self.window.find(name="Ticker entry").click()
        driver.type_text("amd;ge")
        driver.press("Return")
        controls.wait_for_tickers(self.window, "AOL", "MSFT", "AMD", "GE")
        self.close()
        self.open()
        controls.wait_for_tickers(self.window, "AOL", "MSFT", "AMD", "GE")
        controls.choose(self.window, "Portfolio", "Undo Add 2 Tickers")
        controls.wait_for_tickers(self.window, "AOL", "MSFT")
        controls.choose(self.window, "Portfolio", "Undo Move IBM to Portfolio #2")
        controls.wait_for_tickers(self.window, "AOL", "MSFT", "IBM")
        self.assertIsNone(self.stocks(2))
        self.close()
        self.open()
        controls.choose(self.window, "Portfolio", "Redo Move IBM to Portfolio #2")
        controls.wait_for_tickers(self.window, "AOL", "MSFT")
        self.assertEqual(self.stocks(2), "IBM|")

    def test_the_link_of_the_bar_is_reached_by_key(self):
        controls.select(self.window, "IBM")
        driver.press("Delete")
        controls.wait_for_tickers(self.window, "AOL", "MSFT")
        driver.wait_for(self.bar, "the bar")
        driver.press("Tab")
        driver.wait_for(lambda: self.window.find(role="push button", name="Undo").focused,
                        "the focus on the link")
        driver.press("space")
        controls.wait_for_tickers(self.window, "AOL", "MSFT", "IBM")
        driver.wait_for(lambda: self.bar() is None, "the bar to go")

    def test_cancel_in_the_box_of_a_note_is_taken_back_by_the_bar(self):
        controls.select(self.window, "MSFT")
        controls.choose(self.window, "Ticker", "Notes on MSFT", "mine")
        dialog = self.program.application.find(role="dialog", name="Ticker Notes")
        driver.screenshot(driver.SCREENSHOTS / "note-box.png")
        dialog.find(name="Cancel").click()
        driver.wait_for(lambda: self.bar() == "Note on MSFT removed.", "the bar")
        self.assertEqual(self.notes(), b"\r\n")
        self.window.find(role="push button", name="Undo").click()
        driver.wait_for(lambda: self.notes() == b"||MSFT||mine|||||\r\n", "the note")

    def test_a_note_of_several_lines_keeps_them(self):
        controls.select(self.window, "AOL")
        controls.choose(self.window, "Ticker", "Notes on AOL")
        driver.press("Down", "Return")
        dialog = self.program.application.find(role="dialog", name="Ticker Notes")
        driver.wait_for(lambda: dialog.extents[2] > 50, "the dialog's size")
        driver.type_text("first")
        driver.press("shift+Return", "shift+Return")
        driver.type_text("third")
        driver.press("Return")
        driver.wait_for(lambda: b"||AOL||first\r\n \r\nthird|||||\r\n" in self.notes(), "the note")
        driver.wait_for(lambda: self.item("AOL").description == "has a note", "the mark")

    def test_the_right_button_acts_on_the_row_under_it(self):
        controls.select(self.window, "AOL")
        self.item("IBM").click(button=3)
        driver.wait_for(lambda: self.item("IBM").selected, "IBM to be selected")
        driver.press("Escape")
        # Below the last row nothing is selected anew.
        left, top, width, height = self.item("IBM").extents
        driver.move_pointer(left + width // 2, top + 3 * height)
        driver.xdotool("click", 3)
        driver.press("Escape")
        self.assertTrue(self.item("IBM").selected)
        self.item("MSFT").click(button=3)
        driver.wait_for(lambda: self.item("MSFT").selected, "MSFT to be selected")
        driver.press("Down", "Return")  # Delete MSFT
        controls.wait_for_tickers(self.window, "AOL", "IBM")

    def test_no_is_what_enter_answers_before_a_list_is_cleared(self):
        controls.select(self.window, "IBM")
        self.window.find(name="X").double_click()
        question = self.program.application.find(name="Clear Stocks")
        self.program.application.find(
            name="Clear Stock List?\n2 tickers in portfolio #1, \"Tech\".")
        driver.screenshot(driver.SCREENSHOTS / "clear-question.png")
        driver.press("Return")
        driver.wait_for(lambda: not question.showing, "the question to go")
        controls.wait_for_tickers(self.window, "AOL", "MSFT")
        self.assertEqual(self.bar(), "IBM removed.")
        self.window.find(role="push button", name="Undo").click()
        controls.wait_for_tickers(self.window, "AOL", "MSFT", "IBM")

    def test_the_line_below_says_what_an_entry_did_and_down_leads_to_it(self):
        self.window.find(name="Ticker entry").click()
        driver.type_text('"ge"; amd')
        driver.press("Return")
        self.wait_for_status("GE and AMD added.")
        driver.type_text("msft")
        driver.press("Return")
        self.wait_for_status("MSFT is in the list already.")
        driver.press("Down")
        driver.wait_for(lambda: self.item("MSFT").selected, "MSFT to be selected")
        driver.press("Delete")
        controls.wait_for_tickers(self.window, "AOL", "IBM", "GE", "AMD")


if __name__ == "__main__":
    driver.main()
