"""When a part of the display shows what it shows in the end: looks at it a thousand times a second,
which costs the display next to nothing, and nothing in the program that is looked at."""

import ctypes
import threading
import time
import zlib

ALL_PLANES = ctypes.c_ulong(-1).value
Z_PIXMAP = 2
PAUSE = 0.001  # seconds between two looks


class Image(ctypes.Structure):
    """As far as its pixels, as in Xlib.h."""
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                ("format", ctypes.c_int), ("data", ctypes.POINTER(ctypes.c_char)),
                ("byte_order", ctypes.c_int), ("bitmap_unit", ctypes.c_int),
                ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int),
                ("depth", ctypes.c_int), ("bytes_per_line", ctypes.c_int)]


class ScreenWatch:
    """Watches a rectangle of the display (left, top, width, height) until it is stopped."""

    def __init__(self, area):
        self._area = area
        self._changes = []  # when it changed, and a checksum of what it showed from then on
        self._ends = threading.Event()
        self._thread = threading.Thread(target=self._watch)
        self._thread.start()

    def _watch(self):
        x11 = ctypes.CDLL("libX11.so.6")
        x11.XOpenDisplay.restype = x11.XGetImage.restype = ctypes.c_void_p
        x11.XDefaultRootWindow.restype = ctypes.c_ulong
        x11.XDefaultRootWindow.argtypes = x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
        x11.XDestroyImage.argtypes = [ctypes.c_void_p]
        x11.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, *[ctypes.c_int] * 2,
                                  *[ctypes.c_uint] * 2, ctypes.c_ulong, ctypes.c_int]
        display = x11.XOpenDisplay(None)
        assert display, "there is no display"
        root = x11.XDefaultRootWindow(display)
        while not self._ends.is_set():
            made = x11.XGetImage(display, root, *self._area, ALL_PLANES, Z_PIXMAP)
            image = ctypes.cast(made, ctypes.POINTER(Image)).contents
            size = image.bytes_per_line * image.height
            shown = zlib.crc32(ctypes.string_at(image.data, size))
            x11.XDestroyImage(made)
            if not self._changes or self._changes[-1][1] != shown:
                self._changes.append((time.monotonic(), shown))
            time.sleep(PAUSE)
        x11.XCloseDisplay(display)

    def stop(self):
        """The moment (of time.monotonic) since when it shows what it shows now."""
        self._ends.set()
        self._thread.join()
        final = self._changes[-1][1]
        return next(moment for moment, shown in self._changes if shown == final)
