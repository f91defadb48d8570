"""Drives the built program from outside, as a person would: a display of its own, the accessibility
tree to see what is there, pointer and keys to act. Nothing here sleeps for a fixed time: every wait
polls a condition up to a deadline."""

import contextlib
import ctypes
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from web_server import PATIENCE, Server  # noqa: E402

ROOT = Path(__file__).resolve().parents[2]
SCREENSHOTS = ROOT / "build" / "screenshots"


def wait_for(condition, what, seconds=PATIENCE):
    """Polls until the condition gives something true, and gives that; fails after the deadline."""
    deadline = time.monotonic() + seconds
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {seconds:g} s in vain for {what}")
        time.sleep(0.02)


def _end_with_us():
    """The children end when this process does, however it ends."""
    ctypes.CDLL("libc.so.6").prctl(1, signal.SIGTERM)


def start(arguments, **options):
    """Starts a process that does not outlive us."""
    return subprocess.Popen(arguments, preexec_fn=_end_with_us, **options)


def stop(process):
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(10)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()


def _noon():
    """The time zone in which it is about noon now: what depends on the time of day (the strip of
    indices rests during the first minutes after midnight) is the same at any hour."""
    return "NOON%+d" % (time.gmtime().tm_hour - 12)


@contextlib.contextmanager
def desktop(size=(1920, 1200)):
    """A virtual display with a session bus, a window manager and the accessibility bus on it; the
    environment of this process points there while it lasts."""
    with contextlib.ExitStack() as stack:

        def run(*arguments, **options):
            options.setdefault("stdout", subprocess.DEVNULL)
            process = start(arguments, stderr=subprocess.DEVNULL, **options)
            stack.callback(stop, process)
            return process

        number, theirs = os.pipe()
        # Without -noreset the server starts afresh when its last client of the moment leaves.
        run("Xvfb", "-displayfd", str(theirs), "-nolisten", "tcp", "-noreset",
            "-screen", "0", "%dx%dx24" % size, pass_fds=[theirs])
        os.close(theirs)
        with os.fdopen(number) as pipe:
            os.environ["DISPLAY"] = ":" + pipe.readline().strip()
        os.environ.pop("WAYLAND_DISPLAY", None)

        # A home of its own, so that neither the desktop's settings nor the user's play a part.
        home = stack.enter_context(tempfile.TemporaryDirectory(prefix="desktop-"))
        os.environ.update(
            HOME=home, XDG_RUNTIME_DIR=home, XDG_CONFIG_HOME=home + "/config",
            XDG_DATA_HOME=home + "/data", XDG_CACHE_HOME=home + "/cache",
            LANG="C.UTF-8", TZ=_noon(), QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb",
            # The engine tells of its pages only when it is asked to.
            QTWEBENGINE_CHROMIUM_FLAGS="--force-renderer-accessibility",
            # No daemons of the desktop, which nobody here needs.
            GIO_USE_VFS="local", NO_AT_BRIDGE="1")
        if os.geteuid() == 0:
            # The web engine refuses its sandbox to root and would end the program.
            os.environ["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
        bus = run("dbus-daemon", "--session", "--nofork", "--print-address=1",
                  stdout=subprocess.PIPE, text=True)
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        run("at-spi-bus-launcher" if shutil.which("at-spi-bus-launcher")
            else "/usr/libexec/at-spi-bus-launcher", "--launch-immediately")
        run("openbox", "--sm-disable")
        wait_for(lambda: subprocess.run(["xdotool", "get_desktop"], capture_output=True)
                 .returncode == 0, "the window manager")
        Atspi.init()
        Atspi.set_timeout(5000, 15000)
        yield


# What newer accessibility buses call some roles otherwise.
ROLES = {"button": "push button"}
# What holds others is a group; who looks for it by the toolkit's own word finds it too.
GROUPS = {"filler": "panel"}
DOCUMENTS = ("document web", "document frame")


class Widget:
    """One control as the accessibility tree tells it."""

    def __init__(self, node):
        self.node = node

    def _read(self, read, default):
        # A control may vanish between two questions: then it has nothing to say.
        try:
            return read()
        except GLib.Error:
            return default

    @property
    def name(self):
        return self._read(self.node.get_name, "") or ""

    @property
    def description(self):
        return self._read(self.node.get_description, "") or ""

    @property
    def role(self):
        """By the names of the oldest bus that the tests run on."""
        name = self._read(self.node.get_role_name, "")
        return ROLES.get(name, name)

    @property
    def text(self):
        """What an entry box or a text holds."""
        if "Text" not in self._read(lambda: Atspi.Accessible.get_interfaces(self.node), []):
            return ""
        text = self._read(lambda: Atspi.Text.get_text(self.node, 0, -1), "")
        # Newer releases tell of a password in dots, the older ones nothing at all.
        return text.strip("\u25cf\u2022*") if self.role == "password text" else text

    def has(self, state):
        return self._read(lambda: self.node.get_state_set().contains(state), False)

    @property
    def showing(self):
        return self.has(Atspi.StateType.SHOWING) and self.extents[2] > 0

    @property
    def enabled(self):
        return self.has(Atspi.StateType.ENABLED)

    @property
    def selected(self):
        return self.has(Atspi.StateType.SELECTED)

    @property
    def focused(self):
        return self.has(Atspi.StateType.FOCUSED)

    @property
    def extents(self):
        """Left, top, width and height on the screen."""
        box = self._read(lambda: self.node.get_extents(Atspi.CoordType.SCREEN), None)
        return (box.x, box.y, box.width, box.height) if box else (0, 0, 0, 0)

    def children(self):
        self.node.clear_cache()
        return self._known_children()

    def _known_children(self):
        count = self._read(self.node.get_child_count, 0)
        nodes = (self._read(lambda i=i: self.node.get_child_at_index(i), None)
                 for i in range(count))
        return [Widget(node) for node in nodes if node]

    def walk(self, hidden=False):
        """This control and all below it, with or without what cannot be seen, but not what web
        pages show. What is inside of something hidden may call itself visible all the same."""
        self.node.clear_cache()
        waiting = [self]
        while waiting:
            widget = waiting.pop()
            if widget is not self and not hidden and not widget.showing:
                continue
            yield widget
            if widget.role not in DOCUMENTS:
                waiting += reversed(widget._known_children())

    def _matches(self, name=None, role=None, hidden=False):
        def fits(widget):
            if name is not None:
                own = widget.name
                # A caption may have blanks around it, its name has none.
                if not (name.search(own) if isinstance(name, re.Pattern)
                        else name.strip() == own.strip()):
                    return False
            return role is None or widget.role in (role, GROUPS.get(role))
        return filter(fits, self.walk(hidden))

    def find_all(self, name=None, role=None, hidden=False):
        """All controls below with that name (a text or a pattern) and role."""
        return list(self._matches(name, role, hidden))

    def find(self, name=None, role=None, seconds=PATIENCE, **more):
        """The first of them, waited for."""
        return wait_for(lambda: next(self._matches(name, role, **more), None),
                        f"a control named {name!r} of role {role!r}", seconds)

    def __repr__(self):
        return f"<{self.role} {self.name!r} {self.extents}>"

    def click(self, button=1, times=1):
        left, top, width, height = self.extents
        assert width > 0 and height > 0, f"{self} has no place on the screen"
        move_pointer(left + width // 2, top + height // 2)
        xdotool("click", *(("--repeat", times, "--delay", 60) if times > 1 else ()), button)

    def double_click(self):
        self.click(times=2)


def xdotool(*arguments):
    result = subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True)
    assert result.returncode == 0, f"xdotool {arguments}: {result.stderr}"
    return result.stdout.strip()


def ask_xdotool(*question):
    """What xdotool says; nothing while it cannot say that, because a window goes away."""
    found = subprocess.run(["xdotool", *map(str, question)], capture_output=True, text=True)
    return found.stdout.strip() if found.returncode == 0 else ""


def active_window():
    """The id of the window that has the keys; empty while none has."""
    return ask_xdotool("getactivewindow")


def move_pointer(left, top):
    """Moves the pointer and waits until it is there; xdotool would wait long for one that is."""
    place = wait_for(lambda: ask_xdotool("getmouselocation"), "the place of the pointer")
    if f"x:{left} y:{top} " not in place:
        xdotool("mousemove", "--sync", left, top)


def type_text(text):
    xdotool("type", "--delay", 15, text)


# Some releases of xdotool hold Alt for these keys by their names. Numbers are those of every
# display of today.
FUNCTION_KEYS = {f"F{n}": str(n + (66 if n <= 10 else 84)) for n in range(1, 13)}


def press(*keys):
    xdotool("key", "--delay", 15,
            *("+".join(FUNCTION_KEYS.get(part, part) for part in key.split("+")) for key in keys))


def screenshot(path, window="root"):
    """Writes a picture of a window, or of the whole display."""
    path = Path(path)
    path.parent.mkdir(parents=True, exist_ok=True)
    subprocess.run(["import", "-window", window, str(path)], check=True)


def pixel(left, top):
    """Red, green and blue of a point of the display."""
    found = subprocess.run(["import", "-window", "root", "-crop", f"1x1+{left}+{top}", "-depth", "8",
                            "rgb:-"], check=True, capture_output=True)
    return tuple(found.stdout)


def screenshot_at_rest(path, window):
    """Writes a picture of a window once nothing in it moves any more but a cursor that blinks: the
    same picture was seen three times, and not always one after the other."""
    seen = []

    def at_rest():
        screenshot(path, window)
        seen.append(subprocess.run(["identify", "-format", "%#", str(path)], check=True,
                                   capture_output=True).stdout)
        return seen.count(seen[-1]) > 2
    wait_for(at_rest, "the window to come to rest")


class Program:
    """The program under test as a process with its main window."""

    def __init__(self, binary, *arguments, profile=None):
        command = [str(binary), *map(str, arguments)]
        if profile is not None:
            command += ["--profile", str(profile)]
        self._log = tempfile.TemporaryFile()
        self.process = start(command, stdout=subprocess.DEVNULL, stderr=self._log,
                             stdin=subprocess.DEVNULL)

    def errors(self):
        """What it wrote to standard error."""
        self._log.seek(0)
        return self._log.read().decode(errors="replace")

    def _application(self):
        assert self.process.poll() is None, \
            f"the program ended with {self.process.returncode}: {self.errors()}"
        for child in Widget(Atspi.get_desktop(0)).children():
            if child._read(child.node.get_process_id, 0) == self.process.pid:
                return child
        return None

    @property
    def application(self):
        return wait_for(self._application, "the program in the accessibility tree")

    def main_window(self):
        """The main window, waited for."""
        return self.application.find(role="frame")

    def documents(self):
        """The pages that the visible panes show, as controls."""
        # With newer engines a page hangs in the tree a second time, beside the windows.
        return [page for window in self.application.children()
                if window.showing and window.role != "filler"
                for page in window.find_all(role="document web")]

    def pages(self):
        """The titles of the pages that the visible panes show."""
        return [page.name for page in self.documents()]

    def page_texts(self):
        """All that the pages of the visible panes say, a page each."""
        texts = []
        for page in self.documents():
            words, waiting = [], [page]
            while waiting:
                widget = waiting.pop()
                words.append(widget.name)
                waiting += reversed(widget.children())
            texts.append(" ".join(filter(None, words)))
        return texts

    def window_id(self):
        """The main window as the window manager knows it: the biggest of the process."""
        return wait_for(lambda: max(self.windows() or (), key=self._area, default=None),
                        "a window of the program")

    def windows(self):
        """All its windows by their ids, open menus among them: the accessibility tree leaves those
        out. None while one of them is just going."""
        found = ask_xdotool("search", "--onlyvisible", "--pid", self.process.pid)
        return set(found.split()) or None

    @staticmethod
    def _area(window):
        _, _, width, height = geometry(window)
        return width * height

    def ask_to_close(self):
        """Closes the main window as a person would, by way of the window manager."""
        xdotool("windowactivate", "--sync", self.window_id())
        press("alt+F4")

    def wait_for_end(self, seconds=PATIENCE):
        """The exit code."""
        wait_for(lambda: self.process.poll() is not None, "the end of the program", seconds)
        return self.process.returncode

    def __enter__(self):
        return self

    def stop(self):
        stop(self.process)
        self._log.close()

    def __exit__(self, *_):
        self.stop()


def geometry(window):
    """Left, top, width and height of a window by its id; zeroes when it is gone."""
    result = subprocess.run(["xdotool", "getwindowgeometry", "--shell", window],
                            capture_output=True, text=True)
    values = dict(line.split("=", 1) for line in result.stdout.splitlines() if "=" in line)
    return tuple(int(values.get(key, 0)) for key in ("X", "Y", "WIDTH", "HEIGHT"))


def place(window, left, top, width, height):
    """Moves and resizes a window by its id, as far as its own rules allow."""
    xdotool("windowmove", "--sync", window, left, top)
    xdotool("windowsize", window, width, height)
    wait_for(lambda: geometry(window)[2:] == (width, height), "the new size of the window")


class SystemTest(unittest.TestCase):
    """A test with a folder and a web server of its own. The picture of the display at its end is
    kept, passed or failed."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="system-", ignore_cleanup_errors=True)
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.server = Server()
        self.addCleanup(self.server.close)

    def sites(self, text):
        """Writes a site file."""
        path = self.folder / "sites.toml"
        path.write_text(text)
        return path

    def install(self):
        """Puts a copy of the program under a folder of the test, as it would be put under /usr;
        that folder. What is tested may be such a copy already."""
        binary = Path(SystemTest.binary).resolve()
        prefix = self.folder / "prefix"
        if (binary.parent / "cmake_install.cmake").exists():
            subprocess.run(["cmake", "--install", binary.parent, "--prefix", prefix], check=True,
                           capture_output=True)
        else:
            shutil.copytree(binary.parent.parent, prefix, symlinks=True)
        return prefix

    def start(self, profile="profile", more_hosts="", web="direct"):
        """Starts the program with every site at the server; it is stopped when the test ends. What
        follows the hosts may go on with other tables."""
        sites = self.sites(f'[hosts]\ndefault = "http://{self.server.host}"\n{more_hosts}')
        program = Program(SystemTest.binary, "--web", web, "--sites", sites,
                          profile=self.folder / profile)
        self.addCleanup(program.stop)
        self.addCleanup(screenshot, SCREENSHOTS / f"{self.id().rpartition('.')[2]}.png")
        return program


def main():
    """Runs the tests of a file for the program that is the first argument, on one display."""
    SystemTest.binary = sys.argv.pop(1)
    with desktop():
        unittest.main(verbosity=2)
