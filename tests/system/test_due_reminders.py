"""A reminder comes due while the program runs: at midnight a notice of the desktop says so, and a
click on it opens the reminders. The time zone is chosen so that midnight is near."""

import os
import threading
import time

from gi.repository import Gio, GLib

import driver

UNTIL_MIDNIGHT = 60  # seconds; enough for a start on a slow machine
INTERFACE = """<node><interface name="org.freedesktop.Notifications">
<method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/>
<arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
<arg type="as" direction="in"/><arg type="a{sv}" direction="in"/><arg type="i" direction="in"/>
<arg type="u" direction="out"/></method>
<signal name="ActionInvoked"><arg type="u"/><arg type="s"/></signal>
</interface></node>"""
NAME = "org.freedesktop.Notifications"
PATH = "/org/freedesktop/Notifications"


class Desktop:
    """Stands in for the desktop's service of notices, in a thread of its own."""

    def __init__(self):
        self.shown = []
        self._context = GLib.MainContext()
        self._loop = GLib.MainLoop(self._context)
        self._ready = threading.Event()
        self._thread = threading.Thread(target=self._run, daemon=True)
        self._thread.start()
        self._ready.wait(driver.PATIENCE)

    def _run(self):
        self._context.push_thread_default()
        self._bus = Gio.DBusConnection.new_for_address_sync(
            os.environ["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
            Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        self._bus.register_object(PATH, interface, self._called, None, None)
        Gio.bus_own_name_on_connection(self._bus, NAME, Gio.BusNameOwnerFlags.NONE,
                                       lambda *_: self._ready.set(), None)
        self._loop.run()

    def _called(self, _bus, _sender, _path, _interface, _method, arguments, invocation):
        self.shown.append(arguments.unpack()[3])
        invocation.return_value(GLib.Variant("(u)", (1,)))

    def click(self):
        self._bus.emit_signal(None, PATH, NAME, "ActionInvoked",
                              GLib.Variant("(us)", (1, "default")))

    def stop(self):
        self._loop.quit()
        self._thread.join(driver.PATIENCE)
        self._bus.close_sync(None)


def zone_near_midnight():
    """The time zone in which it is UNTIL_MIDNIGHT seconds before midnight now."""
    ahead = (24 * 3600 - UNTIL_MIDNIGHT - int(time.time())) % (24 * 3600)
    # POSIX counts to the west.
    sign, ahead = ("-", ahead) if ahead <= 12 * 3600 else ("+", 24 * 3600 - ahead)
    return f"NEAR{sign}{ahead // 3600}:{ahead // 60 % 60:02}:{ahead % 60:02}"


class DueReminders(driver.SystemTest):
    def setUp(self):
        super().setUp()
        self.zone = os.environ["TZ"]
        os.environ["TZ"] = zone_near_midnight()
        time.tzset()
        self.addCleanup(self.restore_zone)
        self.desktop = Desktop()
        self.addCleanup(self.desktop.stop)

    def restore_zone(self):
        os.environ["TZ"] = self.zone
        time.tzset()

    def test_midnight_brings_a_notice_that_leads_to_the_reminders(self):
        profile = self.folder / "profile"
        profile.mkdir()
        (profile / "settings.ini").write_text("[Settings]\nFirst=OK\nStocks1=AOL|\n")
        tomorrow = time.strftime("%m-%d-%Y", time.localtime(time.time() + 3600))
        (profile / "remind.txt").write_text(f"||{tomorrow}||Sell all|||||\r\n", newline="")
        program = self.start()
        window = program.main_window()
        self.assertEqual(program.application.find_all(role="dialog"), [])
        driver.wait_for(lambda: self.desktop.shown, "the notice", 2 * UNTIL_MIDNIGHT)
        self.assertEqual(self.desktop.shown, ["Reminder: Sell all"])
        window.find(name="Reminder: Sell all")
        driver.screenshot(driver.SCREENSHOTS / "due-reminder.png", program.window_id())
        self.assertEqual(program.application.find_all(role="dialog"), [])
        self.desktop.click()
        dialog = program.application.find(role="dialog", name="Daily Reminders")
        driver.wait_for(lambda: dialog.showing, "the reminders")


if __name__ == "__main__":
    driver.main()
