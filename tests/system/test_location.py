"""Where a pane is, from outside: behind a redirect, and on a page that wants a password."""

import driver


class Location(driver.SystemTest):
    def setUp(self):
        super().setUp()
        self.program = self.start()
        self.window = self.program.main_window()
        driver.place(self.program.window_id(), 40, 60, 1600, 1000)
        self.window.find(role="list item", name="MSFT").click()

    def wait_for_place(self, *parts):
        def lines():
            return [line.description for line in self.window.find_all(name="Where the page is")
                    if line.showing]
        driver.wait_for(lambda: any(all(part in line for part in parts) for line in lines()),
                        f"a line with {parts}: {lines()}")

    def test_a_pane_says_where_a_redirect_has_led_it_and_what_was_built(self):
        def lead_on(_):
            return "text/html", "", 302
        self.server.services["/q"] = lead_on
        self.server.headers["/q?s=msft&d=2b"] = {"Location": "/somewhere/else"}
        self.window.find(name="Y!").click()
        self.wait_for_place("Not encrypted", f"http://{self.server.host}/somewhere/else",
                            f"stands for http://{self.server.host}/q?s=msft&d=2b")

    def test_a_form_for_a_password_says_that_others_can_read_it(self):
        self.server.pages["/q?s=msft&d=2b"] = "<form><input type=password></form>"
        self.window.find(name="Y!").click()
        self.wait_for_place("others can read a password that is typed here")


if __name__ == "__main__":
    driver.main()
