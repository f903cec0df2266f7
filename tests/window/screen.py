"""The pixels of an X display, read by this process itself: a screenshot program for each picture would take longer than
the picture."""
import ctypes
import ctypes.util

ALL_PLANES = ctypes.c_ulong(-1).value
Z_PIXMAP = 2
BYTES = 4  # of a pixel at the depth of 24 bits that the driver's displays have: blue, green, red and one unused


class Image(ctypes.Structure):
    """The head of an XImage."""
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int), ("format", ctypes.c_int),
                ("data", ctypes.POINTER(ctypes.c_char)), ("byte_order", ctypes.c_int), ("bitmap_unit", ctypes.c_int),
                ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int), ("depth", ctypes.c_int),
                ("bytes_per_line", ctypes.c_int), ("bits_per_pixel", ctypes.c_int)]


def library():
    x11 = ctypes.CDLL(ctypes.util.find_library("X11") or "libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XOpenDisplay.argtypes = [ctypes.c_char_p]
    x11.XDefaultRootWindow.restype = ctypes.c_ulong
    x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
    x11.XGetImage.restype = ctypes.POINTER(Image)
    x11.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int, ctypes.c_uint, ctypes.c_uint,
                              ctypes.c_ulong, ctypes.c_int]
    x11.XDestroyImage.argtypes = [ctypes.POINTER(Image)]
    x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
    return x11


class Screen:
    def __init__(self, display):
        self._x11 = library()
        self._display = self._x11.XOpenDisplay(display.encode())
        if not self._display:
            raise RuntimeError(f"no display {display}")
        self._root = self._x11.XDefaultRootWindow(self._display)

    def pixels(self, rectangle):
        """The pixels of a rectangle, row by row, as bytes of red, green and blue. All of it must be on the screen."""
        left, top, right, bottom = rectangle
        width, height = right - left, bottom - top
        image = self._x11.XGetImage(self._display, self._root, left, top, width, height, ALL_PLANES, Z_PIXMAP)
        if not image or image.contents.bits_per_pixel != 8 * BYTES:
            raise RuntimeError(f"no picture of {rectangle}")
        taken = ctypes.string_at(image.contents.data, image.contents.bytes_per_line * height)
        self._x11.XDestroyImage(image)
        pixels = bytearray(3 * width * height)
        for part in range(3):
            pixels[part::3] = taken[2 - part::BYTES]
        return bytes(pixels)

    def close(self):
        self._x11.XCloseDisplay(self._display)
