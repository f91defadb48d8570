"""The user's own links from outside: one is made in the editor, clicked, moved and emptied."""

import contextlib

import driver


class CustomLinks(driver.SystemTest):
    def window(self, program):
        window = program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        return window

    def slot(self, window, number, empty):
        """The link of a slot, once it is as told."""
        description = f"Custom link {number}" + (", empty" if empty else "")
        return driver.wait_for(
            lambda: next((chip for chip in window.walk() if chip.description == description), None),
            f"a control described as {description!r}")

    def editor(self, program):
        return program.application.find(name="Custom Link Properties", role="dialog")

    def fill(self, editor, name, text):
        box = editor.find(role="text", name=name)
        box.click()
        driver.press("ctrl+a")
        driver.type_text(text)
        driver.wait_for(lambda: box.text == text, f"{text!r} in the box {name}")

    @contextlib.contextmanager
    def menu(self, program, link):
        """A link's menu as a window, at rest; it has to close by what is done with it."""
        before = driver.wait_for(program.windows, "the windows")
        link.click(button=3)
        menu, = driver.wait_for(lambda: (program.windows() or set()) - before, "the menu")
        # A menu takes the keys a moment after its window is there.
        driver.screenshot_at_rest(driver.SCREENSHOTS / "custom_menu.png", menu)
        yield menu
        driver.wait_for(lambda: (windows := program.windows()) and not windows - before,
                        "the menu to close")

    def choose_by_keys(self, program, link, item):
        """Chooses the so many-th item of a link's menu."""
        with self.menu(program, link):
            driver.press(*["Down"] * item, "Return")

    def choose_by_pointer(self, program, link, item):
        """The same by a click on it; the menu has four items, a thin line, and two more."""
        with self.menu(program, link) as menu:
            left, top, width, height = driver.geometry(menu)
            driver.move_pointer(left + width // 2, top + int(height * (item - 0.5) / 6.5))
            driver.xdotool("click", 1)

    def test_a_link_made_in_the_editor_opens_its_page(self):
        program = self.start()
        window = self.window(program)
        self.slot(window, 101, empty=True).click()
        editor = self.editor(program)
        self.fill(editor, "Title", "My quotes")
        self.fill(editor, "URL", f"http://{self.server.host}/custom?s=LCASETICK&t=UCASETICK")
        driver.screenshot(driver.SCREENSHOTS / "custom_editor.png")
        editor.find(role="push button", name="Save").click()
        driver.wait_for(lambda: not program.application.find_all(role="dialog"),
                        "the editor to close")

        window.find(role="list item", name="MSFT").click()
        link = self.slot(window, 101, empty=False)
        self.assertEqual(link.name, "My quotes")
        link.click()
        self.server.wait_for_request("/custom?s=msft&t=MSFT")

        # The menu opens it again, and empties the slot.
        self.choose_by_keys(program, link, 1)
        self.server.wait_for_request("/custom?s=msft&t=MSFT", times=2)
        self.choose_by_pointer(program, link, 1)
        self.server.wait_for_request("/custom?s=msft&t=MSFT", times=3)
        self.choose_by_pointer(program, link, 4)
        self.assertEqual(self.slot(window, 101, empty=True).name, "< Custom >")

    def test_the_page_in_view_becomes_a_link_for_every_ticker(self):
        program = self.start()
        window = self.window(program)
        window.find(role="list item", name="MSFT").click()
        window.find(name="Y!").click()
        self.server.wait_for_request("/q?s=msft&d=2b")
        self.slot(window, 102, empty=True).click()
        editor = self.editor(program)
        driver.wait_for(lambda: editor.find(role="text", name="Title").focused, "the title's focus")
        # What is typed takes the place of the caption of an unused slot.
        driver.type_text("Quote")
        editor.find(role="push button", name="Current Page").click()
        editor.find(role="push button", name="Use for every ticker").click()
        url = editor.find(role="text", name="URL")
        driver.wait_for(lambda: url.text.endswith("/q?s=LCASETICK&d=2b"), "the placeholder")
        editor.find(name=f"For MSFT : http://{self.server.host}/q?s=msft&d=2b")
        driver.screenshot(driver.SCREENSHOTS / "custom_placeholder.png")
        editor.find(role="push button", name="Save").click()
        window.find(role="list item", name="AOL").click()
        link = self.slot(window, 102, empty=False)
        self.assertEqual(link.name, "Quote")
        link.click()
        self.server.wait_for_request("/q?s=aol&d=2b")

    def test_a_link_is_dragged_to_another_slot(self):
        program = self.start()
        window = self.window(program)
        self.slot(window, 101, empty=True).click()
        editor = self.editor(program)
        self.fill(editor, "Title", "Moved")
        self.fill(editor, "URL", f"http://{self.server.host}/moved")
        editor.find(role="push button", name="Save").click()
        source = self.slot(window, 101, empty=False)
        target = self.slot(window, 104, empty=True)

        def middle(widget):
            left, top, width, height = widget.extents
            return left + width // 2, top + height // 2
        from_x, from_y = middle(source)
        to_x, to_y = middle(target)
        driver.xdotool("mousemove", "--sync", from_x, from_y)
        driver.xdotool("mousedown", 1)
        for step in range(1, 11):
            driver.xdotool("mousemove", "--sync", from_x + (to_x - from_x) * step // 10,
                           from_y + (to_y - from_y) * step // 10)
        driver.xdotool("mouseup", 1)
        moved = self.slot(window, 104, empty=False)
        self.assertEqual(moved.name, "Moved")
        self.slot(window, 101, empty=True)
        moved.click()
        self.server.wait_for_request("/moved")


if __name__ == "__main__":
    driver.main()
