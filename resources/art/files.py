"""Palettes, and the formats of files: BMP and ICO for the library, PNG for a look at the art."""
import collections
import struct
import zlib

from raster import Picture

ROUNDS = 6  # after which a palette hardly changes any more


# Palettes

def colors_of(picture):
    return {pixel[:3] for row in picture.rows for pixel in row}


def reduced(picture, limit, kept):
    """The picture in at most `limit` colours.

    Those of the kept colours that the picture has stay as they are. So does its ground, which has
    to go over into what lies around the picture.
    """
    colors = colors_of(picture)
    if len(colors) <= limit:
        return picture
    palette = _palette(picture, limit, sorted({picture.rows[0][0][:3], *kept} & colors))
    nearby = {color: palette[_nearest(color, palette)] for color in colors}
    return Picture([[nearby[pixel[:3]] for pixel in row] for row in picture.rows])


def _palette(picture, limit, fixed):
    counts = collections.Counter(pixel[:3] for row in picture.rows for pixel in row)
    # By the root, or large areas would leave no colours for small but telling ones.
    weights = {color: count ** 0.5 for color, count in sorted(counts.items())
               if color not in fixed}
    found = [_mean(box, weights) for box in _boxes(weights, limit - len(fixed))]
    for _ in range(ROUNDS):
        found = _settled(fixed, found, weights)
    return fixed + found


def _boxes(weights, limit):
    """Cuts the colours into boxes, the one with the most to lose first."""
    boxes = [sorted(weights)]
    while len(boxes) < limit:
        box = max(boxes, key=lambda colors: _spread(colors, weights)[0])
        axis = _spread(box, weights)[1]
        middle = _mean(box, weights)[axis]
        parts = ([color for color in box if color[axis] <= middle],
                 [color for color in box if color[axis] > middle])
        if not all(parts):
            break
        boxes.remove(box)
        boxes += parts
    return boxes


def _spread(colors, weights):
    sides = [max(color[axis] for color in colors) - min(color[axis] for color in colors)
             for axis in range(3)]
    side = max(sides)
    return side * side * sum(weights[color] for color in colors), sides.index(side)


def _mean(colors, weights):
    whole = sum(weights[color] for color in colors)
    return tuple(int(sum(color[axis] * weights[color] for color in colors) / whole + 0.5)
                 for axis in range(3))


def _settled(fixed, found, weights):
    palette = fixed + found
    groups = [[] for _ in palette]
    for color in weights:
        groups[_nearest(color, palette)].append(color)
    return [_mean(group, weights) if group else color
            for group, color in zip(groups[len(fixed):], found)]


def _nearest(color, palette):
    r, g, b = color
    distances = [3 * (r - x) ** 2 + 4 * (g - y) ** 2 + 2 * (b - z) ** 2 for x, y, z in palette]
    return distances.index(min(distances))


# Formats

def bmp(picture, bits):
    """A picture with a palette, by 1, 4 or 8 bits a pixel."""
    palette = sorted(colors_of(picture))
    places = {color: place for place, color in enumerate(palette)}
    pixels = b"".join(_packed([places[pixel[:3]] for pixel in row], bits)
                      for row in reversed(picture.rows))
    colors = b"".join(bytes((b, g, r, 0)) for r, g, b in palette)
    info = struct.pack("<IiiHHIIiiII", 40, picture.width, picture.height, 1, bits, 0,
                       len(pixels), 0, 0, len(palette), 0)
    start = 14 + len(info) + len(colors)
    head = struct.pack("<2sIHHI", b"BM", start + len(pixels), 0, 0, start)
    return head + info + colors + pixels


def _packed(values, bits):
    """The values side by side, filled up to whole groups of four bytes."""
    number = 0
    for value in values:
        number = number << bits | value
    used = len(values) * bits
    whole = (used + 31) // 32 * 32
    return (number << (whole - used)).to_bytes(whole // 8, "big")


def ico(pictures):
    images = [_icon_image(picture) for picture in pictures]
    entries = b""
    start = 6 + 16 * len(pictures)
    for picture, image in zip(pictures, images):
        entries += struct.pack("<BBBBHHII", picture.width, picture.height, 0, 0, 1, 32,
                               len(image), start)
        start += len(image)
    return struct.pack("<HHH", 0, 1, len(pictures)) + entries + b"".join(images)


def _icon_image(picture):
    rows = picture.rows[::-1]
    pixels = b"".join(bytes((b, g, r, a)) if a else bytes(4) for row in rows
                      for r, g, b, a in row)
    # A mask bit keeps what is behind the icon where opacities are not understood.
    mask = b"".join(_packed([int(pixel[3] == 0) for pixel in row], 1) for row in rows)
    # The height counts the colours and the mask.
    return struct.pack("<IiiHHIIiiII", 40, picture.width, 2 * picture.height, 1, 32, 0,
                       len(pixels) + len(mask), 0, 0, 0, 0) + pixels + mask


def png(picture):
    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data
                + struct.pack(">I", zlib.crc32(kind + data)))

    rows = b"".join(b"\0" + bytes(value for pixel in row for value in pixel[:3])
                    for row in picture.rows)
    return (b"\x89PNG\r\n\x1a\n"
            + chunk(b"IHDR", struct.pack(">IIBBBBB", picture.width, picture.height, 8, 2, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))
