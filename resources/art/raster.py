"""A tiny rasteriser: shapes, paints, and the canvas they are drawn on.

A shape is a list of polygons, a line drawing a list of polylines; both are lists of points. Shapes
are filled by the non-zero rule, so that overlapping polygons of one shape make up a union.
"""
import math
import re

SCANS = 8  # sampled lines a pixel row; along a line the coverage is exact
CURVE_STEPS = 16


# Shapes

def rectangle(x, y, width, height):
    return [[(x, y), (x + width, y), (x + width, y + height), (x, y + height)]]


def ellipse(x, y, radius_x, radius_y=None):
    radius_y = radius_x if radius_y is None else radius_y
    turns = [2 * math.pi * i / 48 for i in range(48)]
    return [[(x + radius_x * math.cos(t), y + radius_y * math.sin(t)) for t in turns]]


def rounded(x, y, width, height, radius):
    radius = min(radius, width / 2, height / 2)
    corners = ((x + width - radius, y + height - radius), (x + radius, y + height - radius),
               (x + radius, y + radius), (x + width - radius, y + radius))
    points = []
    for quarter, (cx, cy) in enumerate(corners):
        for step in range(9):
            turn = math.pi / 2 * (quarter + step / 8)
            points.append((cx + radius * math.cos(turn), cy + radius * math.sin(turn)))
    return [points]


def path(text):
    """Points of a path in the notation of SVG, with absolute M, L, C (cubic) and Z only."""
    lines = []
    for command, numbers in re.findall(r"([MLCZ])([^MLCZ]*)", text):
        values = [float(number) for number in numbers.replace(",", " ").split()]
        points = list(zip(values[::2], values[1::2]))
        if command == "M":
            lines.append(points)
        elif command == "L":
            lines[-1] += points
        elif command == "C":
            for i in range(0, len(points), 3):
                lines[-1] += _curve(lines[-1][-1], *points[i:i + 3])
        else:
            lines[-1].append(lines[-1][0])
    return lines


def _curve(a, b, c, d):
    points = []
    for step in range(1, CURVE_STEPS + 1):
        t = step / CURVE_STEPS
        weights = ((1 - t) ** 3, 3 * t * (1 - t) ** 2, 3 * t * t * (1 - t), t ** 3)
        points.append(tuple(sum(w * p[axis] for w, p in zip(weights, (a, b, c, d)))
                            for axis in (0, 1)))
    return points


def thick(lines, width):
    """The shape of a pen of this width, with round ends and joints, drawn along the lines."""
    shape = []
    for line in lines:
        shape += [polygon for point in line for polygon in ellipse(*point, width / 2)]
        for (x0, y0), (x1, y1) in zip(line, line[1:]):
            length = math.hypot(x1 - x0, y1 - y0)
            if length:
                dx, dy = (x1 - x0) / length * width / 2, (y1 - y0) / length * width / 2
                # Turns the same way as the ellipses, or the union would have holes.
                shape.append([(x0 + dy, y0 - dx), (x1 + dy, y1 - dx),
                              (x1 - dy, y1 + dx), (x0 - dy, y0 + dx)])
    return shape


def moved(shape, x, y, scale_x=1, scale_y=None):
    scale_y = scale_x if scale_y is None else scale_y
    return [[(x + px * scale_x, y + py * scale_y) for px, py in polygon] for polygon in shape]


# Paints: functions of a point that give red, green, blue (0 to 255) and opacity (0 to 1)

def rgba(text):
    values = [int(text[i:i + 2], 16) for i in range(1, len(text), 2)]
    return (*values[:3], values[3] / 255 if len(values) > 3 else 1.0)


def _mixed(first, last, share):
    share = min(max(share, 0.0), 1.0)
    return tuple(a + (b - a) * share for a, b in zip(first, last))


def flat(color):
    color = rgba(color)
    return lambda x, y: color


def linear(start, end, first, last):
    """From the first colour at one point to the last colour at another."""
    first, last = rgba(first), rgba(last)
    dx, dy = end[0] - start[0], end[1] - start[1]
    square = dx * dx + dy * dy
    return lambda x, y: _mixed(first, last,
                               ((x - start[0]) * dx + (y - start[1]) * dy) / square)


