"""How pages are shown, from outside: their size, which belongs to the site and comes back at the next
start, and alone on the whole screen."""

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


if __name__ == "__main__":
    driver.main()
