"""The motifs of the pictures, one function each, in one palette."""
from raster import (Canvas, Picture, ellipse, linear, moved, path, radial, rectangle, rounded,
                    thick)

INK = "#3D4B5E"
WHITE = "#FFFFFF"
BLACK = "#000000"
DESK = "#DDE5EE"
DESK_DOT = "#C8D3E0"
DESK_EDGE = "#B4C2D2"
PAPER = ("#FFFFFF", "#EAF0F6")
CARD = ("#FBFDFF", "#D3E4F4")
PHOTO = ("#BFE3EA", "#6FB1CB")
STRIPE = "#2A313C"
FIRST = "#2B7CC7"   # what belongs to a document's first page,
SECOND = "#E5803A"  # and to its second
SKIN = "#F0C3A0"
HAIR = "#5A3220"
JACKET = "#C2476B"
GOLD = ("#FAE9B0", "#CF9F3C")
GOLD_LINE = "#7E5E1C"

# The colours that stay as they are where a palette has too few for all
FLAT_COLORS = (INK, WHITE, BLACK, DESK_EDGE, STRIPE, FIRST, SECOND, SKIN, HAIR,
               JACKET)


# Small parts

def box_of(box, part):
    """A part in shares of a box, on whole pixels to keep small pictures crisp."""
    x, y, width, height = box
    left, top = round(x + part[0] * width), round(y + part[1] * height)
    return (left, top, round(x + (part[0] + part[2]) * width) - left,
            round(y + (part[1] + part[3]) * height) - top)


def down(box, colors):
    """A gradient from a box's top left to its bottom right."""
    x, y, width, height = box
    return linear((x, y), (x + width, y + height), *colors)


BUST = (  # of a box of 100 x 100
    (HAIR, "M24 52 C20 10 80 10 76 52 L78 70 L22 70 Z"),
    (JACKET, "M2 106 C2 76 24 72 40 68 L60 68 C76 72 98 76 98 106 Z"),
    (SKIN, "M40 54 L40 68 C44 80 56 80 60 68 L60 54 Z"),
    (SKIN, "M30 40 C30 20 70 20 70 40 C70 58 60 66 50 66 C40 66 30 58 30 40 Z"),
    (HAIR, "M27 46 C24 14 76 12 73 46 C70 40 66 34 60 28 C52 36 36 36 27 46 Z"),
)


def bust(canvas, box):
    """A person's head and shoulders, small."""
    x, y, width, height = box
    canvas.clip(rectangle(*box))
    canvas.fill(rectangle(*box), down(box, PHOTO))
    for color, outline in BUST:
        canvas.fill(moved(path(outline), x, y, width / 100, height / 100), color)
    canvas.clip()


def blank_card(canvas, box, line):
    x, y, width, height = box
    radius = 0.075 * max(width, height) + line / 2
    canvas.fill(rounded(*box, radius), INK)
    inside = (x + line, y + line, width - 2 * line, height - 2 * line)
    shape = rounded(*inside, radius - line)
    canvas.fill(shape, down(inside, CARD))
    return inside, shape


# By whether the card is a portrait one: the band, the photo, and the lines of text
FRONT = {
    False: ((0, 0, 1, .2), (.08, .32, .32, .56), ((.5, .42, .42), (.5, .61, .42), (.5, .8, .26))),
    True: ((0, 0, 1, .13), (.22, .22, .56, .4), ((.16, .72, .68), (.16, .84, .44))),
}


