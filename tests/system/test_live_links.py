"""Live mode from outside: links and stored multi-links lead to today's addresses of the table
of sites, and a row of the user's own counts without a restart."""

import re
import time
import tomllib

import driver

CATALOGUE = driver.ROOT / "tests" / "expected" / "link_addresses.txt"
# The streaming service's lookup is sent on to another page before it is led anywhere.
LOOKUP = 188
# Not opened, but read for the home page of a company.
HOME_PAGE = 28


def catalogue():
    """Index, caption, tooltip, site and address of every link that has an address."""
    row = re.compile(r'(\d+) "(.*?)" "(.*?)" \w* Web\w* (\w+) "(.*)"')
    for line in CATALOGUE.read_text().splitlines():
        match = row.fullmatch(line)
        if match and int(match[1]) != HOME_PAGE:
            index, caption, tooltip, site, address = match.groups()
            yield int(index), caption, tooltip, site, address


def needs_ticker(address):
    return "msft" in address.lower()


class LiveLinks(driver.SystemTest):
    def setUp(self):
        super().setUp()
        self.profile = self.folder / "profile"
        self.profile.mkdir()
        (self.profile / "settings.ini").write_text(
            "[Settings]\nFirst=OK\nFRT=Done\nStocks1=AOL|MSFT|\n")
        # No source of quotes is asked here.
        sources = tomllib.loads((driver.ROOT / "data" / "sources.toml").read_text())["sources"]
        (self.profile / "sources.toml").write_text(
            "".join(f"[sources.{key}]\nenabled = false\n" for key in sources))

    def tables(self):
        """Every site has a folder of its own at the server, every page of today another."""
        rows = list(catalogue())
        hosts = "".join(f'{site} = "{self.server.host}/{site}"\n'
                        for site in sorted({site for _, _, _, site, _ in rows}))
        today = f"http://{self.server.host}/today"
        links = "".join(f'{index} = "{today}/{index}/{{upper}}"\n' for index, *_ in rows)
        return (f'{hosts}[links]\n{links}'
                f'stream_redirect = "{today}/{LOOKUP}/{{upper}}"\nindex_page = "{today}/first"\n'
                f'read_indices = "{today}/strip"\nread_lists = "{today}/lists"\n')

    def start_with_ticker(self, web="live"):
        program = self.start(more_hosts=self.tables(), web=web)
        window = program.main_window()
        driver.place(program.window_id(), 40, 60, 1600, 1000)
        item = window.find(role="list item", name="MSFT")
        item.click()
        driver.wait_for(lambda: item.selected, "MSFT to be selected")
        return program, window

    def chips(self, window):
        """The links by caption and tooltip."""
        return {(chip.name.strip(), chip.description): chip for chip in window.walk()}

    def test_every_ticker_link_leads_to_todays_address(self):
        _, window = self.start_with_ticker()
        chips = self.chips(window)
        clicked = 0
        for index, caption, tooltip, _, address in catalogue():
            if not needs_ticker(address):
                continue
            chips[caption.strip(), tooltip].click()
            self.server.wait_for_request(f"/today/{index}/MSFT")
            clicked += 1
        self.assertGreater(clicked, 60)
        # Nothing was asked at the old places.
        self.assertEqual({path.split("/")[1] for path in self.server.paths()}
                         - {"favicon.ico"}, {"today"})

    def test_a_row_of_the_users_own_counts_without_a_restart(self):
        program, window = self.start_with_ticker()
        zacks = self.chips(window)["Zacks", "ZACKS Research"]
        zacks.click()
        self.server.wait_for_request("/today/15/MSFT")

        def rows(path):
            return f'# mine\n[links]\n15 = "http://{self.server.host}/{path}/{{lower}}"\n'

        def leads_to(path):
            """Whether a click leads there by now."""
            zacks.click()
            deadline = time.monotonic() + 2
            while time.monotonic() < deadline:
                if path in self.server.paths():
                    return True
                time.sleep(0.05)
            return False
        own = self.profile / "sites.toml"
        own.write_text(rows("own"))
        driver.wait_for(lambda: leads_to("/own/msft"), "the user's row to count")
        # As editors do it: a new file in place of the old one.
        new = self.profile / "sites.toml~"
        new.write_text(rows("replaced"))
        new.rename(own)
        driver.wait_for(lambda: leads_to("/replaced/msft"), "the replaced file to count")
        # A row that is wrong is reported and costs nothing but itself.
        own.write_text('[links]\n3 = "nowhere"\n' + rows("third").partition("[links]\n")[2])
        problem = 'sites.toml:2: "3" is no http or https address'
        driver.wait_for(lambda: problem in program.errors(), "the report of the wrong row")
        driver.wait_for(lambda: leads_to("/third/msft"), "the good row to count")
        own.unlink()
        before = self.server.count("/today/15/MSFT")
        driver.wait_for(lambda: leads_to("/today/15/MSFT") and
                        self.server.count("/today/15/MSFT") > before, "the shipped row to count")

    def test_a_multi_link_recorded_in_another_mode_leads_to_todays_addresses(self):
        program, window = self.start_with_ticker(web="direct")
        self.chips(window)["< Custom >", "Custom link 101, empty"].click()
        editor = program.application.find(name="Custom Link Properties", role="dialog")
        editor.find(role="text", name="Title").click()
        driver.press("ctrl+a")
        driver.type_text("Both")
        editor.find(role="push button", name="Multi Link").click()
        driver.wait_for(lambda: not window.find(name="REFRESH").enabled, "the recording to start")
        chips = self.chips(window)
        chips["Y!", "Full Yahoo! Quote"].click()
        chips["Zacks", "ZACKS Research"].click()
        window.find(name="ML").click()
        page = self.profile / "Both.mlnk"
        text = driver.wait_for(lambda: page.exists() and page.read_text(), "the page file")
        self.assertIn(f"{self.server.host}/quote/q?s=LCASETICK", text)
        self.assertNotIn("/today/", text)
        program.ask_to_close()
        self.assertEqual(program.wait_for_end(), 0, program.errors())

        program, window = self.start_with_ticker()
        asked = len(self.server.paths())
        window.find(name="Both").click()
        self.server.wait_for_request("/today/3/MSFT")
        self.server.wait_for_request("/today/15/MSFT")
        self.assertEqual([path for path in self.server.paths()[asked:]
                          if not path.startswith(("/today/", "/favicon.ico"))], [])

    def test_the_window_of_sites_finds_edits_and_tries_a_row(self):
        program, _ = self.start_with_ticker()
        driver.xdotool("windowactivate", "--sync", program.window_id())
        driver.press("alt+o")
        driver.press("i")
        sites = program.application.find(name="Sites", role="dialog")
        find = sites.find(role="text", name="Find")
        driver.wait_for(lambda: find.focused, "the focus in the entry box")
        driver.type_text("zacks research")
        sites.find(name=f"http://{self.server.host}/today/15/MSFT")
        address = sites.find(role="text", name="Leads today to")
        address.click()
        driver.press("ctrl+a")
        driver.type_text("ftp://nowhere")
        driver.press("Return")
        sites.find(name='"ftp://nowhere" is no http or https address')
        driver.press("ctrl+a")
        driver.type_text(f"http://{self.server.host}/edited/{{first}}")
        driver.press("Return")
        own = self.profile / "sites.toml"
        self.assertEqual(
            driver.wait_for(lambda: own.exists() and own.read_text(), "the user's file"),
            f'[links]\n15 = "http://{self.server.host}/edited/{{first}}"\n')
        sites.find(role="push button", name="Try").click()
        self.server.wait_for_request("/edited/m")
        driver.screenshot(driver.SCREENSHOTS / "sites.png")


if __name__ == "__main__":
    driver.main()
