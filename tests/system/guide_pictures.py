#!/usr/bin/env python3
"""Takes the pictures of the user guide: guide_pictures.py PROGRAM FOLDER
The program runs in sample mode on a profile of its own.
"""

import re
import subprocess
import sys
import tempfile
import threading
import time
import zipfile
from pathlib import Path

import controls
import driver
from web_server import Server

TITLE = 20  # pixels that the window manager's title takes above a dialog
NOTE_LINE = "Cloud growth slows? Read the next report\u2026"
NOTES = "||MSFT||Cloud growth slows? Read the next report.\r\nIt comes in January.|||||\r\n"
REMINDERS = "||12-01-2026||MSFT goes ex dividend|||||\r\n||12-15-2026||Look at the stops|||||\r\n"
SETTINGS = """[Settings]
First=OK
Stocks1=AOL|YHOO|MSFT|IBM|
PortName1=Tech
Stocks2=GE|KO|
Tips=False
NAV1=www.zacks.com
CustomT101=My chart
Custom101=http://www.example.com/chart?s=LCASETICK
CustomF101=16777215
CustomB101=8388736
"""


# The first of them has fired.
ALERTS = "1795000001 above 30 AOL\n1795000002 below 100 MSFT\n1795000003 change 25 IBM\n"
ALERT_LOG = ("1795190400\t1795000001\tabove\t30\tAOL\t31.25\t2.1\t1795190340\t"
             "Nov 20, 2026 10:59 AM ET, SAMPLE DATA\n")


