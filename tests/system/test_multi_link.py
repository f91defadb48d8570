"""A multi-link from outside: recorded from the editor, closed, restarted, opened for another ticker;
one of its pages refuses to be framed."""

import controls
import driver

# What the three links ask for, with the ticker in lower and in upper case.
QUOTE = "/q?s={lower}&d=2b"
PROFILE = "/p/{first}/{lower}.html"
RESEARCH = "/cgi-bin/AW/DoInquiry.zcom?ticker={upper}&type=100"

# The colours of two pages, to tell which is in view.
FIRST = (0, 128, 64)
SECOND = (128, 0, 64)


def path(form, ticker):
    return form.format(lower=ticker.lower(), upper=ticker.upper(), first=ticker[0].lower())


class MultiLink(driver.SystemTest):
    def window(self, program):
        window = program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        return window

    def link(self, window, description):
        return driver.wait_for(
            lambda: next((chip for chip in window.walk() if chip.description == description), None),
            f"a control described as {description!r}")

    def test_a_recorded_multi_link_opens_for_another_ticker(self):
        self.server.headers[path(PROFILE, "ibm")] = {"X-Frame-Options": "DENY"}
        program = self.start()
        window = self.window(program)
        self.link(window, "Custom link 101, empty").click()
        editor = program.application.find(name="Custom Link Properties", role="dialog")
        title = editor.find(role="text", name="Title")
        title.click()
        driver.press("ctrl+a")
        driver.type_text("Three")
        editor.find(role="push button", name="Multi Link").click()

        record = window.find(name="ML")
        driver.wait_for(lambda: not window.find(name="REFRESH").enabled, "the recording to start")
        asked = len(self.server.paths())
        for description in ("Yahoo! Profile Sheet", "Full Yahoo! Quote", "ZACKS Research"):
            self.link(window, description).click()
        driver.screenshot(driver.SCREENSHOTS / "multi_link_recording.png")
        record.click()
        driver.wait_for(lambda: window.find(name="REFRESH").enabled, "the recording to end")
        page = self.folder / "profile" / "Three.mlnk"
        text = driver.wait_for(lambda: page.exists() and page.read_text(), "the page file")
        self.assertEqual(text.count("<IFRAME"), 3)
        self.assertIn("LCASETICK", text)
        # Nothing was loaded meanwhile but what the program asks for by itself.
        self.assertFalse([p for p in self.server.paths()[asked:] if "CASETICK" in p])
        program.ask_to_close()
        self.assertEqual(program.wait_for_end(), 0, program.errors())

        program = self.start()
        window = self.window(program)
        window.find(role="text", name="Ticker entry").click()
        driver.type_text("ibm")
        driver.press("Return")
        item = window.find(role="list item", name="IBM")
        item.click()
        driver.wait_for(lambda: item.selected, "IBM to be selected")
        window.find(name="Three").click()
        for form in (PROFILE, QUOTE, RESEARCH):
            self.server.wait_for_request(path(form, "ibm"))

        # The page that refuses to be framed is seen in a cell of its own, the first.
        refused = f"http://{self.server.host}" + path(PROFILE, "ibm")
        window.find(name="Pages of the multi link")
        self.server.wait_for_request(path(PROFILE, "ibm"), times=2)
        window.find(name=refused, role="label")
        driver.wait_for(lambda: path(PROFILE, "ibm") in program.pages(), "the page in its cell")
        driver.screenshot(driver.SCREENSHOTS / "multi_link_cell.png")

    def test_a_bar_counts_the_pages_and_escape_discards_the_last(self):
        program = self.start()
        window = self.window(program)
        item = window.find(role="list item", name="AOL")
        item.click()
        driver.wait_for(lambda: item.selected, "AOL to be selected")
        window.find(name="ML").click()
        window.find(name="Recording: no page yet. Links that are about a ticker are recorded; "
                         "ML ends.")
        for description in ("Full Yahoo! Quote", "Yahoo! Profile Sheet", "ZACKS Research"):
            self.link(window, description).click()
        window.find(name="Recording: 3 pages. ML ends, Esc discards the last.")
        driver.screenshot(driver.SCREENSHOTS / "multi_link_bar.png", program.window_id())
        driver.press("Escape")
        window.find(name="Recording: 2 pages. ML ends, Esc discards the last.")
        window.find(role="push button", name="End").click()
        for form in (QUOTE, PROFILE):
            self.server.wait_for_request(path(form, "aol"))
        self.assertNotIn(path(RESEARCH, "aol"), self.server.paths())
        driver.wait_for(lambda: not window.find_all(name="End", role="push button"), "no bar")

    def choose_layout(self, program, window, place):
        """Takes the item at that place of the menu, counted from 1, by keys: a menu of a button is
        not in the accessibility tree."""
        before = program.windows()
        window.find(name="Layout").click()
        driver.wait_for(lambda: (program.windows() or set()) - before, "the menu")
        driver.press(*["Down"] * place, "Return")
        driver.wait_for(lambda: program.windows() == before, "the menu to close")

    def test_a_line_of_names_leads_to_the_pages_and_lays_them_out_in_tiles(self):
        for form, color in ((QUOTE, FIRST), (PROFILE, SECOND)):
            self.server.pages[path(form, "ibm")] = f"<title>{form}</title><body style='background:rgb{color}'>"
        page = "".join(
            '<IFRAME height="100%" width="100%" SCROLLING=Yes '
            f'SRC="http://{self.server.host}{form.format(lower="LCASETICK", first="LEFTONE")}">'
            "</IFRAME>\r\n" for form in (QUOTE, PROFILE))
        profile = self.folder / "profile"
        profile.mkdir()
        (profile / "Two.mlnk").write_text(f"<html><body>{page}</body></html>\r\n")
        (profile / "settings.ini").write_text(
            "[Settings]\nFirst=OK\nStocks1=IBM|\nCustom101=MULTILINK:Two.mlnk\nCustomT101=Two\n")
        program = self.start()
        window = self.window(program)
        controls.select(window, "IBM")
        window.find(name="Two").click()
        for form in (QUOTE, PROFILE):
            self.server.wait_for_request(path(form, "ibm"))
        second = window.find(name="Yahoo! Profile Sheet", role="page tab")
        self.assertEqual([tab.name for tab in window.find_all(role="page tab")],
                         ["Full Yahoo! Quote", "Yahoo! Profile Sheet"])
        left, top, width, height = window.find(name="Research page").extents
        middle = left + width // 2, top + height // 2
        driver.wait_for(lambda: driver.pixel(*middle) == FIRST, "the first page")
        second.click()
        driver.wait_for(lambda: driver.pixel(*middle) == SECOND, "the second page")
        driver.screenshot(driver.SCREENSHOTS / "multi_link_names.png", program.window_id())

        self.choose_layout(program, window, 3)
        cells = window.find(name="Pages of the multi link")
        for form in (QUOTE, PROFILE):
            self.server.wait_for_request(path(form, "ibm"), times=2)
        addresses = [f"http://{self.server.host}" + path(form, "ibm") for form in (QUOTE, PROFILE)]
        left, right = (cells.find(role="label", name=address).extents for address in addresses)
        self.assertEqual(left[1], right[1])
        self.assertLess(left[0], right[0])
        driver.screenshot(driver.SCREENSHOTS / "multi_link_tiles.png", program.window_id())
        program.ask_to_close()
        self.assertEqual(program.wait_for_end(), 0, program.errors())
        self.assertIn("CustomC101=2", (profile / "settings.ini").read_text())

        asked = len(self.server.paths())
        program = self.start()
        window = self.window(program)
        controls.select(window, "IBM")
        window.find(name="Two").click()
        cells = window.find(name="Pages of the multi link")
        for address in addresses:
            cells.find(role="label", name=address)
        for form in (QUOTE, PROFILE):
            driver.wait_for(lambda: path(form, "ibm") in self.server.paths()[asked:], form)
        self.choose_layout(program, window, 1)
        driver.wait_for(lambda: not window.find_all(name="Pages of the multi link"), "no tiles")
        # What was held back is asked for now, and only now.
        for form in (QUOTE, PROFILE):
            driver.wait_for(lambda: self.server.paths()[asked:].count(path(form, "ibm")) == 2, form)

    def test_what_is_recorded_without_the_editor_is_shown_at_once(self):
        program = self.start()
        window = self.window(program)
        item = window.find(role="list item", name="AOL")
        item.click()
        driver.wait_for(lambda: item.selected, "AOL to be selected")
        record = window.find(name="ML")
        record.click()
        driver.wait_for(lambda: not window.find(name="REFRESH").enabled, "the recording to start")
        for description in ("Full Yahoo! Quote", "3 small Yahoo! charts"):
            self.link(window, description).click()
        self.assertNotIn(path(QUOTE, "aol"), self.server.paths())
        record.click()
        self.server.wait_for_request(path(QUOTE, "aol"))
        self.server.wait_for_request("/t?s=aol")  # the last of the charts


if __name__ == "__main__":
    driver.main()
