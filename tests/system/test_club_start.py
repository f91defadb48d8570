"""The start of a club member from outside: a club that says nothing holds nobody up."""

import threading

import driver


class ClubStart(driver.SystemTest):
    def test_the_window_is_there_and_alive_while_the_club_says_nothing(self):
        ended = threading.Event()
        self.addCleanup(ended.set)
        self.server.services["/members/"] = lambda path: ended.wait(120) and None
        self.server.pages["/mine"] = "<html><title>mine</title><body>mine</body></html>"
        profile = self.folder / "profile"
        profile.mkdir(mode=0o700)
        (profile / "settings.ini").write_text(
            f"[Settings]\nFirst=OK\nSAVersion=True\nStocks1=MSFT|\n"
            f"DefaultWeb=Ahttp://{self.server.host}/mine\n")
        program = self.start()
        window = program.main_window()
        tickers = window.find(role="list", name="Ticker list")
        self.server.wait_for_request("/members/")
        # The window takes a ticker while the club's page is waited for.
        window.find(role="text", name="Ticker entry").click()
        driver.type_text("ibm")
        driver.press("Return")
        tickers.find(role="list item", name="IBM")
        driver.screenshot(driver.SCREENSHOTS / "club_start.png")
        # The start page comes by itself, long before the club could have timed out.
        self.server.wait_for_request("/mine", seconds=20)
        driver.wait_for(lambda: program.pages() == ["mine"], "the start page")
        self.assertFalse(ended.is_set())
        asked = [path.partition("?")[0] for _, path in self.server.requests]
        self.assertLess(asked.index(next(path for path in asked if path.startswith("/members/"))),
                        asked.index("/mine"))
        self.server.wait_for_request("/newsites.html", seconds=30)


if __name__ == "__main__":
    driver.main()
