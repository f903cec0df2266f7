"""The order in which the eye goes through what stands in a window."""


def bands(boxes, low, high):
    """Groups of boxes between which a line can be drawn across the whole: `low` and `high` are the places of a
    rectangle's two ends on the axis."""
    groups, end = [], None
    for number, rectangle in sorted(boxes.items(), key=lambda item: item[1][low]):
        if end is None or rectangle[low] >= end:
            groups.append({})
            end = rectangle[high]
        groups[-1][number] = rectangle
        end = max(end, rectangle[high])
    return groups


def reading_order(boxes):
    """The numbers of rectangles (left, top, right, bottom) from top to bottom, and beside each other from left to
    right. A column that stands beside several rows comes before or after all of them."""
    for low, high in ((1, 3), (0, 2)):
        groups = bands(boxes, low, high)
        if len(groups) > 1:
            return [number for group in groups for number in reading_order(group)]
    return sorted(boxes, key=lambda number: (boxes[number][1], boxes[number][0]))