class Pictures:
    def __init__(self, program, folder, profile):
        self.program = program
        self.folder = folder
        self.profile = profile
        self.window = program.main_window()

    def size(self, width, height):
        driver.place(self.program.window_id(), 60, 60, width, height)
        driver.wait_for(lambda: self.window.extents[2:] == (width, height), "the new size")

    def take(self, name, left, top, width, height):
        """A picture of a part of the display in few colours. Carets never rest, so that there is
        nothing to wait for but a while."""
        part = f"{width}x{height}+{left}+{top}"
        path = self.folder / f"{name}.png"
        time.sleep(1.5)
        driver.screenshot(path)
        subprocess.run(["convert", str(path), "-crop", part, "+repage", "-strip", "+dither",
                        "-colors", "96", "png8:" + str(path)], check=True)
        print(name, path.stat().st_size)

    def take_widget(self, name, widget, above=0, around=0):
        left, top, width, height = widget.extents
        self.take(name, left - around, top - above - around, width + 2 * around,
                  height + above + 2 * around)

    def dialog(self, name):
        dialog = self.program.application.find(role="dialog", name=name)
        driver.wait_for(lambda: dialog.extents[2] > 50, "the dialog's size")
        return dialog

    def take_dialog(self, name, dialog):
        driver.move_pointer(5, 5)
        left, top, width, height = dialog.extents
        self.take(name, left - 2, top - TITLE - 2, width + 4, height + TITLE + 4)

    def close(self, dialog, *keys):
        driver.press(*(keys or ("Escape",)))
        driver.wait_for(lambda: not self.program.application.find_all(role="dialog"),
                        "all dialogs to close")

    def press(self, keys):
        """Keys for the main window."""
        driver.xdotool("windowactivate", "--sync", self.program.window_id())
        driver.press(keys)

    def title(self, *titles):
        driver.wait_for(lambda: self.program.pages() and
                        all(page.startswith(titles) for page in self.program.pages()),
                        f"the page {titles}, not {self.program.pages()}")

    def link(self, description):
        return driver.wait_for(
            lambda: next((c for c in self.window.walk() if c.description == description), None),
            f"a link described as {description!r}")

    def run(self):
        self.size(1080, 760)
        controls.select(self.window, "MSFT")
        self.window.find(name="Y!").click()
        self.title("Y! - ")
        driver.move_pointer(700, 600)
        self.take_widget("main", self.window)

        # The portfolio's corner, with the menu of a ticker.
        self.window.find(role="list item", name="MSFT").click(button=3)
        left, top, _, _ = self.window.extents
        self.take("ticker-menu", left, top + 50, 420, 330)
        driver.press("Escape")

        self.commands()
        self.panels()
        self.prices()
        self.names()
        self.table()
        self.tabs()

        self.window.find(name="Calendar").click()
        self.take("site-menu", left + 160, top + 20, 560, 330)
        driver.press("Escape")

        self.program_find()
        self.finder()
        self.dialogs()
        self.files()
        self.generated()
        self.strip()

    def commands(self):
        """What the user enters, and what is said of it."""
        left, top, _, height = self.window.extents
        controls.select(self.window, "IBM")
        driver.press("Delete")
        self.window.find(role="push button", name="Undo")
        driver.move_pointer(left + 700, top + 600)
        self.take("undo", left, top + 20, 420, 330)
        driver.press("ctrl+z")
        driver.wait_for(lambda: self.window.find_all(role="list item", name="IBM"), "the ticker")

        controls.select(self.window, "MSFT")
        menu = self.window.find(role="menu bar")
        for caption in ("Ticker", "Notes on MSFT", NOTE_LINE):
            menu = menu.find(name=caption)
            menu.click()
        dialog = self.dialog("Ticker Notes")
        self.take_dialog("note", dialog)
        dialog.find(name="OK").click()
        driver.wait_for(lambda: not dialog.showing, "the box to close")

        self.window.find(name="Ticker entry").click()
        driver.type_text("amd; msft")
        driver.press("Return")
        self.window.find(name="AMD added; MSFT is in the list already.")
        self.take("entry", left, top + height - 130, 640, 90)
        driver.press("ctrl+a", "Delete")
        controls.select(self.window, "MSFT")
        driver.press("ctrl+z")
        driver.wait_for(lambda: not self.window.find_all(role="list item", name="AMD"),
                        "the ticker to go")

    def panels(self):
        """The left panel, and the menu that sets the size of texts."""
        left, top, _, _ = self.window.extents
        menu = self.window.find(role="menu bar")
        for caption in ("View", "Text Size"):
            menu = menu.find(name=caption)
            menu.click()
        self.take("panels", left, top, 470, 560)
        driver.press("Escape", "Escape", "Escape")

    def prices(self):
        """The ticker list with all its columns, in a wider panel."""
        left, top, _, _ = self.window.extents
        grip = self.window.find(name="Edge of the left panel")
        x, y, width, height = grip.extents

        def drag(start, end):
            driver.move_pointer(start, y + height // 2)
            driver.xdotool("mousedown", 1)
            driver.move_pointer(end, y + height // 2)
            driver.xdotool("mouseup", 1)
        drag(x + width // 2, left + 420)
        driver.move_pointer(left + 700, top + 600)
        self.take("list", left, top + 20, 440, 250)
        drag(left + 420, x + width // 2)

    def names(self):
        """What is offered below the entry box for a name."""
        left, top, _, _ = self.window.extents
        self.window.find(name="Ticker entry").click()
        driver.type_text("micro")
        driver.wait_for(lambda: self.window.find_all(role="list", name="Tickers by Name"), "the names")
        driver.press("Down")
        self.take("names", left, top + 20, 300, 200)
        driver.press("Escape", "ctrl+a", "Delete")

    def table(self):
        """The portfolio as a table, sorted by the change in percent."""
        self.press("F9")
        frame = self.program.application.find(name=re.compile("^Portfolio Table"))
        table = frame.find(name="Tickers", role="table")
        driver.wait_for(lambda: frame.extents[2] > 50, "the table's size")
        identity = driver.xdotool("search", "--name", "^Portfolio Table").split()[0]
        driver.place(identity, 100, 100, 1240, 260)
        driver.wait_for(lambda: frame.extents[2] == 1240, "the table's new size")
        for _ in range(2):
            table.find(role="table column header", name="%").click()
        driver.move_pointer(5, 5)
        self.take_widget("table", frame, above=TITLE, around=2)
        driver.press("ctrl+w")
        driver.wait_for(lambda: not frame.showing, "the table to close")

    def tabs(self):
        left, top, width, _ = self.window.extents
        for description in ("ZACKS Research", "Yahoo! News Page"):
            self.link(description).click(button=2)
        driver.wait_for(lambda: len(self.window.find_all(role="page tab")) == 3 and
                        not self.window.find_all(role="page tab", name=""), "the tabs")
        pane = self.window.find(name="Research page")
        driver.move_pointer(left + 700, top + 600)
        left, top, width, _ = pane.extents
        self.take("tabs", left, top - 40, width, 240)
        for left in (2, 0):
            self.window.find_all(role="page tab")[-1].click(button=2)
            driver.wait_for(lambda: len(self.window.find_all(role="page tab")) == left,
                            f"{left} tabs")

    def program_find(self):
        self.press("ctrl+f")
        driver.type_text("volume")
        left, top, width, height = self.window.extents
        self.take("find", left + 215, top + height - 470, 640, 420)
        driver.press("Escape")

    def finder(self):
        self.press("ctrl+k")
        box = self.window.find(name="Find anything", role="text")
        driver.wait_for(lambda: box.focused, "the focus on the line")
        driver.type_text("msft zacks")
        driver.wait_for(lambda: any(row.name == "Link: MSFT: Zacks - ZACKS Research"
                                    for row in self.window.find_all(role="list item")), "the link")
        self.take_widget("finder", self.window.find(name="Find Anything"), around=6)
        driver.press("Escape")
        driver.wait_for(lambda: not box.showing, "the box to close")

    def dialogs(self):
        self.press("ctrl+shift+l")
        dialog = self.dialog("Smart Navigate - Enter a URL or Site Name")
        driver.type_text("zacks")
        left, top, width, height = dialog.extents
        self.take("navigate", left - 2, top - TITLE - 2, width + 4, height + TITLE + 16)
        driver.press("Escape")
        if dialog.showing:
            driver.press("Escape")
        driver.wait_for(lambda: not dialog.showing, "the dialog to close")

        self.press("ctrl+comma")
        dialog = self.dialog("Browser Setup & Help")
        self.take_dialog("setup", dialog)
        dialog.find(name="Set Colors").click()
        colors = self.dialog("Color Settings")
        colors.find(role="list item", name="Charting/Quotes").click()
        self.take_dialog("colors", colors)
        self.close(colors, "Return")

        self.press("ctrl+shift+e")
        dialog = self.dialog("Daily Reminders")
        self.take_dialog("reminders", dialog)
        self.close(dialog)

        self.alerts()

        self.link("Custom link 102, empty").click()
        dialog = self.dialog("Custom Link Properties")
        driver.type_text("Quote")
        dialog.find(name="Current Page").click()
        dialog.find(name="Use for every ticker")
        self.take_dialog("editor", dialog)
        self.close(dialog)

        self.press("ctrl+i")
        dialog = self.dialog("Ticker Scan")
        self.take_dialog("scan", dialog)
        self.close(dialog)

        self.press("ctrl+shift+w")
        watch = self.program.application.find(name="MSFT - Watch Wizard")
        driver.wait_for(lambda: watch.extents[2] > 50, "the watch window's size")
        identity = driver.xdotool("search", "--name", "^MSFT - Watch Wizard$").split()[0]
        driver.place(identity, 200, 200, 640, 420)
        driver.wait_for(lambda: watch.extents[2] == 640, "the watch window's size")
        self.take_widget("watch", watch, above=TITLE, around=2)
        driver.press("ctrl+w")
        driver.wait_for(lambda: not watch.showing, "the watch window to close")

        menu = self.window.find(role="menu bar").find(name="Tools")
        menu.click()
        menu.find(name="Sites...").click()
        dialog = self.dialog("Sites")
        self.take_dialog("sites", dialog)
        self.close(dialog)

        menu = self.window.find(role="menu bar").find(name="Page")
        menu.click()
        menu.find(name="Print Preview...").click()
        dialog = self.dialog("Print Preview")
        dialog.find(role="label", name=re.compile(r"\d pages?$"))
        self.take_dialog("print", dialog)
        self.close(dialog)

        menu = self.window.find(role="menu bar").find(name="Help")
        menu.click()
        menu.find(name="Keyboard Shortcuts...").click()
        dialog = self.dialog("Keyboard Shortcuts")
        self.take_dialog("shortcuts", dialog)
        self.close(dialog)

    def alerts(self):
        """Written now, so that the list of tickers has no flags in the other pictures."""
        alerts = Path(self.profile, "alerts.txt")
        alerts.write_text(ALERTS)
        self.press("ctrl+shift+a")
        dialog = self.dialog("Alerts")
        self.take_dialog("alerts", dialog)
        self.close(dialog)
        alerts.unlink()

    def files(self):
        """What goes out to files and comes in from them."""
        with tempfile.TemporaryDirectory(prefix="files-") as place:
            backup = Path(place, "tallowmere-2026-11-21.zip")
            with zipfile.ZipFile(backup, "w") as archive:
                archive.writestr("settings.ini", "[Settings]\nStocks1=AOL|YHOO|MSFT|\n"
                                 "PortName1=Tech\nStocks3=SAP|\nTips=False\n")
                archive.writestr("TickNotes.txt", NOTES.replace("slows", "grows") +
                                 "||SAP||Ask about the cloud.|||||\r\n")
            controls.choose(self.window, "Tools", "Restore...")
            controls.name_file(self.program, "Restore", backup)
            dialog = self.dialog("Restore")
            driver.press("Right")
            self.take_dialog("restore", dialog)
            self.close(dialog)
            table = Path(place, "watch list.csv")
            table.write_text("Name;Ticker Symbol;Note\nSAP;SAP;Ask about the cloud.\n"
                             "Microsoft;MSFT;\nGeneral Electric;GE;\n")
            controls.choose(self.window, "Portfolio", "Import CSV...")
            controls.name_file(self.program, "Import CSV", table)
            dialog = self.dialog("Import CSV")
            self.take_dialog("csv", dialog)
            self.close(dialog)

    def generated(self):
        pane = self.window.find(name="Research page")
        self.press("ctrl+shift+r")
        driver.wait_for(lambda: self.program.pages() and "MSFT" not in self.program.pages()[0],
                        "the report")
        driver.move_pointer(900, 700)
        self.take_widget("report", pane)

        self.window.find(name="ML").click()
        for description in ("Full Yahoo! Quote", "ZACKS Research"):
            self.link(description).click()
        self.window.find(name="ML").click()
        driver.wait_for(lambda: self.window.find(name="REFRESH").enabled, "the recording to end")
        self.take_widget("multi-link", pane)

        before = self.program.windows()
        self.window.find(name="Layout").click()
        driver.wait_for(lambda: (self.program.windows() or set()) - before, "the menu")
        driver.press("Down", "Down", "Down", "Return")
        self.window.find(name="Pages of the multi link")
        self.take_widget("tiles", pane)

    def strip(self):
        self.press("ctrl+comma")
        dialog = self.dialog("Browser Setup & Help")
        check = dialog.find(role="check box", name="Ticker")
        left, top, _, height = check.extents
        driver.move_pointer(left + 8, top + height // 2)
        driver.xdotool("click", 1)
        self.close(dialog, "Return")
        # It rests under the pointer, and so can be pictured.
        left, top, width, _ = self.window.extents
        driver.wait_for(lambda: any(page.startswith("Ticker") for page in self.program.pages()),
                        "the strip's page")
        driver.move_pointer(left + width // 2, top + 78)
        driver.move_pointer(left + width // 2 + 9, top + 80)
        self.take("strip", left, top + 20, width, 90)


def save(program, server, path, name):
    """Saves a file of the server under a path by way of the program's dialogs."""
    driver.xdotool("windowactivate", "--sync", program.window_id())
    driver.press("ctrl+shift+l")
    dialog = program.application.find(role="dialog",
                                      name="Smart Navigate - Enter a URL or Site Name")
    driver.wait_for(lambda: dialog.extents[2] > 50, "the dialog's size")
    driver.type_text(f"{server.host}/{name}")
    driver.press("Return")
    driver.wait_for(lambda: not dialog.showing, "the dialog to close")
    chooser = program.application.find(role="dialog", name="Save As")
    box = chooser.find(role="text")
    driver.wait_for(lambda: box.focused and box.text.endswith(name), "the proposed name")
    driver.press("ctrl+a")
    driver.type_text(str(path / name))
    driver.press("Return")
    driver.wait_for(lambda: not chooser.showing, "the dialog to close")


def downloads(binary, folder, profile):
    """The list of downloads: what is in it comes from a server of our own."""
    held = threading.Event()
    with Server() as server:
        for name, size in (("filings.zip", 2_400_000), ("prices.csv", 48_000),
                           ("annual-report.pdf", 5_200_000)):
            server.services[f"/{name}"] = \
                lambda path, size=size: ("application/octet-stream", "x" * size)
            server.headers[f"/{name}"] = {
                "Content-Disposition": f'attachment; filename="{name}"'}
        for name in ("filings.zip", "annual-report.pdf"):
            server.held[f"/{name}"] = held
        sites = profile / "sites.toml"
        sites.write_text(f'[hosts]\ndefault = "http://{server.host}"\n')
        with driver.Program(binary, "--web", "direct", "--sites", sites,
                            profile=profile / "downloads") as program:
            pictures = Pictures(program, folder, profile)
            pictures.size(1080, 760)
            save(program, server, profile, "filings.zip")
            driver.press("ctrl+j")
            dialog = pictures.dialog("Downloads")
            driver.wait_for(lambda: any(cell.name.startswith("1.2 MB of")
                                        for cell in dialog.walk()), "the file under way")
            dialog.find(role="push button", name="Cancel Download").click()
            for name in ("prices.csv", "annual-report.pdf"):
                save(program, server, profile, name)
            driver.wait_for(lambda: any(cell.name.startswith("2.6 MB of")
                                        for cell in dialog.walk()), "the file under way")
            driver.xdotool("windowactivate", "--sync",
                           driver.xdotool("search", "--name", "^Downloads$").split()[0])
            pictures.take_dialog("downloads", dialog)
            held.set()


def main():
    program, folder = sys.argv[1:]
    Path(folder).mkdir(parents=True, exist_ok=True)
    with driver.desktop(), tempfile.TemporaryDirectory(prefix="profile-") as profile:
        Path(profile, "settings.ini").write_text(SETTINGS)
        Path(profile, "TickNotes.txt").write_bytes(NOTES.encode())
        Path(profile, "remind.txt").write_bytes(REMINDERS.encode())
        Path(profile, "alert-log.txt").write_text(ALERT_LOG)
        with driver.Program(program, "--web", "sample", profile=profile) as running:
            Pictures(running, Path(folder), profile).run()
        downloads(program, Path(folder), Path(profile))


if __name__ == "__main__":
    main()
