"""Reading screenshots: what changed between two of them, as rectangles, and how much an icon
stands out from the panel behind it."""

import numpy


class Rect:
    def __init__(self, x, y, width, height):
        self.x, self.y, self.width, self.height = int(x), int(y), int(width), int(height)

    @property
    def centre(self):
        return self.x + self.width // 2, self.y + self.height // 2

    def gap_to(self, other):
        """The distance between the nearest edges of two rectangles (0 when they touch or overlap)."""
        dx = max(other.x - (self.x + self.width), self.x - (other.x + other.width), 0)
        dy = max(other.y - (self.y + self.height), self.y - (other.y + other.height), 0)
        return int(max(dx, dy))

    def overlaps(self, other):
        return self.overlap_fraction(other) > 0

    def overlap_fraction(self, other):
        """How much of this rectangle the other covers, 0 to 1."""
        width = min(self.x + self.width, other.x + other.width) - max(self.x, other.x)
        height = min(self.y + self.height, other.y + other.height) - max(self.y, other.y)
        return max(width, 0) * max(height, 0) / max(self.width * self.height, 1)

    def __repr__(self):
        return f'{self.width}x{self.height}+{self.x}+{self.y}'


def read_ppm(data):
    """A binary PPM (P6, 8 bits) as an array of rows of (red, green, blue)."""
    fields = []
    at = 0
    while len(fields) < 4:
        while data[at:at + 1].isspace():
            at += 1
        if data[at:at + 1] == b'#':
            at = data.index(b'\n', at)
            continue
        end = at
        while not data[end:end + 1].isspace():
            end += 1
        fields.append(data[at:end])
        at = end
    at += 1  # the one whitespace byte after the maximum value
    if fields[0] != b'P6' or int(fields[3]) != 255:
        raise ValueError('not an 8-bit binary PPM')
    width, height = int(fields[1]), int(fields[2])
    return numpy.frombuffer(data, numpy.uint8, width * height * 3, at).reshape(height, width, 3)


def write_png(image, path):
    import gi
    gi.require_version('GdkPixbuf', '2.0')
    from gi.repository import GdkPixbuf, GLib
    height, width, _ = image.shape
    pixbuf = GdkPixbuf.Pixbuf.new_from_bytes(GLib.Bytes.new(numpy.ascontiguousarray(image).tobytes()),
                                             GdkPixbuf.Colorspace.RGB, False, 8, width, height, width * 3)
    pixbuf.savev(path, 'png', [], [])
    return path


def changed_mask(before, after, threshold=24):
    return numpy.abs(before.astype(numpy.int16) - after.astype(numpy.int16)).max(axis=2) > threshold


def _runs(flags, gap):
    """Runs of true values in a 1-D array, joined across gaps up to `gap` long: [(start, end)]."""
    runs = []
    for index in numpy.flatnonzero(flags):
        if runs and index - runs[-1][1] <= gap + 1:
            runs[-1][1] = index
        else:
            runs.append([index, index])
    return [(start, end + 1) for start, end in runs]


def regions(mask, gap=6):
    """The rectangles of changed pixels, split where a band of `gap` unchanged columns or rows
    separates them (two passes, enough for a panel's items, a menu and a popover)."""
    found = []
    for x0, x1 in _runs(mask.any(axis=0), gap):
        columns = mask[:, x0:x1]
        for y0, y1 in _runs(columns.any(axis=1), gap):
            block = columns[y0:y1]
            for bx0, bx1 in _runs(block.any(axis=0), gap):
                ys = numpy.flatnonzero(block[:, bx0:bx1].any(axis=1))
                found.append(Rect(x0 + bx0, y0 + ys[0], bx1 - bx0, ys[-1] - ys[0] + 1))
    return found


def luma(pixels):
    return (0.2126 * pixels[..., 0] + 0.7152 * pixels[..., 1] + 0.0722 * pixels[..., 2]) / 255.0


def icon_contrast(image, rect):
    """How far the icon's most distinct pixels are, in luma (0 to 1), from what is behind it: the
    98th percentile of the difference from the region's edge colour (the panel or the item's own
    background, hovered or not) over the region."""
    area = image[rect.y:rect.y + rect.height, rect.x:rect.x + rect.width].astype(float)
    edge = numpy.concatenate([area[0], area[-1], area[:, 0], area[:, -1]])
    background = luma(numpy.median(edge, axis=0))
    return float(numpy.percentile(numpy.abs(luma(area) - background), 98))


def moved_from_beside(before, after, rect, reach=64):
    """Whether what `after` shows in `rect` is what `before` showed a little to the left or right
    (a panel item that made room for a new one), rather than something new."""
    rows = slice(rect.y, rect.y + rect.height)
    now = after[rows, rect.x:rect.x + rect.width].astype(numpy.int16)
    for dx in range(-reach, reach + 1):
        x = rect.x + dx
        if dx == 0 or x < 0 or x + rect.width > before.shape[1]:
            continue
        then = before[rows, x:x + rect.width].astype(numpy.int16)
        if numpy.abs(now - then).max(axis=2).mean() < 4:
            return True
    return False


def last_row(image, rect, inset=4):
    """The last line of text in a popover or menu shown in `rect`: the lowest band of pixels that
    stand out from its background, at least a letter's height (a divider or a border is thinner),
    as the rectangle of those pixels; None when there is no text."""
    area = image[rect.y + inset:rect.y + rect.height - inset, rect.x + inset:rect.x + rect.width - inset]
    background = numpy.median(area.reshape(-1, 3), axis=0)
    ink = numpy.abs(area.astype(numpy.int16) - background.astype(numpy.int16)).max(axis=2) > 64
    for y0, y1 in reversed(_runs(ink.any(axis=1), 1)):
        if y1 - y0 < 6:
            continue
        xs = numpy.flatnonzero(ink[y0:y1].any(axis=0))
        return Rect(rect.x + inset + xs[0], rect.y + inset + y0, xs[-1] - xs[0] + 1, y1 - y0)
    return None
