"""A window as a person sees it: its pixels beside what its controls say about their places and texts."""
import collections
import json

from driver import MAKER_LINK
from pictures import contrast, save_png

LEAST_CONTRAST = 4.5  # of a text, as WCAG asks
MARK = 18             # a tick or ring and its gap, in pixels at 96 DPI
MANY = 40             # rows, nodes or lines of one list that are looked at


def within(rectangle, bounds):
    """The part of a rectangle inside another."""
    return (max(rectangle[0], bounds[0]), max(rectangle[1], bounds[1]),
            min(rectangle[2], bounds[2]), min(rectangle[3], bounds[3]))


def is_empty(rectangle):
    return rectangle[0] >= rectangle[2] or rectangle[1] >= rectangle[3]


class Painted:
    """The pixels of a rectangle of the screen."""

    def __init__(self, screen, rectangle):
        self.rect = rectangle
        self.width, self.height = rectangle[2] - rectangle[0], rectangle[3] - rectangle[1]
        self.pixels = screen.pixels(rectangle)

    def rows(self, rectangle):
        left, top, right, bottom = within(rectangle, self.rect)
        for y in range(top, bottom):
            start = 3 * ((y - self.rect[1]) * self.width + left - self.rect[0])
            yield self.pixels[start:start + 3 * (right - left)]

    def colors(self, rectangle):
        """How often each colour occurs."""
        found = collections.Counter()
        for row in self.rows(rectangle):
            found.update(zip(row[0::3], row[1::3], row[2::3]))
        return found

    def at(self, x, y):
        start = 3 * ((y - self.rect[1]) * self.width + x - self.rect[0])
        return tuple(self.pixels[start:start + 3])

    def contrast(self, rectangle):
        """The contrast of what stands in a rectangle against its ground. A colour that occurs once may be an accident
        of smoothing."""
        colors = self.colors(rectangle)
        if not colors:
            return 0
        ground = colors.most_common(1)[0][0]
        return max(contrast(color, ground) for color, count in colors.items() if count > 1 or len(colors) == 1)

    def ink(self, rectangle, least=1.5):
        """How many pixels of a rectangle differ clearly from its ground."""
        colors = self.colors(rectangle)
        ground = colors.most_common(1)[0][0]
        return sum(count for color, count in colors.items() if contrast(color, ground) >= least)

    def differing(self, other, rectangle):
        """How many pixels of a rectangle differ from another picture of the same place."""
        count = 0
        for mine, others in zip(self.rows(rectangle), other.rows(rectangle)):
            if mine != others:
                count += sum(a != b for a, b in zip(zip(*[iter(mine)] * 3), zip(*[iter(others)] * 3)))
        return count

    def save(self, file):
        save_png(file, self.width, self.height, self.pixels)


