"""How pages are shown, from outside: their size, which belongs to the site and comes back at the next
start, alone on the whole screen, as their source; and the search of their text."""

import driver


# A page that says in its title how large it is shown.
SCALED = ("<title></title><script>function tell() "
          "{{ document.title = '{name} ' + Math.round(devicePixelRatio * 100); }}"
          " onresize = tell; tell()</script>")


class PageView(driver.SystemTest):
    def open(self):
        profile = self.folder / "profile"
        if not profile.exists():
            profile.mkdir()
            (profile / "settings.ini").write_text(
                "[Settings]\nFirst=OK\nStocks1=MSFT|\nTips=False\n"
                f"DefaultWeb=A{self.server.host}/first\n")
        self.program = self.start()
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, 1280, 900)

    def setUp(self):
        super().setUp()
        other = self.server.host.replace("127.0.0.1", "localhost")
        self.server.pages["/first"] = (
            SCALED.format(name="first") + "<body style='margin:0'>"
            f"<a href='http://{other}/other' style='display:block;height:150px'>elsewhere</a>")
        self.server.pages["/other"] = SCALED.format(name="other")

    def wait_for_page(self, title):
        driver.wait_for(lambda: self.program.pages() == [title],
                        f"the page {title}, not {self.program.pages()}")

    def click_page(self):
        left, top, _, _ = self.window.find(name="Research page").extents
        driver.move_pointer(left + 40, top + 60)
        driver.xdotool("click", 1)

    def test_the_size_of_a_page_belongs_to_its_site(self):
        self.open()
        self.wait_for_page("first 100")
        driver.press("ctrl+plus")
        self.wait_for_page("first 110")
        self.click_page()
        self.wait_for_page("other 100")
        driver.press("ctrl+minus", "ctrl+minus")
        self.wait_for_page("other 83")
        driver.press("alt+Left")
        self.wait_for_page("first 110")
        self.program.ask_to_close()
        self.assertEqual(self.program.wait_for_end(), 0, self.program.errors())
        self.open()
        self.wait_for_page("first 110")
        driver.xdotool("keydown", "ctrl")
        left, top, _, _ = self.window.find(name="Research page").extents
        driver.move_pointer(left + 40, top + 60)
        driver.xdotool("click", 4)
        driver.xdotool("keyup", "ctrl")
        self.wait_for_page("first 121")
        driver.press("ctrl+0")
        self.wait_for_page("first 100")
        self.program.ask_to_close()
        self.assertEqual(self.program.wait_for_end(), 0, self.program.errors())
        kept = (self.folder / "profile" / "settings.ini").read_text()
        self.assertIn("localhost 83|", kept)
        self.assertNotIn("127.0.0.1 ", kept)

    def seen(self):
        """The controls in the window and where they stand."""
        return sorted((widget.role, widget.name, widget.extents) for widget in self.window.walk()
                      if widget.name and widget.role != "label")

    def wait_for_full_screen(self, isFull):
        size = (1920, 1200) if isFull else (1280, 900)
        driver.wait_for(lambda: driver.geometry(self.program.window_id())[2:] == size,
                        f"the window to have the size {size}")

    def test_the_page_alone_fills_the_screen_and_all_comes_back(self):
        self.open()
        self.wait_for_page("first 100")
        driver.press("ctrl+t")
        before = self.seen()
        self.assertTrue(self.window.find_all(name="Ticker entry"))
        driver.press("F11")
        self.wait_for_full_screen(True)
        driver.wait_for(lambda: self.window.find(name="Research page").extents
                        == (0, 0, 1920, 1200), "the page to fill the screen")
        self.window.find(name="Full screen: F11 or Esc goes back.")
        for name in ("Ticker entry", "Ticker list", "Left panel", "Top link bar", "Portfolio"):
            self.assertEqual(self.window.find_all(name=name), [], name)
        driver.screenshot(driver.SCREENSHOTS / "full_screen.png")
        driver.press("Escape")
        self.wait_for_full_screen(False)
        driver.wait_for(lambda: self.seen() == before, "the layout of before")
        driver.press("F11")
        self.wait_for_full_screen(True)
        driver.press("F11")
        self.wait_for_full_screen(False)
        driver.wait_for(lambda: self.seen() == before, "the layout of before")

    def test_a_page_fills_the_screen_and_escape_takes_it_back(self):
        self.server.pages["/first"] = (
            "<title>asking</title><body style='margin:0;background:#123;color:#fff;height:600px'>"
            "click me<script>document.onclick = () => document.documentElement.requestFullscreen();"
            "onkeydown = event => event.preventDefault();"
            "document.onfullscreenchange = () => document.title ="
            " document.fullscreenElement ? 'filling' : 'small'</script>")
        self.open()
        self.wait_for_page("asking")
        before = self.seen()
        self.click_page()
        self.wait_for_full_screen(True)
        self.wait_for_page("filling")
        words = "127.0.0.1 fills the screen: F11 or Esc goes back."
        self.window.find(name=words)
        driver.screenshot(driver.SCREENSHOTS / "page_fills_screen.png")
        driver.wait_for(lambda: not self.window.find_all(name=words), "the hint to go by itself")
        driver.move_pointer(700, 700)
        self.window.find(name=words)
        self.window.find(name="Leave Full Screen").click()
        self.wait_for_full_screen(False)
        self.wait_for_page("small")
        self.click_page()
        self.wait_for_page("filling")
        self.wait_for_full_screen(True)
        driver.press("Escape")
        self.wait_for_full_screen(False)
        self.wait_for_page("small")
        self.assertEqual([entry for entry in self.seen() if entry[0] != "document web"],
                         [entry for entry in before if entry[0] != "document web"])

    def find_bar(self):
        return self.window.find(role="text", name="Find in page")

    def wait_for_matches(self, text):
        self.window.find(name=text)

    def test_the_source_is_shown_in_a_tab_and_searched(self):
        self.server.pages["/first"] = ("<title>first</title><p>gold &amp; oil</p>"
                                       "<script>document.title = 'run'</script>")
        self.open()
        self.wait_for_page("run")
        self.click_page()
        driver.press("ctrl+u")
        title = f"Source of http://{self.server.host}/first"
        self.wait_for_page(title)
        driver.wait_for(lambda: "<p>gold &amp; oil</p>" in self.program.page_texts()[0],
                        "the source as text")
        self.assertIn("<script>document.title = 'run'</script>", self.program.page_texts()[0])
        driver.press("ctrl+f")
        driver.wait_for(lambda: self.find_bar().focused, "the find bar")
        driver.type_text("gold")
        self.wait_for_matches("1 of 1")
        driver.screenshot(driver.SCREENSHOTS / "source.png")
        driver.press("Escape")
        driver.press("ctrl+w")
        self.wait_for_page("run")

    def test_find_keeps_its_text(self):
        self.server.pages["/first"] = "<title>first</title>gold silver gold oil gold"
        self.open()
        self.wait_for_page("first")
        driver.press("F3")  # there is no text yet
        driver.wait_for(lambda: self.find_bar().focused, "the find bar")
        driver.type_text("gold")
        self.wait_for_matches("1 of 3")
        driver.press("Escape")
        driver.wait_for(lambda: not self.window.find_all(role="text", name="Find in page"),
                        "the find bar to close")
        driver.press("F3", "F3")
        driver.press("ctrl+f")
        driver.wait_for(lambda: self.find_bar().focused, "the find bar")
        self.assertEqual(self.find_bar().text, "gold")
        driver.press("shift+F3")
        self.wait_for_matches("2 of 3")
        driver.press("ctrl+f")
        driver.type_text("oil")
        driver.wait_for(lambda: self.find_bar().text == "oil", "the text to be typed over")
        self.wait_for_matches("1 of 1")
        driver.screenshot(driver.SCREENSHOTS / "find_again.png")
        self.click_page()
        driver.press("ctrl+u")
        driver.wait_for(lambda: self.program.pages()[0].startswith("Source of"), "the source")
        driver.press("F3")
        driver.press("ctrl+f")
        driver.wait_for(lambda: self.find_bar().focused, "the find bar")
        self.assertEqual(self.find_bar().text, "oil")


if __name__ == "__main__":
    driver.main()
