"""The left panel and the size of texts from outside: the edge of the ticker list under the pointer and
the keys, what stays of it after a restart, the smallest window, and the three sizes."""

import controls
import driver

GRIP = "Edge of the ticker list"


class Panels(driver.SystemTest):
    def open(self, width=1280, height=900, settings=""):
        profile = self.folder / "profile"
        if not profile.exists():
            profile.mkdir()
            (profile / "settings.ini").write_text(
                "[Settings]\nFirst=OK\nStocks1=AOL|MSFT|IBM|GE|T|\nPortName2=" + "Long name " * 30 +
                "\n" + settings)
        self.program = self.start()
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, width, height)

    def close(self):
        self.program.ask_to_close()
        self.assertEqual(self.program.wait_for_end(), 0, self.program.errors())

    def list_height(self):
        return self.window.find(role="list").extents[3]

    def wait_for_height(self, height):
        driver.wait_for(lambda: self.list_height() == height, f"a list of {height} pixels")

    def drag_grip(self, pixels):
        left, top, width, height = self.window.find(name=GRIP).extents
        x, y = left + width // 2, top + height // 2
        driver.move_pointer(x, y)
        driver.xdotool("mousedown", 1)
        driver.move_pointer(x, y + pixels)
        driver.xdotool("mouseup", 1)

    def test_a_screen_reader_meets_groups_and_names_without_stray_blanks(self):
        self.open()
        driver.wait_for(self.program.pages, "the start page")
        for control in self.window.walk(hidden=True):
            self.assertEqual(control.name, control.name.strip(), control.role)
            # The engine's own view of a page is one of its own kind.
            if [child.role for child in control.children()] != ["document web"]:
                self.assertNotEqual(control.role, "filler", control.name)
        self.window.find(name="IT")

    def test_the_edge_is_dragged_kept_and_reset(self):
        self.open()
        driver.wait_for(lambda: self.list_height() > 50, "the layout")
        driver.wait_for(lambda: self.window.extents[2] >= 1270, "the size of the window")
        designed = self.list_height()
        self.drag_grip(120)
        self.wait_for_height(designed + 120)
        links = self.window.find(name="Left panel").extents
        grip = self.window.find(name=GRIP).extents
        self.assertEqual(links[1], grip[1] + grip[3])
        self.close()

        self.open()
        self.wait_for_height(designed + 120)
        self.window.find(name=GRIP).double_click()
        self.wait_for_height(designed)

    def test_the_smallest_window_shows_three_rows(self):
        self.open(565, 300, "WSCTick=True\n")
        driver.wait_for(lambda: self.window.extents[2] <= 575, "the size of the window")

        def shown():
            left, top, width, height = self.window.find(role="list").extents
            rows = [row.extents for row in self.window.find(role="list").find_all(role="list item")]
            return sum(row[1] >= top and row[1] + row[3] <= top + height for row in rows)
        driver.wait_for(lambda: shown() >= 3, "three rows")
        driver.screenshot(driver.SCREENSHOTS / "smallest.png", self.program.window_id())

    def test_texts_are_small_normal_or_large(self):
        self.open()

        def row():
            return self.window.find(role="list item", name="AOL").extents[3]
        driver.wait_for(lambda: row() > 5, "the rows")
        normal = row()
        controls.choose(self.window, "View", "Text Size", "Large")
        driver.wait_for(lambda: row() > normal, "larger rows")
        driver.screenshot(driver.SCREENSHOTS / "large.png", self.program.window_id())
        large = row()
        self.close()
        self.open()
        driver.wait_for(lambda: row() == large, "the rows that were chosen")
        controls.choose(self.window, "View", "Text Size", "Small")
        driver.wait_for(lambda: 0 < row() < normal, "smaller rows")


if __name__ == "__main__":
    driver.main()