class Window:
    """What a window says about itself, and its picture."""

    def __init__(self, lines, scale):
        self.scale = scale
        lines = [json.loads(line) for line in lines]
        last = lines.pop()
        self.title, self.rect, self.inside = last["title"], last["rect"], last["inside"]
        self.enabled, self.painted = last["enabled"], last["painted"]
        self.controls, self.drawn, self.content = [], {}, collections.defaultdict(list)
        for line in lines:
            if "control" in line:
                self.controls.append(line)
                current = len(self.controls) - 1
            elif "drawn" in line and line["kind"] != "column":
                self.drawn[current] = line
            else:
                self.content[current].append(line)
        self.picture = None

    def take(self, screen, size):
        """Takes the picture of what is on a screen of this size."""
        self.inside = within(self.inside, (0, 0, *size))
        self.picture = Painted(screen, self.inside)
        return self

    def shown(self):
        """The visible controls as (index, control, kind)."""
        return [(i, control, self.drawn[i]["kind"]) for i, control in enumerate(self.controls)
                if control["visible"] and not is_empty(control["rect"])]

    def control(self, number):
        return next(control for control in self.controls if control["control"] == number)

    def focus(self):
        return next((control for control in self.controls if control["focus"]), None)

    def pixels(self, length):
        return round(length * self.scale)

    def inset(self, rectangle, x, y):
        return (rectangle[0] + self.pixels(x), rectangle[1] + self.pixels(y),
                rectangle[2] - self.pixels(x), rectangle[3] - self.pixels(y))

    # Texts and where they stand.

    def cells(self, index, control):
        """The texts in a list or tree with their places. A place may lie outside of what is shown."""
        content = self.content[index]
        columns = [line for line in content if "column" in line and "rect" in line]
        for line in [line for line in content if "row" in line][:MANY]:
            places = [column["rect"] for column in columns] or [line["rect"]]
            # Left of the first text is the box of a row.
            for number, (text, place) in enumerate(zip(line["texts"], places)):
                left = place[0] + self.pixels(MARK if number == 0 else 3)
                yield text, (left, line["rect"][1], place[2] - self.pixels(3), line["rect"][3])
        for column in columns:
            yield column["text"], self.inset(column["rect"], 4, 3)
        for line in [line for line in content if "node" in line and line["rect"]][:MANY]:
            yield line["node"], tuple(line["rect"])

    def texts(self):
        """All texts that are shown, as (number of the control, text, where it is painted)."""
        for i, control, kind in self.shown():
            if control["control"] == MAKER_LINK and not control["focus"]:
                continue  # it shows its words only while it has the focus or the mouse is over it
            place, text = tuple(control["rect"]), control["text"].replace("&", "").strip()
            if kind in ("check", "option"):
                place = self.inset(place, 0, 2)
                place = (place[0] + self.pixels(MARK), *place[1:])
            elif kind == "push":
                place = self.inset(place, 5, 4)
            elif kind == "group":
                place = (*place[:2], place[0] + self.drawn[i]["extent"][0], place[3])
            elif kind == "picture":
                continue
            elif kind == "other":
                for cell, where in self.cells(i, control):
                    where = within(where, self.inset(control["rect"], 1, 1))
                    if cell.strip() and where[3] - where[1] >= self.pixels(8) and where[2] - where[0] >= self.pixels(8):
                        yield control["control"], cell, where
                continue
            if text:
                yield control["control"], text, within(place, self.inside)

    # What is wrong with it, as a list of sentences.

    def cut_texts(self):
        for i, control, kind in self.shown():
            place, extent = control["rect"], self.drawn[i]["extent"]
            wide, high = place[2] - place[0], place[3] - place[1]
            needed = {"check": self.pixels(MARK), "option": self.pixels(MARK), "push": self.pixels(8)}.get(kind, 0)
            what = f"{control['control']} {control['text']!r}"
            if kind not in ("other", "picture", "box") and control["text"] and extent[0] + needed > wide:
                yield f"{what} is {extent[0] + needed} wide, its place {wide}"
            if kind not in ("other", "picture") and control["text"] and extent[1] > high:
                yield f"{what} is {extent[1]} high, its place {high}"
            columns = [line for line in self.content[i] if "column" in line]
            for title, drawn in zip((c for c in columns if "rect" in c), (c for c in columns if "extent" in c)):
                if drawn["extent"][0] + self.pixels(8) > title["width"] > 0:
                    yield (f"the column {title['text']!r} is {title['width']} wide, its title "
                           f"{drawn['extent'][0] + self.pixels(8)}")

    def pale_texts(self):
        """One sentence for each control and contrast."""
        pale = collections.defaultdict(list)
        for number, text, where in self.texts():
            found = round(self.picture.contrast(where), 1)
            if found < LEAST_CONTRAST:
                pale[number, found].append(text)
        for (number, found), texts in pale.items():
            more = f" and {len(texts) - 1} more" if len(texts) > 1 else ""
            yield f"{number} {texts[0]!r}{more}: a contrast of {found}"

    def misplaced(self):
        """Controls outside of their window or over one another."""
        shown = [(c, k) for _, c, k in self.shown()]
        for control, _ in shown:
            if within(control["rect"], self.inside) != tuple(control["rect"]):
                yield f"{control['control']} {control['text']!r} at {control['rect']} is outside of {self.inside}"
        for one, (control, kind) in enumerate(shown):
            for other, other_kind in shown[one + 1:]:
                both = within(control["rect"], other["rect"])
                if not is_empty(both) and "picture" not in (kind, other_kind):
                    yield f"{control['control']} {control['text']!r} and {other['control']} {other['text']!r} overlap"

    def defects(self):
        return [*self.misplaced(), *self.cut_texts(), *self.pale_texts()]
