"""A multi-link from outside: recorded from the editor, closed, restarted, opened for another ticker;
one of its pages refuses to be framed."""

import driver

# What the three links ask for, with the ticker in lower and in upper case.
QUOTE = "/q?s={lower}&d=2b"
PROFILE = "/p/{first}/{lower}.html"
RESEARCH = "/cgi-bin/AW/DoInquiry.zcom?ticker={upper}&type=100"


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