def radial(x, y, radius_x, radius_y, inner, outer):
    inner, outer = rgba(inner), rgba(outer)
    return lambda px, py: _mixed(inner, outer,
                                 math.hypot((px - x) / radius_x, (py - y) / radius_y))


# The canvas

class Canvas:
    """Pixels of straight red, green, blue and opacity, row by row from the top."""

    def __init__(self, width, height, ground="#00000000"):
        self.width, self.height = width, height
        self.pixels = [rgba(ground)] * (width * height)
        self._mask = None

    def fill(self, shape, paint):
        paint = flat(paint) if isinstance(paint, str) else paint
        for place, share in self._coverage(shape):
            color = paint(place % self.width + 0.5, place // self.width + 0.5)
            self.pixels[place] = _over(self.pixels[place], color, share)

    def stroke(self, lines, width, paint):
        self.fill(thick(lines, width), paint)

    def clip(self, shape=None):
        """Keeps what is drawn from now on inside the shape; without one, ends that."""
        self._mask = None
        if shape is not None:
            self._mask = dict(self._coverage(shape))

    def _coverage(self, shape):
        edges = _edges(shape)
        if not edges:
            return
        top = max(0, math.floor(min(edge[0] for edge in edges)))
        bottom = min(self.height, math.ceil(max(edge[1] for edge in edges)))
        for row in range(top, bottom):
            for column, share in enumerate(self._row_coverage(edges, row)):
                place = row * self.width + column
                if self._mask is not None:
                    share *= self._mask.get(place, 0)
                if share > 0:
                    yield place, min(share, 1.0)

    def _row_coverage(self, edges, row):
        shares = [0.0] * self.width
        near = [edge for edge in edges if edge[0] < row + 1 and edge[1] > row]
        for scan in range(SCANS):
            for left, right in _spans(near, row + (scan + 0.5) / SCANS):
                left, right = max(left, 0), min(right, self.width)
                for column in range(int(left), math.ceil(right)):
                    shares[column] += (min(right, column + 1) - max(left, column)) / SCANS
        return shares


def _edges(shape):
    """Top, bottom, the line's x at y = 0, its slope, and whether it runs down or up."""
    edges = []
    for polygon in shape:
        for (x0, y0), (x1, y1) in zip(polygon, polygon[1:] + polygon[:1]):
            if y0 != y1:
                slope = (x1 - x0) / (y1 - y0)
                edges.append((min(y0, y1), max(y0, y1), x0 - y0 * slope, slope,
                              1 if y0 < y1 else -1))
    return edges


def _spans(edges, y):
    crossings = sorted((x + slope * y, way) for top, bottom, x, slope, way in edges
                       if top <= y < bottom)
    winding = 0
    for x, way in crossings:
        if winding == 0:
            left = x
        winding += way
        if winding == 0:
            yield left, x


def _over(below, color, share):
    opacity = color[3] * share
    whole = opacity + below[3] * (1 - opacity)
    if whole == 0:
        return below
    return (*((color[i] * opacity + below[i] * below[3] * (1 - opacity)) / whole
              for i in range(3)), whole)


# Whole pictures

class Picture:
    """A finished picture: rows of whole red, green, blue and opacity from 0 to 255."""

    def __init__(self, rows):
        self.rows = rows
        self.width, self.height = len(rows[0]), len(rows)

    @classmethod
    def of(cls, canvas):
        pixels = [(*(int(value + 0.5) for value in pixel[:3]), int(pixel[3] * 255 + 0.5))
                  for pixel in canvas.pixels]
        return cls([pixels[i:i + canvas.width] for i in range(0, len(pixels), canvas.width)])

    def mirrored(self):
        return Picture([row[::-1] for row in self.rows])

    def half_turned(self):
        return Picture([row[::-1] for row in self.rows[::-1]])

    def quarter_turned(self):
        """Clockwise."""
        return Picture([list(column) for column in zip(*self.rows[::-1])])