def card_front(canvas, box, line):
    inside, shape = blank_card(canvas, box, line)
    band, photo, texts = FRONT[box[3] > box[2]]
    canvas.clip(shape)
    canvas.fill(rectangle(*box_of(inside, band)), FIRST)
    canvas.clip()
    bust(canvas, box_of(inside, photo))
    for x, y, width in texts:
        left, top, width, _ = box_of(inside, (x, y, width, 0))
        canvas.fill(rounded(left, top - line // 2, width, line, line / 3), INK)


# The stripe, and the panel to sign on
BACK = {
    False: ((0, .16, 1, .26), (.09, .58, .58, .24)),
    True: ((.16, 0, .26, 1), (.58, .09, .24, .58)),
}


def card_back(canvas, box, line):
    inside, shape = blank_card(canvas, box, line)
    stripe, panel = BACK[box[3] > box[2]]
    canvas.clip(shape)
    canvas.fill(rectangle(*box_of(inside, stripe)), STRIPE)
    canvas.clip()
    canvas.fill(rounded(*box_of(inside, panel), line / 2), DESK_EDGE)


# The preview: the desk, the mark of the back, and what lies on the card

def tile():
    canvas = Canvas(10, 10, DESK)
    for x, y in ((2, 2), (7, 7)):
        canvas.fill(rectangle(x, y, 1, 1), DESK_DOT)
    return Picture.of(canvas)


# By whether the card is a portrait one: the card, the turn around it, the arrow's head
BACK_MARK = {
    False: ((6, 7, 28, 18), "M6 29 C6 39 37 40 37 29", "M37 20 L42 29 L32 29 Z"),
    True: ((12, 4, 18, 28), "M7 28 C7 43 35 43 35 31", "M35 22 L40 31 L30 31 Z"),
}


def back_mark(is_portrait):
    canvas = Canvas(48, 48, DESK)
    canvas.fill(rounded(0.5, 0.5, 43, 43, 7), DESK_EDGE)
    canvas.fill(rounded(1.5, 1.5, 41, 41, 6), DESK)
    card, turn, head = BACK_MARK[is_portrait]
    card_back(canvas, card, 2)
    # A gap in the ground's colour where the arrow passes before the card
    canvas.fill(thick(path(turn), 5) + thick(path(head), 2), DESK)
    canvas.stroke(path(turn), 3, FIRST)
    canvas.fill(path(head), FIRST)
    return Picture.of(canvas)


def portrait():
    canvas = Canvas(62, 82)
    for shape, paint in (*_behind(), *_clothes(), *_face(), *_features()):
        canvas.fill(shape, paint)
    return Picture.of(canvas)


def _behind():
    return (
        (rectangle(0, 0, 62, 82), radial(22, 26, 56, 66, "#D6F1EE", "#2F86AE")),
        (path("M12 42 C9 15 22 7 32 7 C45 7 53 17 51 40 C51 50 54 57 50 64 "
              "C40 67 22 67 13 64 C9 57 12 50 12 42 Z"),
         linear((14, 10), (48, 64), "#8A4B2A", "#3A1C12")),
    )


def _clothes():
    return (
        (path("M1 83 C2 69 10 67 23 61.5 L40 61.5 C52 67 60 69 61 83 Z"),
         linear((8, 62), (56, 82), "#DC5674", "#7A2358")),
        # The shirt, the neck, and the shirt's collar
        (path("M22 62 L29 83 L34 83 L41 62 Z"),
         linear((24, 66), (40, 80), "#FFFFFF", "#D5E0EC")),
        (path("M25 48 L25 61 L31.5 70 L38 61 L38 48 Z"),
         linear((25, 52), (38, 68), "#D4956E", "#F0C09A")),
        (path("M24.6 58.6 L31.5 69 L27 74 L21.5 62.5 Z"), "#FFFFFF"),
        (path("M38.4 58.6 L31.5 69 L36 74 L41.5 62.5 Z"), "#E9F0F7"),
        # The lapels
        (path("M21 62.3 L29.5 83 L24.5 83 L15.5 72.6 L18.8 71 L16.2 67 Z"),
         linear((17, 64), (28, 80), "#EC7D92", "#B93F66")),
        (path("M42 62.3 L33.5 83 L38.5 83 L47.5 72.6 L44.2 71 L46.8 67 Z"),
         linear((46, 64), (35, 80), "#C04A6E", "#8E2C5C")),
    )


def _face():
    return (
        (path("M19 34 C19 20 25 15 32 15 C39 15 44.5 20 44.5 34 C44.5 46 38 55 32 55 "
              "C25.5 55 19 46 19 34 Z"),
         linear((20, 24), (45, 48), "#FFDDC0", "#E2A27C")),
        (ellipse(24.5, 43, 4, 3), radial(24.5, 43, 4, 3, "#EE7F7A70", "#EE7F7A00")),
        (ellipse(39.5, 43, 4, 3), radial(39.5, 43, 4, 3, "#E0706A70", "#E0706A00")),
        # The fringe, parted on one side, and its shine
        (path("M17 42 C14 18 24 9 33 9.5 C44 10 50 20 47 42 C45.5 32 43 26 38 20 "
              "C33 27 22 28 19.5 34 Z"),
         linear((18, 12), (48, 36), "#9C5832", "#4A2416")),
        (thick(path("M21.5 24 C23 18 27 14.5 31.5 14"), 1.6),
         linear((21, 24), (31, 14), "#D08A5600", "#D08A56C0")),
    )


def _features():
    return (
        *((ellipse(x, 36.2, 2.9, 1.8), "#FFFFFF") for x in (26, 37.6)),
        *((ellipse(x, 36.2, 1.7, 1.8), "#3B6B7C") for x in (26.2, 37.8)),
        *((ellipse(x, 36.2, 0.9, 0.9), "#14222C") for x in (26.2, 37.8)),
        (thick(path("M22.8 35.6 C24 33.8 28 33.8 29.2 35.6 M34.4 35.6 C35.6 33.8 39.6 33.8 "
                    "40.8 35.6"), 0.9), "#3A1C12"),
        (thick(path("M22.8 31.6 C24.5 30.2 27.5 30.2 29.3 31.4 M34.3 31.4 C36.2 30.2 39.2 30.2 "
                    "40.8 31.6"), 1.2), "#6B3A22"),
        (thick(path("M32.2 36.5 C32.6 39.5 34 41 33.2 42.4 C32.4 43 31.4 43 30.6 42.6"), 0.9),
         "#C98660"),
        (path("M27.2 46.6 C29 45.8 31 45.4 32 46 C33 45.4 35 45.8 36.8 46.6 "
              "C35 50.4 29 50.4 27.2 46.6 Z"), "#C6434C"),
        (path("M28.6 46.8 C30.6 47.2 33.4 47.2 35.4 46.8 C34.4 48.2 29.6 48.2 28.6 46.8 Z"),
         "#FFF4EE"),
    )


# Letters of strokes: the width, and the lines on a height of 100 (the widths are to that scale)
GLYPHS = {
    "N": (70, "M0 100 L0 0 L70 100 L70 0"),
    "a": (52, "M6 44 C16 32 50 28 50 54 L50 100 M50 66 C20 62 0 68 0 84 C0 106 44 104 50 80"),
    "m": (88, "M0 100 L0 38 M0 60 C2 28 44 30 44 60 L44 100 M44 60 C46 28 88 30 88 60 L88 100"),
    "e": (54, "M0 68 L54 68 C54 26 0 26 0 68 C0 106 40 106 52 90"),
    "I": (0, "M0 0 L0 100"),
    "D": (62, "M0 0 L0 100 L24 100 C76 100 76 0 24 0 Z"),
    " ": (24, ""),
    "1": (36, "M2 24 L36 0 L36 100"),
    "2": (58, "M2 26 C2 -9 56 -9 56 28 C56 50 2 74 2 100 L58 100"),
    "3": (56, "M2 12 C20 -8 54 -2 54 24 C54 44 36 48 22 48 C40 48 56 54 56 74 "
              "C56 106 14 108 0 86"),
    "4": (62, "M46 100 L46 0 L0 68 L62 68"),
}


def letters(text, x, y, height, gap):
    """The lines of a text whose upper left corner is given."""
    lines = []
    for character in text:
        width, outline = GLYPHS[character]
        lines += moved(path(outline), x, y, height / 100)
        x += width * height / 100 + gap
    return lines


def card_text():
    canvas = Canvas(69, 43, WHITE)
    canvas.stroke(letters("Name", 5, 4, 16, 5.4), 3.2, BLACK)
    canvas.stroke(letters("ID 1234", 4.5, 25, 9, 3.9), 2, BLACK)
    canvas.fill(rectangle(3, 38, 63, 1), BLACK)
    canvas.fill(rectangle(3, 40, 42, 1), BLACK)
    return Picture.of(canvas)


BAYER = ((0, 2), (3, 1))


def threshold(x, y, levels=3):
    """The Bayer matrix's share from 0 to 1 at this pixel."""
    value = 0
    for level in range(levels):
        value = 4 * value + BAYER[y >> level & 1][x >> level & 1]
    return (value + 0.5) / 4 ** levels


def dither():
    """A ball and its shadow, in dots of resin."""
    canvas = Canvas(96, 96, WHITE)
    canvas.fill(ellipse(52, 82, 42, 11), radial(52, 82, 42, 11, "#000000D0", "#00000000"))
    canvas.fill(ellipse(47, 45, 41), radial(33, 29, 66, 66, "#FFFFFF", "#000000"))
    rows = Picture.of(canvas).rows
    return Picture([[(255, 255, 255, 255) if pixel[0] / 255 > threshold(x, y) else (0, 0, 0, 255)
                     for x, pixel in enumerate(row)] for y, row in enumerate(rows)])


def chip():
    canvas = Canvas(31, 31, WHITE)
    canvas.fill(rounded(1, 3, 29, 25, 5), GOLD_LINE)
    canvas.fill(rounded(2, 4, 27, 23, 4), linear((4, 4), (27, 27), *GOLD))
    for y in (9, 15, 21):
        canvas.fill(rectangle(2, y, 8, 1), GOLD_LINE)
        canvas.fill(rectangle(21, y, 8, 1), GOLD_LINE)
    canvas.fill(rounded(9, 6, 13, 19, 4), GOLD_LINE)
    canvas.fill(rounded(10, 7, 11, 17, 3), linear((8, 6), (22, 26), *GOLD))
    canvas.fill(rectangle(15, 4, 1, 3), GOLD_LINE)
    canvas.fill(rectangle(15, 24, 1, 3), GOLD_LINE)
    return Picture.of(canvas)


# The order of pages. The pictures are shown at two fifths of their size: all lines are thick.

LINE = 6
FOLD = 24
DIGITS = {"1": "M6 26 L32 6 L32 94 M8 94 L54 94",
          "2": "M6 30 C6 -4 54 -4 54 30 C54 54 6 70 6 94 L56 94"}
ACCENTS = {"1": FIRST, "2": SECOND}


def sheet_of_paper(canvas, box, digit):
    x, y, width, height = (box[0] + LINE / 2, box[1] + LINE / 2, box[2] - LINE, box[3] - LINE)
    right, bottom = x + width, y + height
    outline = [[(x, y), (right - FOLD, y), (right, y + FOLD), (right, bottom), (x, bottom),
                (x, y)]]
    fold = [[(right - FOLD, y), (right - FOLD, y + FOLD), (right, y + FOLD)]]
    canvas.fill(outline, down(box, PAPER))
    canvas.fill(fold, DESK_EDGE)
    canvas.stroke(outline + fold, LINE, INK)
    scale = height * 0.5 / 100
    number = moved(path(DIGITS[digit]), x + width / 2 - 31 * scale, y + height * 0.34, scale)
    canvas.stroke(number, 13, ACCENTS[digit])


def arrow(canvas, x, top, bottom, digit):
    neck = bottom - 22
    canvas.fill([[(x - 8, top), (x + 8, top), (x + 8, neck), (x + 21, neck), (x, bottom),
                  (x - 21, neck), (x - 8, neck)]], ACCENTS[digit])


# By whether the card is a portrait one, and the printed sides: for every page its sheet, its arrow
# (the middle, top and bottom), the card and the card's side
PAGE_ORDERS = {
    (False, "both"): (((16, 12, 78, 98), (55, 118, 156), (10, 164, 112, 71), card_front),
                      ((116, 12, 78, 98), (155, 118, 240), (88, 248, 112, 71), card_back)),
    (False, "front"): (((57, 14, 96, 120), (105, 144, 192), (20, 204, 170, 107), card_front),),
    (False, "back"): (((57, 14, 96, 120), (105, 144, 192), (20, 204, 170, 107), card_back),),
    (True, "both"): (((14, 12, 80, 100), (54, 122, 168), (12, 180, 84, 134), card_front),
                     ((116, 12, 80, 100), (156, 122, 168), (114, 180, 84, 134), card_back)),
    (True, "front"): (((61, 12, 88, 110), (105, 130, 166), (58, 174, 94, 148), card_front),),
    (True, "back"): (((61, 12, 88, 110), (105, 130, 166), (58, 174, 94, 148), card_back),),
}


def page_order(is_portrait, sides):
    canvas = Canvas(210, 330, WHITE)
    for digit, (sheet, way, card, side) in zip("12", PAGE_ORDERS[is_portrait, sides]):
        sheet_of_paper(canvas, sheet, digit)
        arrow(canvas, *way, digit)
        side(canvas, card, LINE)
    return Picture.of(canvas)


# Icons, by the side of the square: the card's place in landscape format, and its lines

ICONS = {32: ((1, 6, 30, 20), 1), 48: ((1, 9, 46, 30), 2)}


def icon(size, is_portrait):
    (x, y, width, height), line = ICONS[size]
    canvas = Canvas(size, size)
    card_front(canvas, (y, x, height, width) if is_portrait else (x, y, width, height), line)
    return Picture.of(canvas)
