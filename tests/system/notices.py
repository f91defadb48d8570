"""Stands in for the desktop's service of notices."""

import os
import threading

from gi.repository import Gio, GLib

import driver

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
