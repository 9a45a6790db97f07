"""Real mouse and keyboard events on an X display, through the server's test extension, and what windows there are."""

import ctypes
import ctypes.util


class _Attributes(ctypes.Structure):
    _fields_ = [("x", ctypes.c_int), ("y", ctypes.c_int), ("width", ctypes.c_int), ("height", ctypes.c_int),
                ("border_width", ctypes.c_int), ("depth", ctypes.c_int), ("visual", ctypes.c_void_p),
                ("root", ctypes.c_ulong), ("c_class", ctypes.c_int), ("bit_gravity", ctypes.c_int),
                ("win_gravity", ctypes.c_int), ("backing_store", ctypes.c_int), ("backing_planes", ctypes.c_ulong),
                ("backing_pixel", ctypes.c_ulong), ("save_under", ctypes.c_int), ("colormap", ctypes.c_ulong),
                ("map_installed", ctypes.c_int), ("map_state", ctypes.c_int), ("all_event_masks", ctypes.c_long),
                ("your_event_mask", ctypes.c_long), ("do_not_propagate_mask", ctypes.c_long),
                ("override_redirect", ctypes.c_int), ("screen", ctypes.c_void_p)]


class _ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("room", ctypes.c_char * 96)]


def _library(name):
    return ctypes.CDLL(ctypes.util.find_library(name))


class Display:
    """A connection to a display; a window is a number. Questions about a window that has gone are answered with
    nothing."""

    def __init__(self, name):
        self._x = _library("X11")
        self._test = _library("Xtst")
        for function, result, arguments in (
                ("XOpenDisplay", ctypes.c_void_p, [ctypes.c_char_p]),
                ("XDefaultRootWindow", ctypes.c_ulong, [ctypes.c_void_p]),
                ("XInternAtom", ctypes.c_ulong, [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]),
                ("XKeysymToKeycode", ctypes.c_ubyte, [ctypes.c_void_p, ctypes.c_ulong]),
                ("XStringToKeysym", ctypes.c_ulong, [ctypes.c_char_p]),
                ("XSync", ctypes.c_int, [ctypes.c_void_p, ctypes.c_int]),
                ("XFree", ctypes.c_int, [ctypes.c_void_p]),
                ("XCloseDisplay", ctypes.c_int, [ctypes.c_void_p]),
                ("XSendEvent", ctypes.c_int,
                 [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long, ctypes.c_void_p]),
                ("XGetWindowAttributes", ctypes.c_int,
                 [ctypes.c_void_p, ctypes.c_ulong, ctypes.POINTER(_Attributes)]),
                ("XTranslateCoordinates", ctypes.c_int,
                 [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_ulong, ctypes.c_int, ctypes.c_int,
                  ctypes.POINTER(ctypes.c_int), ctypes.POINTER(ctypes.c_int), ctypes.POINTER(ctypes.c_ulong)]),
                ("XGetWindowProperty", ctypes.c_int,
                 [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_ulong, ctypes.c_long, ctypes.c_long, ctypes.c_int,
                  ctypes.c_ulong, ctypes.POINTER(ctypes.c_ulong), ctypes.POINTER(ctypes.c_int),
                  ctypes.POINTER(ctypes.c_ulong), ctypes.POINTER(ctypes.c_ulong), ctypes.POINTER(ctypes.c_void_p)])):
            getattr(self._x, function).restype = result
            getattr(self._x, function).argtypes = arguments
        for function, arguments in (
                ("XTestFakeMotionEvent", [ctypes.c_void_p, ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_ulong]),
                ("XTestFakeButtonEvent", [ctypes.c_void_p, ctypes.c_uint, ctypes.c_int, ctypes.c_ulong]),
                ("XTestFakeKeyEvent", [ctypes.c_void_p, ctypes.c_uint, ctypes.c_int, ctypes.c_ulong])):
            getattr(self._test, function).argtypes = arguments
        handler = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
        # A window may go between two questions.
        self._ignore = handler(lambda display, error: 0)
        self._x.XSetErrorHandler(self._ignore)
        self._display = self._x.XOpenDisplay(name.encode())
        if not self._display:
            raise OSError("no display " + name)
        self._root = self._x.XDefaultRootWindow(self._display)
        self.events = 0

    def close(self):
        self._x.XCloseDisplay(self._display)

    def sync(self):
        self._x.XSync(self._display, 0)

    def move(self, x, y):
        self._count(self._test.XTestFakeMotionEvent(self._display, -1, int(x), int(y), 0))

    def button(self, number, down):
        self._count(self._test.XTestFakeButtonEvent(self._display, number, down, 0))

    def key(self, name, down):
        code = self._x.XKeysymToKeycode(self._display, self._x.XStringToKeysym(name.encode()))
        self._count(self._test.XTestFakeKeyEvent(self._display, code, down, 0))

    def _count(self, _):
        self.events += 1
        self.sync()

    def windows(self):
        """What the window manager manages, in the order of appearance."""
        return self._numbers(self._root, "_NET_CLIENT_LIST")

    def active(self):
        """0 for none."""
        return (self._numbers(self._root, "_NET_ACTIVE_WINDOW") or [0])[0]

    def activate(self, window):
        """Asks the window manager to bring a window to the front, with the keyboard."""
        event = _ClientMessage(33, 0, 1, self._display, window,
                               self._atom("_NET_ACTIVE_WINDOW"), 32, (ctypes.c_long * 5)(2))
        substructure = 0x180000
        self._x.XSendEvent(self._display, self._root, 0, substructure, ctypes.byref(event))
        self.sync()

    def title(self, window):
        return self._property(window, "_NET_WM_NAME").decode(errors="replace")

    def is_dialog(self, window):
        """Of another window, or a panel."""
        if not window:
            return False
        kinds = self._numbers(window, "_NET_WM_WINDOW_TYPE")
        return bool(self._numbers(window, "WM_TRANSIENT_FOR")) or self._atom("_NET_WM_WINDOW_TYPE_NORMAL") not in kinds

    def frame(self, window):
        """x, y, width and height on the screen, or nothing."""
        attributes = _Attributes()
        if not self._x.XGetWindowAttributes(self._display, window, ctypes.byref(attributes)):
            return None
        x, y, child = ctypes.c_int(), ctypes.c_int(), ctypes.c_ulong()
        self._x.XTranslateCoordinates(self._display, window, self._root, 0, 0, ctypes.byref(x), ctypes.byref(y),
                                      ctypes.byref(child))
        return x.value, y.value, attributes.width, attributes.height

    def _atom(self, name):
        return self._x.XInternAtom(self._display, name.encode(), 0)

    def _numbers(self, window, name):
        data = self._property(window, name)
        return [int.from_bytes(data[at:at + 8], "little") for at in range(0, len(data), 8)]

    def _property(self, window, name):
        """Its bytes, where a 32-bit item takes a long; none without it."""
        kind, size, count, left, data = (ctypes.c_ulong(), ctypes.c_int(), ctypes.c_ulong(), ctypes.c_ulong(),
                                         ctypes.c_void_p())
        failed = self._x.XGetWindowProperty(self._display, window, self._atom(name), 0, 1024, 0, 0,
                                            ctypes.byref(kind), ctypes.byref(size), ctypes.byref(count),
                                            ctypes.byref(left), ctypes.byref(data))
        if failed or not data.value:
            return b""
        width = {8: 1, 16: 2, 32: ctypes.sizeof(ctypes.c_long)}.get(size.value, 0)
        result = ctypes.string_at(data.value, count.value * width)
        self._x.XFree(data)
        return result
