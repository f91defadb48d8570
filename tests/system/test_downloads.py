"""Downloads from outside: where a file goes is asked, the list shows how far it is and what can be
done about it, programs are not opened from it, and closing asks while a file is being saved."""

import os
import threading

import driver


class Downloads(driver.SystemTest):
    def setUp(self):
        super().setUp()
        # Stands for the desktop: it keeps what the program wants opened.
        tools = self.folder / "tools"
        tools.mkdir()
        opener = tools / "xdg-open"
        opener.write_text(f'#!/bin/sh\necho "$1" >> "{self.folder}/opened"\n')
        opener.chmod(0o755)
        before = os.environ["PATH"]
        os.environ["PATH"] = f"{tools}:{before}"
        self.addCleanup(os.environ.__setitem__, "PATH", before)
        self.target = self.folder / "saved"
        self.target.mkdir()
        self.program = self.start()
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, 1280, 900)
        driver.wait_for(lambda: any(self.program.pages()), "the first page")

    def opened(self):
        path = self.folder / "opened"
        return path.read_text().split() if path.exists() else []

    def serve(self, name, size=4000, held=False):
        self.server.services[f"/{name}"] = lambda path: ("application/octet-stream", "x" * size)
        self.server.headers[f"/{name}"] = {"Content-Disposition": f'attachment; filename="{name}"'}
        event = threading.Event()
        if held:
            self.server.held[f"/{name}"] = event
            self.addCleanup(event.set)
        return event

    def save(self, name, *, is_program=False):
        """Opens the address of a file and says where it goes."""
        driver.xdotool("windowactivate", "--sync", self.program.window_id())
        driver.press("ctrl+shift+l")
        dialog = self.dialog("Smart Navigate - Enter a URL or Site Name")
        driver.type_text(f"{self.server.host}/{name}")
        driver.press("Return")
        driver.wait_for(lambda: not dialog.showing, "the dialog to close")
        chooser = self.program.application.find(role="dialog", name="Save As")
        box = chooser.find(role="text")
        driver.wait_for(lambda: box.focused and box.text.endswith(name), "the proposed name")
        driver.press("ctrl+a")
        driver.type_text(str(self.target / name))
        driver.press("Return")
        driver.wait_for(lambda: not chooser.showing, "the dialog to close")
        if is_program:
            question = self.program.application.find(name="Quorvane", role="alert")
            driver.press("alt+y")
            driver.wait_for(lambda: not question.showing, "the question to go")

    def dialog(self, name):
        dialog = self.program.application.find(role="dialog", name=name)
        driver.wait_for(lambda: dialog.extents[2] > 50, "the dialog's size")
        return dialog

    def open_list(self):
        driver.xdotool("windowactivate", "--sync", self.program.window_id())
        driver.press("ctrl+j")
        return self.dialog("Downloads")

    def wait_for_cell(self, dialog, text):
        driver.wait_for(lambda: any(cell.name.startswith(text) for cell in dialog.walk()),
                        f"a cell that begins with {text!r}")

    def test_a_file_is_saved_listed_opened_and_removed(self):
        self.serve("list.csv")
        self.save("list.csv")
        self.window.find(name="Saved list.csv")
        dialog = self.open_list()
        self.wait_for_cell(dialog, "Saved, 4.0 kB")
        driver.screenshot(driver.SCREENSHOTS / "downloads.png")
        driver.press("Return")
        path = str(self.target / "list.csv")
        driver.wait_for(lambda: self.opened() == [f"file://{path}"], "the file to be opened")
        driver.press("alt+f")
        driver.wait_for(lambda: self.opened()[1:] == [f"file://{self.target}"], "the folder")
        driver.press("Delete")
        driver.wait_for(lambda: not dialog.find_all(name="list.csv"), "the row to go")
        self.assertEqual((self.target / "list.csv").read_text(), "x" * 4000)
        driver.press("Escape")
        driver.wait_for(lambda: not dialog.showing, "the list to close")

    def test_a_program_is_only_shown_in_its_folder(self):
        self.serve("list.sh")
        self.save("list.sh", is_program=True)
        dialog = self.open_list()
        self.wait_for_cell(dialog, "Saved, 4.0 kB")
        self.wait_for_cell(dialog, "list.sh is a program")
        self.assertFalse(dialog.find(role="push button", name="Open").enabled)
        driver.screenshot(driver.SCREENSHOTS / "downloads-program.png")
        dialog.find(name="list.sh").double_click()
        driver.press("Return")
        driver.press("alt+f")
        driver.wait_for(lambda: self.opened() == [f"file://{self.target}"], "the folder alone")
        self.assertFalse(os.access(self.target / "list.sh", os.X_OK))

    def test_a_file_under_way_is_cancelled_and_tried_again(self):
        event = self.serve("slow.zip", held=True)
        self.save("slow.zip")
        dialog = self.open_list()
        self.wait_for_cell(dialog, "2.0 kB of 4.0 kB")
        self.wait_for_cell(dialog, "50 %")
        driver.screenshot(driver.SCREENSHOTS / "downloads-running.png")
        dialog.find(role="push button", name="Cancel Download").click()
        self.wait_for_cell(dialog, "Cancelled")
        driver.wait_for(lambda: not list(self.target.iterdir()), "the rest of the file to go")
        event.set()
        dialog.find(role="push button", name="Try Again").click()
        self.wait_for_cell(dialog, "Saved, 4.0 kB")
        self.assertEqual([path.name for path in self.target.iterdir()], ["slow.zip"])

    def test_closing_asks_while_a_file_is_being_saved(self):
        self.serve("slow.zip", held=True)
        self.save("slow.zip")
        self.window.find(name="Saving slow.zip")
        self.server.wait_for_request("/slow.zip")
        self.program.ask_to_close()
        question = self.program.application.find(
            name="A file is still being saved. Close all the same? What is there of it goes.")
        driver.screenshot(driver.SCREENSHOTS / "downloads-closing.png")
        driver.press("Return")  # No
        driver.wait_for(lambda: not question.showing, "the question to go")
        self.assertTrue(self.window.showing)
        self.program.ask_to_close()
        question = self.program.application.find(
            name="A file is still being saved. Close all the same? What is there of it goes.")
        driver.press("alt+y")
        self.assertEqual(self.program.wait_for_end(), 0, self.program.errors())
        self.assertEqual(list(self.target.iterdir()), [])


if __name__ == "__main__":
    driver.main()
