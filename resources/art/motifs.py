"""The motifs of the pictures, one function each, and the canvas that they are drawn on.

Boxes are (x, y, width, height) in pixels. Outlines are paths in SVG's notation, with absolute M, C
and Z only. A paint is a colour, or two for a gradient from the shape's top left to its bottom
right.
"""
import re

from PIL import Image, ImageColor, ImageDraw, ImageFont

INK = "#3D4B5E"
WHITE = "#FFFFFF"
BLACK = "#000000"
DESK = "#DDE5EE"
DESK_DOT = "#C8D3E0"
DESK_EDGE = "#B4C2D2"
PAPER = "#F4F8FB"
CARD = "#E7F0F9"
PHOTO = "#97CADB"
STRIPE = "#2A313C"
FIRST = "#2B7CC7"   # what belongs to a document's first page,
SECOND = "#E5803A"  # and to its second
PRINTER = "#4F6179"
LINK_EDGE = "#1B5288"
SKIN = "#F0C3A0"
HAIR = "#5A3220"
JACKET = "#C2476B"
GOLD = ("#FAE9B0", "#CF9F3C")
GOLD_LINE = "#7E5E1C"

SUN = "#F0A323"
RED, GREEN, BLUE = "#DC4A45", "#3FA658", "#3B62C4"
CYAN, MAGENTA, YELLOW = "#22B3DE", "#DA3E97", "#F7D633"

# The colours that stay as they are where a palette has too few for all
FLAT_COLORS = [ImageColor.getrgb(color) for color in (
    WHITE, BLACK, INK, PAPER, CARD, DESK, DESK_DOT, DESK_EDGE, STRIPE, FIRST, SECOND,
    PHOTO, SKIN, HAIR, JACKET, PRINTER, LINK_EDGE, CYAN, MAGENTA, YELLOW, GREEN)]

SCALE = 8  # of what is drawn, before it is made smaller to smooth its edges
CURVE_STEPS = 16


# Shapes: functions that draw themselves on a mask

def rectangle(x, y, width, height, radius=0, line=0):
    """Filled, or a frame when it has a line."""
    corners = (x * SCALE, y * SCALE, (x + width) * SCALE - 1, (y + height) * SCALE - 1)
    return lambda pen: pen.rounded_rectangle(
        corners, radius * SCALE, None if line else 255, 255, max(1, line * SCALE))


def ellipse(x, y, radius_x, radius_y):
    corners = ((x - radius_x) * SCALE, (y - radius_y) * SCALE,
               (x + radius_x) * SCALE - 1, (y + radius_y) * SCALE - 1)
    return lambda pen: pen.ellipse(corners, 255)


def lines_of(outline, place=0, scale=1):
    """The points of a path, as complex numbers."""
    lines = []
    for command, numbers in re.findall("([MCZ])([^MCZ]*)", outline):
        values = [float(number) for number in numbers.split()]
        points = [complex(x, y) * scale + place for x, y in zip(values[::2], values[1::2])]
        if command == "M":
            lines.append(points)
        elif command == "Z":
            lines[-1].append(lines[-1][0])
        while command == "C" and points:
            a, (b, c, d), points = lines[-1][-1], points[:3], points[3:]
            for step in range(1, CURVE_STEPS + 1):
                t = step / CURVE_STEPS
                s = 1 - t
                lines[-1].append(s**3 * a + 3 * s * s * t * b + 3 * s * t * t * c + t**3 * d)
    return [[(point.real * SCALE, point.imag * SCALE) for point in line] for line in lines]


def area(*path):
    def draw(pen):
        for line in lines_of(*path):
            pen.polygon(line, 255)
    return draw


def stroke(width, *path):
    """The lines of a round pen."""
    radius = width * SCALE / 2

    def draw(pen):
        for line in lines_of(*path):
            pen.line(line, 255, round(width * SCALE))
            for x, y in line:
                pen.ellipse((x - radius, y - radius, x + radius, y + radius), 255)
    return draw


