"""The order in which the eye goes through what stands in a window."""


def widest_gap(boxes, low, high):
    """The widest gap that goes across all boxes, as (width, where it ends), or None. `low` and `high` are the places of
    a rectangle's ends on the axis."""
    found, end = None, None
    for rectangle in sorted(boxes.values(), key=lambda box: box[low]):
        if end is not None and rectangle[low] >= end and (found is None or rectangle[low] - end > found[0]):
            found = (rectangle[low] - end, rectangle[low])
        end = rectangle[high] if end is None else max(end, rectangle[high])
    return found


def reading_order(boxes):
    """The numbers of rectangles (left, top, right, bottom) in the order in which they are read. The widest gap parts
    what is above or left of it from the rest, and so on in each part. Of equal gaps the one between columns counts."""
    rows, columns = widest_gap(boxes, 1, 3), widest_gap(boxes, 0, 2)
    if rows is None and columns is None:
        return sorted(boxes, key=lambda number: (boxes[number][1], boxes[number][0]))
    low, (_, place) = (1, rows) if columns is None or (rows is not None and rows[0] > columns[0]) else (0, columns)
    parts = ({n: box for n, box in boxes.items() if (box[low] < place) == before} for before in (True, False))
    return [number for part in parts for number in reading_order(part)]
