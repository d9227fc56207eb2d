#!/usr/bin/env python3
"""Draws the pictures, icons and pointers of the driver's dialogs, and writes them where the dialogs'
resource script looks for them, and those that are delivered beside the library. Needs Debian's
python3-pil. No part of the build: what it makes is kept.
resource script looks for them, and those that are delivered as files into the package. Needs Debian's
python3-pil, and the fonts that motifs.py names. No part of the build: what it makes is kept.
"""
import math
import pathlib
import struct
import sys

from PIL import Image

sys.dont_write_bytecode = True  # nothing but pictures appears beside the sources

import chart
import motifs

RESOURCES = pathlib.Path(__file__).resolve().parent.parent
PACKAGE = RESOURCES.parent / "package"
FORMATS = ((False, "landscape"), (True, "portrait"))  # of a card
HALF_TURN, QUARTER_TURN = Image.Transpose.ROTATE_180, Image.Transpose.ROTATE_270
MIRROR = Image.Transpose.FLIP_LEFT_RIGHT
BITS = {"portrait": 8, "portrait_rotated": 8, "dither": 1}  # a pixel; all others have 4


def reduced(image, bits):
    """The picture with a palette, which depends on its colours only, not on their places.

    The motifs' flat colours stay as they are: a picture's ground has to go over into what lies
    around it.
    """
    colors = set(image.getdata())
    palette = [color for color in motifs.FLAT_COLORS if color in colors]
    others = sorted(colors.difference(palette))
    if others:
        rest = Image.new("RGB", (len(others), 1))
        rest.putdata(others)
        rest = rest.quantize(2 ** bits - len(palette), kmeans=1)
        palette += sorted(set(rest.convert("RGB").getdata()))
    places = {color: min(range(len(palette)), key=lambda place: math.dist(color, palette[place]))
              for color in colors}
    result = Image.new("P", image.size)
    result.putdata([places[color] for color in image.getdata()])
    result.putpalette([value for color in palette for value in color])
    return result


def bitmaps():
    """All bitmaps by name. Those that are turned are made of the upright ones."""
    face, text, chip = motifs.portrait(), motifs.card_text(), motifs.chip()
    flipped = text.transpose(MIRROR)
    pictures = {
        "tile": motifs.tile(),
        "portrait": face,
        "portrait_rotated": face.transpose(HALF_TURN),
        "text": text,
        "text_rotated": text.transpose(HALF_TURN),
        "text_flipped": flipped,
        "text_flipped_rotated": flipped.transpose(HALF_TURN),
        "dither": motifs.dither(),
        "chip_landscape": chip,
        "chip_portrait": chip.transpose(QUARTER_TURN),
    }
    for is_portrait, name in FORMATS:
        pictures[f"back_mark_{name}"] = motifs.back_mark(is_portrait)
        for sides in motifs.SIDES:
            pictures[f"page_order_{name}_{sides}"] = motifs.page_order(is_portrait, sides)
    pictures["lamination_position"] = motifs.lamination_position()
    for name in motifs.ERASED:
        pictures[f"erase_{name}"] = motifs.erased(name)
    for name in motifs.BLENDED:
        pictures[name], pictures[f"{name}_mask"] = motifs.blended(name)
    return pictures


# The files. Pillow's own BMP files have no 4 bits a pixel, its icons no masks.

def packed(image, form, bits):
    """The rows from the last to the first, each filled up to whole groups of four bytes."""
    return image.tobytes("raw", form, (image.width * bits + 31) // 32 * 4, -1)


def dib(width, height, bits, palette, pixels):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, len(pixels), 0, 0,
                       len(palette) // 4, 0) + palette + pixels


def bmp(image, bits):
    palette = bytes(image.getpalette("BGRX"))
    body = dib(*image.size, bits, palette, packed(image, "P" if bits == 8 else f"P;{bits}", bits))
    return struct.pack("<2sIHHI", b"BM", 14 + len(body), 0, 0, 14 + 40 + len(palette)) + body


def true_color_bmp(image):
    """24 bits a pixel."""
    body = dib(*image.size, 24, b"", packed(image, "BGR", 24))
    return struct.pack("<2sIHHI", b"BM", 14 + len(body), 0, 0, 14 + 40) + body


def icon_image(image):
    # A mask bit keeps what is behind the icon where opacities are not understood.
    mask = image.getchannel("A").point(lambda opacity: 0 if opacity else 255).convert("1")
    # The height counts the colours and the mask.
    return dib(image.width, 2 * image.height, 32, b"",
               packed(image, "BGRA", 32) + packed(mask, "1", 1))


def ico(images):
    parts = [icon_image(image) for image in images]
    entries = b""
    start = 6 + 16 * len(images)
    for image, part in zip(images, parts):
        entries += struct.pack("<BBBBHHII", *image.size, 0, 0, 1, 32, len(part), start)
        start += len(part)
    return struct.pack("<HHH", 0, 1, len(images)) + entries + b"".join(parts)


def cur(image, hot_spot):
    """Black and white, since the pointer's shape is what counts."""
    outside = image.getchannel("A").point(lambda opacity: 0 if opacity > 127 else 255).convert("1")
    white = image.convert("L").point(lambda light: 255 if light > 127 else 0).convert("1")
    white.paste(0, mask=outside)
    masks = packed(white, "1", 1) + packed(outside, "1", 1)
    part = dib(image.width, 2 * image.height, 1, bytes(4) + b"\xff\xff\xff\0", masks)
    return struct.pack("<HHHBBBBHHII", 0, 2, 1, *image.size, 2, 0, *hot_spot, len(part), 22) + part


def main():
    for name, image in bitmaps().items():
        bits = BITS.get(name, 4)
        (RESOURCES / "bitmaps" / f"{name}.bmp").write_bytes(bmp(reduced(image, bits), bits))
    for is_portrait, name in FORMATS:
        images = [motifs.icon(size, is_portrait) for size in motifs.ICONS]
        (RESOURCES / "icons" / f"{name}.ico").write_bytes(ico(images))
    for name in motifs.ADJUSTMENTS:
        icon = motifs.adjustment_icon(name)
        (RESOURCES / "icons" / f"{name}.ico").write_bytes(ico([icon]))
    (RESOURCES / "cursors" / "link.cur").write_bytes(cur(motifs.link_cursor(), motifs.FINGERTIP))
    (PACKAGE / "pictures" / "CalChart.bmp").write_bytes(bmp(reduced(chart.calibration(), 1), 1))
    for language in motifs.CAPTIONS:
        picture = true_color_bmp(motifs.positions(language))
        (PACKAGE / "pictures" / f"CalPrv{language}.bmp").write_bytes(picture)


if __name__ == "__main__":
    main()
