"""What has changed between two pictures of a screen."""


def changed_boxes(before, after, width, gap=12):
    """(x, y, width, height) of what differs between two pictures, largest first. What is less than
    `gap` pixels apart belongs together."""
    row_size = width * 4
    boxes = []
    for y in range(len(before) // row_size):
        old, new = (picture[y * row_size:(y + 1) * row_size] for picture in (before, after))
        if old != new:
            for start, end in _changed_runs(old, new, gap):
                _add(boxes, [start, y, end, y + 1], gap)
    return sorted(((left, top, right - left, bottom - top) for left, top, right, bottom in boxes),
                  key=lambda box: -box[2] * box[3])


def _changed_runs(old, new, gap):
    """(first, behind the last) of the changed pixels of a row."""
    runs = []
    for x in range(len(old) // 4):
        if old[4 * x:4 * x + 3] != new[4 * x:4 * x + 3]:
            if runs and x - runs[-1][1] < gap:
                runs[-1][1] = x + 1
            else:
                runs.append([x, x + 1])
    return runs


def _add(boxes, box, gap):
    """Joins the box with all that it touches, and these with each other."""
    near = [other for other in boxes if box[0] - gap < other[2] and other[0] < box[2] + gap
            and box[1] - gap < other[3]]
    for other in near:
        boxes.remove(other)
        box = [min(box[0], other[0]), min(box[1], other[1]),
               max(box[2], other[2]), max(box[3], other[3])]
    boxes.append(box)
