"""The start from outside: the window takes typing while the first page is still on its way."""

import threading

import driver


class Start(driver.SystemTest):
    def test_what_is_typed_into_the_new_window_is_not_lost(self):
        release = threading.Event()
        self.addCleanup(release.set)
        self.server.held["/slow"] = release
        profile = self.folder / "profile"
        profile.mkdir()
        (profile / "settings.ini").write_text(
            f"[Settings]\nFirst=OK\nStocks1=MSFT|\nDefaultWeb=Ahttp://{self.server.host}/slow\n")
        program = self.start()
        # Nothing is waited for but the keys, which are the window's as soon as it is there.
        driver.wait_for(lambda: driver.ask_xdotool("getwindowpid", driver.active_window())
                        == str(program.process.pid), "the window to have the keys")
        driver.type_text("brk.b")
        entry = program.main_window().find(name="Ticker entry")
        driver.wait_for(lambda: entry.text.lower() == "brk.b", "what was typed")
        self.server.wait_for_request("/slow")
        driver.press("Return")
        driver.wait_for(lambda: "BRK.B" in (profile / "settings.ini").read_text().upper(),
                        "the ticker in its portfolio")


if __name__ == "__main__":
    driver.main()
