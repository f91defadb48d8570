"""How pages are shown, from outside: their size, which belongs to the site and comes back at the next
start."""

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


if __name__ == "__main__":
    driver.main()