class Canvas:
    def __init__(self, width, height, ground=None):
        self.size = (width * SCALE, height * SCALE)
        self.image = (Image.new("RGB", self.size, ground) if ground
                      else Image.new("RGBA", self.size))

    def fill(self, shape, paint):
        mask = Image.new("L", self.size)
        shape(ImageDraw.Draw(mask))
        if isinstance(paint, str):
            self.image.paste(paint, mask=mask)
            return
        box = mask.getbbox()
        corners = Image.new("L", (2, 2))
        corners.putdata((0, 128, 128, 255))
        size = (box[2] - box[0], box[3] - box[1])
        # From the middle of the first pixel to the middle of the last
        blend = corners.resize(size, Image.Resampling.BILINEAR, (0.5, 0.5, 1.5, 1.5))
        first, last = (Image.new("RGB", size, color) for color in paint)
        self.image.paste(Image.composite(last, first, blend), box, mask.crop(box))

    def glow(self, x, y, radius_x, radius_y, color, opacity=1.0):
        """A spot that fades out from its middle."""
        size = (round(2 * radius_x * SCALE), round(2 * radius_y * SCALE))
        distance = Image.radial_gradient("L").resize(size)  # 255 in the corners only
        mask = distance.point(lambda value: max(0, 255 - value * 2 ** 0.5) * opacity)
        self.image.paste(color, (round((x - radius_x) * SCALE), round((y - radius_y) * SCALE)),
                         mask)

    def picture(self):
        return self.image.reduce(SCALE)


# Small parts

def box_of(box, part):
    """A part in shares of a box, on whole pixels to keep small pictures crisp."""
    x, y, width, height = box
    left, top = round(x + part[0] * width), round(y + part[1] * height)
    return (left, top, round(x + (part[0] + part[2]) * width) - left,
            round(y + (part[1] + part[3]) * height) - top)


BUST = (  # 100 wide and 100 high
    (HAIR, "M24 52 C20 10 80 10 76 52 M24 52 76 52 78 70 22 70 Z"),
    (JACKET, "M2 100 C2 76 24 72 40 68 C50 74 50 74 60 68 C76 72 98 76 98 100 Z"),
    (SKIN, "M60 54 40 54 40 68 C44 80 56 80 60 68 Z"),
    (SKIN, "M30 40 C30 20 70 20 70 40 C70 58 60 66 50 66 C40 66 30 58 30 40 Z"),
    (HAIR, "M27 46 C24 14 76 12 73 46 C70 40 66 34 60 28 C52 36 36 36 27 46 Z"),
)


def bust(canvas, box):
    """A person's head and shoulders, small."""
    x, y, width, height = box
    canvas.fill(rectangle(*box), PHOTO)
    for color, outline in BUST:
        canvas.fill(area(outline, complex(x, y + height - width), width / 100), color)


# By whether the card is a portrait one: the band, the photo, and the lines of text
FRONT = {
    False: ((0, 0, 1, .2), (.08, .32, .32, .53), ((.5, .42, .42), (.5, .61, .42), (.5, .8, .26))),
    True: ((0, 0, 1, .13), (.22, .23, .56, .36), ((.16, .72, .68), (.16, .84, .44))),
}


