"""Tabs from outside: further panes open by the middle button and by Ctrl, walk and close by key, and
come back at the next start when that is wanted."""

import driver


class Tabs(driver.SystemTest):
    FIRST = "/first"
    QUOTE = "/q?s=msft&d=2b"

    def open(self, more=""):
        profile = self.folder / "profile"
        profile.mkdir(exist_ok=True)
        if more is not None:
            (profile / "settings.ini").write_text(
                f"[Settings]\nFirst=OK\nStocks1=MSFT|\nTips=False\n"
                f"DefaultWeb=A{self.server.host}{self.FIRST}\n{more}")
        self.program = self.start()
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, 1280, 900)
        self.wait_for_page(self.FIRST)

    def setUp(self):
        super().setUp()
        self.server.pages[self.FIRST] = (
            f"<title>{self.FIRST}</title><body style='margin:0'>"
            "<a href='/linked' style='display:block;height:200px'>in a tab</a>"
            "<a href='/blank' target=_blank style='display:block;height:200px'>in a window</a>")

    def wait_for_page(self, page):
        driver.wait_for(lambda: self.program.pages() == [page], f"the page {page}")

    def tabs(self):
        return [tab.name for tab in self.window.find_all(role="page tab")]

    def wait_for_tabs(self, *names):
        driver.wait_for(lambda: self.tabs() == list(names), f"the tabs {names}, not {self.tabs()}")

    def select(self):
        item = self.window.find(role="list item", name="MSFT")
        item.click()
        driver.wait_for(lambda: item.selected, "MSFT to be selected")

    def click_page(self, down, key=None):
        """Clicks the page in view so far below its top, with a key held."""
        left, top, _, _ = self.window.find(name="Research page").extents
        driver.move_pointer(left + 40, top + down)
        if key:
            driver.xdotool("keydown", key)
        driver.xdotool("click", 1)
        if key:
            driver.xdotool("keyup", key)

    def test_labels_and_links_open_tabs_and_keys_walk_and_close(self):
        self.open()
        self.assertEqual(self.tabs(), [])
        self.select()
        self.window.find(name="Y!").click(button=2)
        self.wait_for_tabs(self.FIRST, self.QUOTE)
        self.wait_for_page(self.FIRST)
        driver.screenshot(driver.SCREENSHOTS / "tabs.png")
        self.click_page(100, "ctrl")
        self.wait_for_tabs(self.FIRST, self.QUOTE, "/linked")
        self.click_page(300)
        self.wait_for_page("/blank")
        self.wait_for_tabs(self.FIRST, self.QUOTE, "/linked", "/blank")
        driver.press("ctrl+Tab")
        self.wait_for_page(self.FIRST)
        driver.press("ctrl+Tab")
        self.wait_for_page(self.QUOTE)
        driver.press("ctrl+shift+Tab")
        self.wait_for_page(self.FIRST)
        driver.press("ctrl+shift+Tab")
        self.wait_for_page("/blank")
        driver.press("ctrl+w")
        self.wait_for_tabs(self.FIRST, self.QUOTE, "/linked")
        driver.press("ctrl+w")
        self.wait_for_tabs(self.FIRST, self.QUOTE)
        driver.press("ctrl+w")
        driver.wait_for(lambda: self.tabs() == [], "the row to go")
        self.wait_for_page(self.FIRST)
        driver.press("ctrl+w")
        self.window.find(name="This page stays; only further tabs are closed")

    def test_an_item_of_a_menu_opens_in_a_tab(self):
        self.open()
        for key, more in (("ctrl", 1), ("shift", 2)):
            self.window.find(name="Calendar").click()
            driver.wait_for(lambda: len(self.program.windows() or ()) == 2, "the menu")
            # It opens at the pointer.
            driver.xdotool("mousemove_relative", 30, 12)
            driver.xdotool("keydown", key)
            driver.xdotool("click", 1 if key == "ctrl" else 2)
            driver.xdotool("keyup", key)
            driver.wait_for(lambda: len(self.tabs()) == 1 + more, f"{more} further tabs")
        self.assertEqual(self.tabs()[0], self.FIRST)
        self.assertEqual(self.tabs()[1], self.tabs()[2])

    def test_a_plain_click_goes_to_the_research_page(self):
        self.open()
        self.select()
        self.window.find(name="Y!").click(button=2)
        driver.press("ctrl+Tab")
        self.wait_for_page(self.QUOTE)
        self.window.find(name="Zacks").click()
        driver.wait_for(lambda: self.program.pages()[0].startswith("/cgi-bin/AW/"), "the page")
        self.assertEqual(len(self.tabs()), 2)

    def test_pages_come_back_when_that_is_wanted(self):
        self.open("KeepPages=True\n")
        self.select()
        self.window.find(name="Y!").click(button=2)
        self.wait_for_tabs(self.FIRST, self.QUOTE)
        self.program.ask_to_close()
        self.assertEqual(self.program.wait_for_end(), 0, self.program.errors())
        asked = self.server.count(self.QUOTE)
        self.open(more=None)
        self.wait_for_tabs(self.FIRST, self.QUOTE)
        self.assertEqual(self.server.count(self.QUOTE), asked)  # not before it is shown
        driver.press("ctrl+Tab")
        self.wait_for_page(self.QUOTE)


if __name__ == "__main__":
    driver.main()
