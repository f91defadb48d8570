"""Links under pointer and keys from outside: quick clicks, the tint of a label, menus by keyboard."""

import driver

QUOTE = "/q?s=msft&d=2b"


class LinksByHand(driver.SystemTest):
    def setUp(self):
        super().setUp()
        profile = self.folder / "profile"
        profile.mkdir(mode=0o700)
        # The slots are filled with plain colours, 0x00BBGGRR.
        (profile / "settings.ini").write_text(
            "[Settings]\nFirst=OK\nStocks1=MSFT|\n"
            + "".join(f"CustomT{n}=Own {n}\nCustom{n}=http://{self.server.host}/own{n}\n"
                      f"CustomF{n}=65793\nCustomB{n}=8454143\n" for n in (101, 104))
            + "[Colors]\nbCUST=255\n")
        self.program = self.start()
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, 1600, 1000)
        driver.move_pointer(800, 500)
        driver.wait_for(lambda: any(self.program.pages()), "the first page")

    def slot(self, number):
        return driver.wait_for(
            lambda: next((chip for chip in self.window.walk() if chip.description.startswith(
                f"Custom link {number}")), None), f"the slot {number}")

    def body(self, link):
        """The background of a label: a point beside its caption."""
        left, top, _, height = link.extents
        return driver.pixel(left + 3, top + height // 2)

    def wait_for_body(self, link, colour):
        driver.wait_for(lambda: self.body(link) == colour,
                        f"{link} to have the background {colour}, not {self.body(link)}")

    def menu(self, before):
        menu, = driver.wait_for(lambda: (self.program.windows() or set()) - before, "the menu")
        return menu

    def wait_for_no_menu(self, before):
        driver.wait_for(lambda: (now := self.program.windows()) and not now - before,
                        "the menu to close")

    def test_two_quick_clicks_are_two_clicks(self):
        back, forward = self.window.find(name="<<<"), self.window.find(name=">>>")
        pages = []
        for name in ("Zacks", "Y!", "JQ"):
            self.window.find(name=name).click()
            driver.wait_for(lambda: any(self.program.pages()) and
                            self.program.pages()[0] not in pages, f"the page of {name}")
            pages.append(self.program.pages()[0])
        back.click(times=2)
        driver.wait_for(lambda: self.program.pages() == pages[:1], f"the first of {pages}")
        forward.click(times=2)
        driver.wait_for(lambda: self.program.pages() == pages[2:], f"the last of {pages}")

        # A recording that is begun and ended at once leaves every link as it was.
        self.window.find(name="ML").click(times=2)
        driver.wait_for(lambda: self.window.find(name="REFRESH").enabled, "the end of the recording")
        asked = self.server.count("/own101")
        self.slot(101).click(times=2)
        self.server.wait_for_request("/own101", times=asked + 1)

    def test_unused_slots_show_their_colour_exactly(self):
        self.wait_for_body(self.slot(150), (255, 0, 0))
        self.wait_for_body(self.slot(101), (255, 255, 128))

    def test_after_its_menu_a_label_has_its_colours_while_the_pointer_rests(self):
        link = self.slot(101)
        self.wait_for_body(link, (255, 255, 128))
        before = driver.wait_for(self.program.windows, "the windows")
        link.click(button=3)
        menu = self.menu(before)
        # It opens where the pointer is.
        left, top, width, height = link.extents
        x, y, _, _ = driver.geometry(menu)
        self.assertLess(abs(x - (left + width // 2)), 8)
        self.assertLess(abs(y - (top + height // 2)), 8)
        driver.screenshot_at_rest(driver.SCREENSHOTS / "menu_at_pointer.png", menu)
        driver.press("Escape")
        self.wait_for_no_menu(before)
        self.wait_for_body(link, (255, 255, 128))

    def test_after_a_drop_both_labels_have_their_colours(self):
        source, target = self.slot(101), self.slot(104)

        def middle(widget):
            left, top, width, height = widget.extents
            return left + width // 2, top + height // 2
        (from_x, from_y), (to_x, to_y) = middle(source), middle(target)
        driver.xdotool("mousemove", "--sync", from_x, from_y)
        driver.xdotool("mousedown", 1)
        for step in range(1, 11):
            driver.xdotool("mousemove", "--sync", from_x + (to_x - from_x) * step // 10,
                           from_y + (to_y - from_y) * step // 10)
        driver.xdotool("mouseup", 1)
        question = self.program.application.find(role="alert", name="Move Custom Link")
        driver.press("alt+y")
        driver.wait_for(lambda: not question.showing, "the question to close")
        self.wait_for_body(target, (255, 255, 128))
        self.wait_for_body(source, (255, 0, 0))

    def test_the_menu_key_opens_a_menu_on_every_link(self):
        link = self.window.find(name="Y!")
        for key in ("Menu", "shift+F10"):
            link.click()
            self.server.wait_for_request(QUOTE)
            driver.wait_for(lambda: link.focused, "the focus on the link")
            asked = self.server.count(QUOTE)
            before = driver.wait_for(self.program.windows, "the windows")
            driver.press(key)
            menu = self.menu(before)
            driver.screenshot_at_rest(driver.SCREENSHOTS / f"menu_by_{key}.png", menu)
            driver.press("Down", "Return")
            self.wait_for_no_menu(before)
            self.server.wait_for_request(QUOTE, times=asked + 1)


if __name__ == "__main__":
    driver.main()
