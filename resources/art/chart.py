"""The position calibration chart, a card that is printed dot for dot: frames at whole millimetres from
the edges, by which people see how far the print is off.
"""
from PIL import Image, ImageDraw

import motifs

SIZE = 642, 1014  # a card on end, 300 dots an inch
MILLIMETER = 300 / 25.4
FRAMES = 4
BLACK, WHITE = motifs.BLACK, motifs.WHITE


def dots(millimeters):
    return round(millimeters * MILLIMETER)


def frames(pen):
    """Each a millimetre further inside, the outer ones thinner: those are cut off first."""
    for number in range(1, FRAMES + 1):
        inset = dots(number)
        pen.rectangle((inset, inset, SIZE[0] - 1 - inset, SIZE[1] - 1 - inset), outline=BLACK,
                      width=(number + 2) // 2)


def rulers(pen):
    """A mark a millimetre along each edge from its middle, every fifth a longer one."""
    for along in (0, 1):
        middle, last = (SIZE[along] - 1) / 2, SIZE[1 - along] - 1
        for count in range(-int(middle / MILLIMETER), int(middle / MILLIMETER) + 1):
            at = round(middle + count * MILLIMETER)
            length = dots(1.6 if count % 5 == 0 else 0.8)
            for edge, inside in ((0, length), (last, last - length)):
                line = (at, edge, at, inside) if along == 0 else (edge, at, inside, at)
                pen.line(line, BLACK, 2 if count % 5 == 0 else 1)


def numbers(image):
    """The frames' distances, in a gap of each frame at the middle of each edge."""
    for number in range(1, FRAMES + 1):
        canvas = motifs.Canvas(18, 22, WHITE)
        motifs.write(canvas, str(number), 5 + 5j, 12, 0, 2)
        digit = canvas.picture()
        aside = (number - (FRAMES + 1) / 2) * 2 * MILLIMETER  # one beside the other
        inset = dots(number)
        for x, y in ((SIZE[0] / 2 + aside, inset), (SIZE[0] / 2 + aside, SIZE[1] - 1 - inset),
                     (inset, SIZE[1] / 2 + aside), (SIZE[0] - 1 - inset, SIZE[1] / 2 + aside)):
            image.paste(digit, (round(x - digit.width / 2), round(y - digit.height / 2)))


def middle(pen):
    x, y = SIZE[0] // 2, SIZE[1] // 2
    arm = dots(9)
    pen.line((x - arm, y, x + arm, y), BLACK, 2)
    pen.line((x, y - arm, x, y + arm), BLACK, 2)
    for radius in (dots(3), dots(6)):
        pen.ellipse((x - radius, y - radius, x + radius, y + radius), outline=BLACK, width=2)
    # The upper end, since a card can be looked at either way
    top, half, height = dots(9), dots(4), dots(7)
    pen.polygon(((x, top), (x + half, top + height), (x - half, top + height)), BLACK)


def calibration():
    image = Image.new("RGB", SIZE, WHITE)
    pen = ImageDraw.Draw(image)
    frames(pen)
    rulers(pen)
    numbers(image)
    middle(pen)
    return image.convert("1", dither=Image.Dither.NONE).convert("RGB")
