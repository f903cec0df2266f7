"""What a person sees: pixels of the screen, their colours and their contrast."""
import collections
import struct
import zlib


def save_png(file, width, height, pixels):
    """Keeps a picture, given as bytes of red, green and blue, row by row."""
    def part(name, content):
        return struct.pack(">I", len(content)) + name + content + struct.pack(">I", zlib.crc32(name + content))

    rows = b"".join(b"\0" + pixels[start:start + 3 * width] for start in range(0, len(pixels), 3 * width))
    file.write_bytes(b"\x89PNG\r\n\x1a\n" + part(b"IHDR", struct.pack(">2I5B", width, height, 8, 2, 0, 0, 0))
                     + part(b"IDAT", zlib.compress(rows)) + part(b"IEND", b""))


class Picture:
    """A rectangle of the screen."""

    def __init__(self, program, rectangle):
        self.left, self.top, self.right, self.bottom = rectangle
        self._pixels = program.pixels(rectangle)
        if len(self._pixels) != 3 * self.width * self.height:
            raise ValueError(f"{rectangle} is not on the screen as a whole")

    @property
    def width(self):
        return self.right - self.left

    @property
    def height(self):
        return self.bottom - self.top

    def __eq__(self, other):
        return self._pixels == other._pixels and self.width == other.width

    __hash__ = None

    def difference(self, other):
        """The rectangle, from the upper left corner, in which two pictures of one size differ; None without any."""
        lines = [y for y in range(self.height) if self._line(y) != other._line(y)]
        if not lines:
            return None
        at = [i // 3 for y in lines for i, (a, b) in enumerate(zip(self._line(y), other._line(y))) if a != b]
        return min(at), lines[0], max(at) + 1, lines[-1] + 1

    def _line(self, y):
        return self._pixels[3 * y * self.width:3 * (y + 1) * self.width]

    def at(self, x, y):
        """The colour of a point of the screen."""
        start = 3 * ((y - self.top) * self.width + x - self.left)
        return tuple(self._pixels[start:start + 3])

    def row(self, y, left=None, right=None):
        return [self.at(x, y) for x in range(self.left if left is None else left, self.right if right is None else right)]

    def column(self, x, top=None, bottom=None):
        return [self.at(x, y) for y in range(self.top if top is None else top, self.bottom if bottom is None else bottom)]

    def colors(self, rectangle=None):
        """How often each colour occurs."""
        left, top, right, bottom = rectangle or (self.left, self.top, self.right, self.bottom)
        return collections.Counter(color for y in range(top, bottom) for color in self.row(y, left, right))

    def ground(self, rectangle=None):
        """The colour that most of it has."""
        return self.colors(rectangle).most_common(1)[0][0]

    def lines_of_ink(self, rectangle, least=3):
        """The first and the last row of a rectangle that differ clearly from its ground; None without any."""
        left, top, right, bottom = rectangle
        ground = self.ground(rectangle)
        inked = [y for y in range(top, bottom)
                 if any(contrast(color, ground) >= least for color in self.row(y, left, right))]
        return (inked[0], inked[-1]) if inked else None


def luminance(color):
    """As WCAG defines it."""
    parts = [c / 255 for c in color]
    red, green, blue = (c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4 for c in parts)
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue


def contrast(one, other):
    """From 1, the same, to 21, black and white."""
    high, low = sorted((luminance(one), luminance(other)), reverse=True)
    return (high + 0.05) / (low + 0.05)
