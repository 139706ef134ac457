"""Real input events on a virtual display, as if from a mouse and a keyboard."""

import ctypes
import time

_SETTLE = 0.03  # between pressing and releasing, as a hand would


class Pointer:
    def __init__(self, display):
        self._x11 = ctypes.CDLL("libX11.so.6")
        self._xtest = ctypes.CDLL("libXtst.so.6")
        self._x11.XOpenDisplay.restype = ctypes.c_void_p
        self._x11.XStringToKeysym.restype = ctypes.c_ulong
        self._display = ctypes.c_void_p(self._x11.XOpenDisplay(display.encode()))
        if not self._display:
            raise RuntimeError(f"no display {display}")

    def close(self):
        self._x11.XCloseDisplay(self._display)

    def move(self, x, y):
        self._xtest.XTestFakeMotionEvent(self._display, -1, int(x), int(y), ctypes.c_ulong(0))
        self._x11.XFlush(self._display)

    def click(self, x, y, button=1):
        """Presses and releases at a point; gives the moment of the release."""
        self.press(x, y, button)
        time.sleep(_SETTLE)
        return self.release(button)

    def press(self, x, y, button=1):
        """Presses at a point; gives the moment."""
        self.move(x, y)
        time.sleep(_SETTLE)
        self._button(button, True)
        return time.monotonic()

    def release(self, button=1):
        self._button(button, False)
        return time.monotonic()

    def key(self, *names):
        """Presses keys together, named as X names them: key("Tab"), key("Shift_L", "Tab")."""
        codes = [self._code(name) for name in names]
        for code in codes:
            self._key(code, True)
        time.sleep(_SETTLE)
        for code in reversed(codes):
            self._key(code, False)

    def _code(self, name):
        symbol = self._x11.XStringToKeysym(name.encode())
        return self._x11.XKeysymToKeycode(self._display, ctypes.c_ulong(symbol))

    def _button(self, button, pressed):
        self._xtest.XTestFakeButtonEvent(self._display, button, int(pressed), ctypes.c_ulong(0))
        self._x11.XFlush(self._display)

    def _key(self, code, pressed):
        self._xtest.XTestFakeKeyEvent(self._display, code, int(pressed), ctypes.c_ulong(0))
        self._x11.XFlush(self._display)
