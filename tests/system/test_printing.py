"""The page before it is on paper, and as a document, by hand."""

import subprocess
import unittest

import controls
import driver


class Printing(driver.SystemTest):
    def save_as(self, program, title, path):
        controls.name_file(program, title, path)
        driver.wait_for(lambda: path.exists() and path.stat().st_size > 0, f"{path.name}")

    def show_quote(self):
        """The program and its window with a quote page in view."""
        program = self.start()
        window = program.main_window()
        driver.place(program.window_id(), 40, 60, 1280, 900)
        window.find(name="Ticker entry").click()
        driver.type_text("msft")
        driver.press("Return", "Down")
        window.find(name="Y!").click()
        driver.wait_for(lambda: any("MSFT" in page.upper() for page in program.page_texts()),
                        "the page")
        return program, window

    def text_of(self, path):
        return subprocess.run(["pdftotext", "-layout", str(path), "-"], check=True,
                              capture_output=True, text=True).stdout

    def test_a_page_is_previewed_and_saved(self):
        program, window = self.show_quote()
        controls.choose(window, "Page", "Print Preview...")
        preview = program.application.find(name="Print Preview", role="dialog")
        preview.find(name="1 page", role="label")
        driver.screenshot(driver.SCREENSHOTS / "print-preview.png")
        first = self.folder / "preview.pdf"
        preview.find(name="Save as PDF...", role="push button").click()
        self.save_as(program, "Save as PDF", first)
        self.assertIn("Page 1 of 1", self.text_of(first))
        self.assertIn(self.server.host, self.text_of(first))
        driver.press("Escape")
        driver.wait_for(lambda: not preview.showing, "the preview to close")

        second = self.folder / "page.txt"
        driver.press("ctrl+s")
        self.save_as(program, "Save Page As", second)
        self.assertIn("msft", second.read_text().lower())

    def test_ctrl_p_offers_a_document_where_no_printer_is(self):
        if subprocess.run(["sh", "-c", "lpstat -e"], capture_output=True).stdout:
            raise unittest.SkipTest("this machine has a printer")
        program, _ = self.show_quote()
        driver.press("ctrl+p")
        question = program.application.find(name="Quorvane")
        driver.screenshot(driver.SCREENSHOTS / "no-printer.png")
        question.find(name="Yes", role="push button").click()
        path = self.folder / "paper.pdf"
        self.save_as(program, "Save as PDF", path)
        self.assertIn("Page 1 of 1", self.text_of(path))


if __name__ == "__main__":
    driver.main()