def card_front(canvas, inside, line):
    band, photo, texts = FRONT[inside[3] > inside[2]]
    canvas.fill(rectangle(*box_of(inside, band)), FIRST)
    bust(canvas, box_of(inside, photo))
    for text in texts:
        left, top, width, _ = box_of(inside, (*text, 0))
        canvas.fill(rectangle(left, top - line // 2, width, line, line / 3), INK)


# The stripe, and the panel to sign on
BACK = {
    False: ((0, .16, 1, .26), (.09, .58, .58, .24)),
    True: ((.16, 0, .26, 1), (.58, .09, .24, .58)),
}


def card_back(canvas, inside, line):
    stripe, panel = BACK[inside[3] > inside[2]]
    canvas.fill(rectangle(*box_of(inside, stripe)), STRIPE)
    canvas.fill(rectangle(*box_of(inside, panel), line / 2), DESK_EDGE)


def card(canvas, box, line, side):
    x, y, width, height = box
    radius = 0.075 * max(width, height) + line / 2
    canvas.fill(rectangle(*box, radius), CARD)
    side(canvas, (x + line, y + line, width - 2 * line, height - 2 * line), line)
    canvas.fill(rectangle(*box, radius, line), INK)


# The preview: the desk, the mark of the back, and what lies on the card

def tile():
    canvas = Canvas(10, 10, DESK)
    for x, y in ((2, 2), (7, 7)):
        canvas.fill(rectangle(x, y, 1, 1), DESK_DOT)
    return canvas.picture()


# By whether the card is a portrait one: the card, the turn around it, the arrow's head
BACK_MARK = {
    False: ((6, 7, 28, 18), "M6 29 C6 39 37 40 37 29", "M37 20 42 29 32 29 Z"),
    True: ((12, 4, 18, 28), "M7 28 C7 43 35 43 35 31", "M35 22 40 31 30 31 Z"),
}


def back_mark(is_portrait):
    canvas = Canvas(48, 48, DESK)
    canvas.fill(rectangle(0.5, 0.5, 43, 43, 7, 1), DESK_EDGE)
    box, turn, head = BACK_MARK[is_portrait]
    card(canvas, box, 2, card_back)
    # A gap in the ground's colour where the arrow passes before the card
    canvas.fill(stroke(5, turn), DESK)
    canvas.fill(stroke(2, head), DESK)
    canvas.fill(stroke(3, turn), FIRST)
    canvas.fill(area(head), FIRST)
    return canvas.picture()


PORTRAIT = (
    # The hair behind
    (area("M12 42 C9 15 22 7 32 7 C45 7 53 17 51 40 C51 50 54 57 50 64 "
          "C40 67 22 67 13 64 C9 57 12 50 12 42 Z"), ("#8A4B2A", "#3A1C12")),
    # The jacket, the shirt, the neck, and the shirt's collar
    (area("M1 83 C2 69 10 67 23 61.5 C30 65 34 65 40 61.5 C52 67 60 69 61 83 Z"),
     ("#DC5674", "#7A2358")),
    (area("M22 62 29 83 34 83 41 62 Z"), ("#FFFFFF", "#D5E0EC")),
    (area("M25 48 25 61 31.5 70 38 61 38 48 Z"), ("#D4956E", "#F0C09A")),
    (area("M24.6 58.6 31.5 69 27 74 21.5 62.5 Z"), "#FFFFFF"),
    (area("M38.4 58.6 31.5 69 36 74 41.5 62.5 Z"), "#E9F0F7"),
    # The lapels
    (area("M21 62.3 29.5 83 24.5 83 15.5 72.6 18.8 71 16.2 67 Z"), ("#EC7D92", "#B93F66")),
    (area("M42 62.3 33.5 83 38.5 83 47.5 72.6 44.2 71 46.8 67 Z"), ("#C04A6E", "#8E2C5C")),
    # The face
    (area("M19 34 C19 20 25 15 32 15 C39 15 44.5 20 44.5 34 C44.5 46 38 55 32 55 "
          "C25.5 55 19 46 19 34 Z"), ("#FFDDC0", "#E2A27C")),
)
HEAD = (
    # The fringe, parted on one side, and its shine
    (area("M17 42 C14 18 24 9 33 9.5 C44 10 50 20 47 42 C45.5 32 43 26 38 20 "
          "C33 27 22 28 19.5 34 Z"), ("#9C5832", "#4A2416")),
    (stroke(1.6, "M21.5 24 C23 18 27 14.5 31.5 14"), ("#8E4E2C", "#C07A4A")),
    # The eyes, their lids and brows
    *((ellipse(x, 36.2, 2.9, 1.8), "#FFFFFF") for x in (26, 37.6)),
    *((ellipse(x, 36.2, 1.7, 1.8), "#3B6B7C") for x in (26.2, 37.8)),
    *((ellipse(x, 36.2, 0.9, 0.9), "#14222C") for x in (26.2, 37.8)),
    (stroke(0.9, "M22.8 35.6 C24 33.8 28 33.8 29.2 35.6 M34.4 35.6 C35.6 33.8 39.6 33.8 "
            "40.8 35.6"), "#3A1C12"),
    (stroke(1.2, "M22.8 31.6 C24.5 30.2 27.5 30.2 29.3 31.4 M34.3 31.4 C36.2 30.2 39.2 30.2 "
            "40.8 31.6"), "#6B3A22"),
    # The nose and the mouth
    (stroke(0.9, "M32.2 36.5 C32.6 39.5 34 41 33.2 42.4 C32.4 43 31.4 43 30.6 42.6"), "#C98660"),
    (area("M27.2 46.6 C29 45.8 31 45.4 32 46 C33 45.4 35 45.8 36.8 46.6 "
          "C35 50.4 29 50.4 27.2 46.6 Z"), "#C6434C"),
    (area("M28.6 46.8 C30.6 47.2 33.4 47.2 35.4 46.8 C34.4 48.2 29.6 48.2 28.6 46.8 Z"),
     "#FFF4EE"),
)


def portrait():
    canvas = Canvas(62, 82, "#2F86AE")
    canvas.glow(22, 26, 56, 66, "#D6F1EE")
    for shape, paint in PORTRAIT:
        canvas.fill(shape, paint)
    for x in (24.5, 39.5):
        canvas.glow(x, 43, 4, 3, "#E8776F", 0.44)
    for shape, paint in HEAD:
        canvas.fill(shape, paint)
    return canvas.picture()


# Letters of strokes: the width, and the lines on a height of 100 (the widths are to that scale)
GLYPHS = {
    "N": (70, "M0 100 0 0 70 100 70 0"),
    "L": (54, "M0 0 0 100 54 100"),
    "a": (52, "M6 44 C16 32 50 28 50 54 M50 54 50 100 M50 66 C20 62 0 68 0 84 C0 106 44 104 50 80"),
    "m": (88, "M0 100 0 38 M0 60 C2 28 44 30 44 60 M44 100 44 60 C46 28 88 30 88 60 M88 60 88 100"),
    "e": (54, "M0 68 54 68 C54 26 0 26 0 68 C0 106 40 106 52 90"),
    "I": (0, "M0 0 0 100"),
    "D": (62, "M24 100 0 100 0 0 24 0 C76 0 76 100 24 100"),
    " ": (24, ""),
    "1": (46, "M0 24 27 2 27 100 M0 100 50 100"),
    "2": (58, "M2 26 C2 -9 56 -9 56 28 C56 50 2 74 2 100 M2 100 58 100"),
    "3": (56, "M2 12 C20 -8 54 -2 54 24 C54 44 36 48 22 48 C40 48 56 54 56 74 "
              "C56 106 14 108 0 86"),
    "4": (62, "M46 100 46 0 0 68 62 68"),
    "b": (52, "M0 0 0 100 M0 68 C0 28 52 28 52 68 C52 108 0 108 0 68"),
    "M": (84, "M0 100 0 0 42 66 84 0 84 100"),
    "i": (0, "M0 38 0 100 M0 8 0 8.1"),
    "r": (34, "M0 38 0 100 M0 66 C2 48 14 38 34 40"),
    "v": (56, "M0 38 28 100 56 38"),
    "w": (88, "M0 38 22 100 44 44 66 100 88 38"),
}


def write(canvas, text, place, height, gap, width, paint=BLACK):
    """A line of text whose upper left corner and stroke width are given."""
    for character in text:
        advance, outline = GLYPHS[character]
        canvas.fill(stroke(width, outline, place, height / 100), paint)
        place += advance * height / 100 + gap


def card_text():
    canvas = Canvas(69, 43, WHITE)
    write(canvas, "Name", 5 + 4j, 16, 5.4, 3.2)
    write(canvas, "ID 1234", 4.5 + 25j, 9, 3.9, 2)
    canvas.fill(rectangle(3, 38, 63, 1), BLACK)
    canvas.fill(rectangle(3, 40, 42, 1), BLACK)
    return canvas.picture()


def dither():
    """A ball and its shadow, in dots of resin, at the bottom right of a card."""
    canvas = Canvas(96, 96, WHITE)
    canvas.glow(52, 82, 42, 11, BLACK, 0.8)
    canvas.fill(ellipse(47, 45, 41, 41), BLACK)
    canvas.glow(33, 29, 66, 66, WHITE)
    picture = canvas.picture().convert("1")
    # The card's edges lie just outside, but the picture covers the arc of its round corner.
    ImageDraw.Draw(picture).rounded_rectangle((-20, -20, 98, 98), 10, outline=0, width=3)
    return picture.convert("RGB")


def chip():
    canvas = Canvas(31, 31, WHITE)
    canvas.fill(rectangle(1, 3, 29, 25, 5), GOLD)
    canvas.fill(rectangle(1, 3, 29, 25, 5, 1), GOLD_LINE)
    for y in (9, 15, 21):
        canvas.fill(rectangle(2, y, 27, 1), GOLD_LINE)
    canvas.fill(rectangle(15, 4, 1, 23), GOLD_LINE)
    canvas.fill(rectangle(9, 6, 13, 19, 4), GOLD)
    canvas.fill(rectangle(9, 6, 13, 19, 4, 1), GOLD_LINE)
    return canvas.picture()


# The order of pages. The pictures are shown at two fifths of their size: all lines are thick.

LINE = 6
FOLD = 24
ACCENTS = {"1": FIRST, "2": SECOND}


def sheet_of_paper(canvas, box, digit):
    x, y, width, height = box[0] + LINE / 2, box[1] + LINE / 2, box[2] - LINE, box[3] - LINE
    right, bottom = x + width, y + height
    outline = f"M{right - FOLD} {y} {right} {y + FOLD} {right} {bottom} {x} {bottom} {x} {y} Z"
    fold = f"M{right - FOLD} {y} {right - FOLD} {y + FOLD} {right} {y + FOLD}"
    canvas.fill(area(outline), PAPER)
    canvas.fill(area(fold), DESK_EDGE)
    canvas.fill(stroke(LINE, outline + fold), INK)
    write(canvas, digit, complex(x + width / 2 - height * 0.125, y + height * 0.37),
          height * 0.44, 0, 13, ACCENTS[digit])


def arrow(canvas, x, top, bottom, digit):
    neck = bottom - 22
    canvas.fill(rectangle(x - 8, top, 16, neck - top), ACCENTS[digit])
    canvas.fill(area(f"M{x - 21} {neck} {x + 21} {neck} {x} {bottom}"), ACCENTS[digit])


# By whether the card is a portrait one, and the number of pages: for every page the places of its
# sheet, its arrow (the middle, top and bottom) and its card
PAGE_ORDERS = {
    (False, 1): (((57, 14, 96, 120), (105, 144, 192), (20, 204, 170, 107)),),
    (False, 2): (((16, 12, 78, 98), (55, 118, 156), (10, 164, 112, 71)),
                 ((116, 12, 78, 98), (155, 118, 240), (88, 248, 112, 71))),
    (True, 1): (((61, 12, 88, 110), (105, 130, 166), (58, 174, 94, 148)),),
    (True, 2): (((14, 12, 80, 100), (54, 122, 168), (12, 180, 84, 134)),
                ((116, 12, 80, 100), (156, 122, 168), (114, 180, 84, 134))),
}
SIDES = {"both": (card_front, card_back), "front": (card_front,), "back": (card_back,)}


def page_order(is_portrait, sides):
    canvas = Canvas(210, 330, WHITE)
    sides = SIDES[sides]
    places = PAGE_ORDERS[is_portrait, len(sides)]
    for digit, (sheet, way, box), side in zip("12", places, sides):
        sheet_of_paper(canvas, sheet, digit)
        arrow(canvas, *way, digit)
        card(canvas, box, LINE, side)
    return canvas.picture()


# The film beside its place on the card, and how far: La along the card, Lb across

FILM_SHIFT = 34 + 20j


def film_shift(canvas, name, ends, name_place):
    """An arrow with two heads, and lines at right angles to it where it measures from and to."""
    first, last = ends
    along = (last - first) / abs(last - first)
    across = along * 1j
    path = ""
    for end, inwards in ((first, along), (last, -along)):
        left, right = end + 6 * inwards + 3 * across, end + 6 * inwards - 3 * across
        canvas.fill(area(f"M{end.real} {end.imag} {left.real} {left.imag} "
                         f"{right.real} {right.imag} Z"), JACKET)
        a, b = end - 8 * across, end + 8 * across
        path += f"M{a.real} {a.imag} {b.real} {b.imag} "
    a, b = first + 5 * along, last - 5 * along
    canvas.fill(stroke(1, path), JACKET)
    canvas.fill(stroke(1.6, f"M{a.real} {a.imag} {b.real} {b.imag}"), JACKET)
    write(canvas, name, name_place, 14, 3.5, 2, JACKET)


def lamination_position():
    canvas = Canvas(225, 117, WHITE)
    place, (width, height) = 38 + 27j, (112, 64)
    card(canvas, (place.real, place.imag, width, height), 2, card_front)
    covered = place + FILM_SHIFT
    film = (covered.real, covered.imag, width, height, 8)
    bare = canvas.image.copy()
    canvas.fill(rectangle(*film), PHOTO)
    canvas.image = Image.blend(bare, canvas.image, 0.55)
    canvas.fill(rectangle(*film, 2), FIRST)
    # In the middle of pixels, as the lines are one wide
    corner = place + 0.5 + 0.5j
    above, beside = complex(corner.real, 14.5), complex(22.5, corner.imag)
    film_shift(canvas, "La", (above, above + FILM_SHIFT.real), complex(covered.real + 6, 6))
    film_shift(canvas, "Lb", (beside, beside + FILM_SHIFT.imag * 1j), complex(6, covered.imag + 9))
    return canvas.picture()


# What is erased of a rewritable card: the stripe's place, and the whole card's, in its width of 642
# dots

ERASED = {"stripe": (58, 190), "card": (0, 642)}


def erased(name):
    canvas = Canvas(38, 60, WHITE)
    x, y, width, height = box = (0, 0, 38, 60)
    card(canvas, box, 2, card_front)
    left, right = (x + round(end / 642 * width) for end in ERASED[name])
    canvas.fill(rectangle(left, y, right - left, height, 3), SECOND)
    canvas.fill(rectangle(*box, 4, 2), INK)
    return canvas.picture()


# Icons, by the side of the square: the card's place in landscape format, and its lines
ICONS = {32: ((1, 6, 30, 20), 1), 48: ((1, 9, 46, 30), 2)}


def icon(size, is_portrait):
    (x, y, width, height), line = ICONS[size]
    canvas = Canvas(size, size)
    card(canvas, (y, x, height, width) if is_portrait else (x, y, width, height), line, card_front)
    return canvas.picture()


# The icons of the adjustments, 32 pixels square: what a slider's ends stand for

def sun(canvas):
    canvas.fill(ellipse(16, 16, 6, 6), SUN)
    rays = ((16, 3, 16, 7), (16, 25, 16, 29), (3, 16, 7, 16), (25, 16, 29, 16), (7, 7, 9.5, 9.5),
            (22.5, 22.5, 25, 25), (7, 25, 9.5, 22.5), (22.5, 9.5, 25, 7))
    for ray in rays:
        canvas.fill(stroke(2.4, "M{} {} {} {}".format(*ray)), SUN)


def half_disc(canvas):
    canvas.fill(ellipse(16, 16, 11, 11), WHITE)
    canvas.fill(area("M16 5 C1.5 5 1.5 27 16 27 Z"), INK)
    canvas.fill(stroke(1.6, "M16 5 C30.5 5 30.5 27 16 27 C1.5 27 1.5 5 16 5"), INK)


def soft_and_sharp(canvas):
    """A hill whose left side is soft and whose right side has an edge."""
    for step in range(6):
        canvas.fill(stroke(1.8, f"M{5 + 2 * step} 26 {5 + 2 * step} {24 - 3 * step}"),
                    DESK_EDGE if step < 3 else PHOTO)
    canvas.fill(area("M16 6 26 26 16 26 Z"), FIRST)
    canvas.fill(stroke(1.8, "M16 6 26 26 4 26"), INK)


def three_discs(canvas):
    for x, y, color in ((16, 11.5, RED), (11.5, 19.5, GREEN), (20.5, 19.5, BLUE)):
        canvas.fill(ellipse(x, y, 8, 8), color)
    canvas.fill(area("M16 12.5 C18.5 14 19.5 16 19.5 18 C18 20 14 20 12.5 18 C12.5 16 13.5 14 16 12.5 Z"),
                WHITE)


def curve(canvas):
    canvas.fill(rectangle(5, 5, 22, 22, 2), PAPER)
    canvas.fill(stroke(1, "M6 26 26 6"), DESK_EDGE)
    canvas.fill(stroke(2.2, "M7 25 C8 13 15 8 25 7"), FIRST)
    canvas.fill(rectangle(5, 5, 22, 22, 2, 1), INK)


def drop(color):
    def draw(canvas):
        canvas.fill(area("M16 6 C19 12 23 15 23 19.5 C23 28 9 28 9 19.5 C9 15 13 12 16 6 Z"), color)
        canvas.fill(stroke(1.4, "M16 6 C19 12 23 15 23 19.5 C23 28 9 28 9 19.5 "
                           "C9 15 13 12 16 6"), INK)
        canvas.fill(stroke(1.6, "M12.3 19.5 C12.3 21.5 13.3 22.8 14.8 23.2"), WHITE)
    return draw


ADJUSTMENTS = {
    "brightness": sun, "contrast": half_disc, "sharpness": soft_and_sharp,
    "saturation": three_discs, "gamma": curve, "red": drop(RED), "cyan": drop(CYAN),
    "green": drop(GREEN), "magenta": drop(MAGENTA), "blue": drop(BLUE), "yellow": drop(YELLOW),
}


def adjustment_icon(name):
    canvas = Canvas(32, 32)
    ADJUSTMENTS[name](canvas)
    return canvas.picture()


# The About page: what covers the page is drawn by a function over whatever ground it gets. Where
# the page shows through there are no half-covered pixels, so nothing that stands free may be thin.

def logo(canvas):
    """A printer with the card that comes out of it."""
    canvas.fill(rectangle(2, 50, 146, 52, 10), PRINTER)
    canvas.fill(rectangle(2, 94, 146, 8, 4), INK)
    canvas.fill(rectangle(17, 57, 116, 7, 3), STRIPE)
    for left, top, color in ((24, 14, YELLOW), (28, 9, MAGENTA), (32, 4, CYAN)):
        canvas.fill(rectangle(left, top, 90, 61 - top, 5), color)
    card(canvas, (36, 0, 92, 59), 2, card_front)
    canvas.fill(rectangle(17, 61, 116, 5), PRINTER)
    canvas.fill(rectangle(17, 60, 116, 1), STRIPE)
    write(canvas, "Mirv", 44 + 70j, 19, 7, 4.4, WHITE)
    canvas.fill(ellipse(133, 80, 3.5, 3.5), GREEN)


GLOBE = ("M0 -17 C-22.5 -17 -22.5 17 0 17 C22.5 17 22.5 -17 0 -17",
         "M0 -17 C-11 -11 -11 11 0 17 C11 11 11 -11 0 -17", "M0 -17 0 17", "M-17 0 17 0",
         "M-14.5 -9 14.5 -9", "M-14.5 9 14.5 9")
HAND = ("M7 4 C7 1 12 1 12 4 C12 4 12 12.5 12 12.5 C12.5 10.5 16.5 10.5 17 13 C17.5 11.5 21 11.5 "
        "21.5 14 C22 12.5 26 12.5 26 16 C26 22 25.5 24 23 27 C23 27 23 30 23 30 C23 30 11 30 11 30 "
        "C10 26 5.5 22 3 18.5 C1 15.5 4 13.5 6 16 C6 16 7 17.5 7 17.5 C7 17.5 7 4 7 4 Z")
FINGERTIP = (9, 2)
FINGERS = "M12 12.5 12 17 M17 13 17 18 M21.5 14.5 21.5 18"


def hand(canvas, place=0, scale=1):
    canvas.fill(area(HAND, place, scale), WHITE)
    canvas.fill(stroke(1.7 * scale, HAND, place, scale), BLACK)
    canvas.fill(stroke(1.2 * scale, FINGERS, place, scale), BLACK)


def link(canvas):
    """A button with a globe, and a hand that presses it."""
    canvas.fill(rectangle(2, 4, 150, 54, 14), LINK_EDGE)
    canvas.fill(rectangle(2, 2, 150, 53, 14), FIRST)
    for outline in GLOBE:
        canvas.fill(stroke(2, outline, 34 + 28.5j), WHITE)
    write(canvas, "www", 60 + 12j, 25, 4, 3.4, WHITE)
    canvas.fill(rectangle(59, 42, 72, 2), WHITE)
    hand(canvas, 129 + 24j, 1.3)


BLENDED = {"logo": ((150, 104), logo), "link": ((168, 65), link)}


def blended(name):
    """The picture on black, and its mask: black under it and white where the page shows through."""
    size, draw = BLENDED[name]
    canvas = Canvas(*size)
    draw(canvas)
    covered = canvas.picture().getchannel("A").point(lambda opacity: 255 if opacity > 127 else 0)
    on_ground = Canvas(*size, PRINTER)  # against which the outline's pixels are smoothed
    draw(on_ground)
    picture = Image.new("RGB", size, BLACK)
    picture.paste(on_ground.picture(), mask=covered)
    mask = Image.new("RGB", size, WHITE)
    mask.paste(BLACK, mask=covered)
    return picture, mask


def link_cursor():
    canvas = Canvas(32, 32)
    hand(canvas)
    return canvas.picture()


# The picture of the print position adjuster

LATIN = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"                # fonts-dejavu-core
CHINESE = "/usr/share/fonts-droid-fallback/truetype/DroidSansFallback.ttf"    # fonts-droid-fallback
CAPTIONS = {
    "En": (LATIN, "Print position"),
    "Pt": (LATIN, "Posição de impressão"),
    "Tw": (CHINESE, "影像在卡片上的位置"),
    "Cn": (CHINESE, "图像在卡片上的位置"),
}
POSITION_CARD = (36, 34, 262, 166)
POSITION_PICTURE = (78, 72, 178, 90)


def caption(canvas, font, text, x, y, height, paint):
    """Text around a point."""
    pen = ImageDraw.Draw(canvas.image)
    pen.text((x * SCALE, y * SCALE), text, paint, ImageFont.truetype(font, height * SCALE),
             anchor="mm")


def dimension(canvas, first, second, color):
    """A line with a head at both ends."""
    along = (second - first) / abs(second - first)
    across = along * 1j
    canvas.fill(stroke(3, f"M{first.real} {first.imag} {second.real} {second.imag}"), color)
    for tip, back in ((first, along), (second, -along)):
        a, b = tip + 11 * back + 5.5 * across, tip + 11 * back - 5.5 * across
        canvas.fill(area(f"M{tip.real} {tip.imag} {a.real} {a.imag} {b.real} {b.imag} Z"), color)


def edge(canvas, first, second):
    canvas.fill(stroke(1.5, f"M{first.real} {first.imag} {second.real} {second.imag}"), INK)


def positions(language):
    """Where the picture begins (A) and ends (B) along the card, and where it begins across (C)."""
    canvas = Canvas(342, 272, WHITE)
    x, y, width, height = POSITION_CARD
    left, top, across, down = POSITION_PICTURE
    canvas.fill(rectangle(x, y, width, height, 18), CARD)
    canvas.fill(rectangle(x, y, width, height, 18, 3), INK)
    canvas.fill(rectangle(left, top, across, down), WHITE)
    bust(canvas, (left, top, 76, down))
    for row, length in ((22, 80), (44, 80), (66, 50)):
        canvas.fill(rectangle(left + 86, top + row - 4, length, 7, 2), INK)
    canvas.fill(rectangle(left, top, across, down, 0, 2), INK)
    right, low, level = left + across, y + height, y + height + 18
    for start, end, color, name in ((x, left, FIRST, "A"), (right, x + width, SECOND, "B")):
        edge(canvas, complex(start, top + down), complex(start, level + 8))
        edge(canvas, complex(end, top + down), complex(end, level + 8))
        dimension(canvas, complex(start, level), complex(end, level), color)
        caption(canvas, LATIN, name, (start + end) / 2, (low + top + down) / 2, 20, color)
    beside = x + width + 18
    for at in (y, top):
        edge(canvas, complex(right, at), complex(beside + 8, at))
    dimension(canvas, complex(beside, y), complex(beside, top), GREEN)
    caption(canvas, LATIN, "C", (right + x + width) / 2, (y + top) / 2, 20, GREEN)
    font, text = CAPTIONS[language]
    caption(canvas, font, text, 171, 251, 20, INK)
    return canvas.picture()
