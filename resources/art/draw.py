"""Draws the pictures and icons of the driver's dialogs, and writes them where the dialogs' resource
script looks for them. With `--sheet FILE.png`, also all of them on one sheet, to look at.
"""
import argparse
import pathlib
import sys

sys.dont_write_bytecode = True  # nothing but pictures appears beside the sources

import files
import motifs
from raster import Picture, rgba

RESOURCES = pathlib.Path(__file__).resolve().parent.parent
FORMATS = ((False, "landscape"), (True, "portrait"))  # of a card
SHEET_GROUND = (160, 160, 160)
SHEET_WIDTH = 1400
SHEET_GAP = 16


def in_colors(picture, limit):
    return files.reduced(picture, limit, [rgba(color)[:3] for color in motifs.FLAT_COLORS])


def bitmaps():
    """All bitmaps by name, each with its bits a pixel."""
    # Turned only afterwards, so that the turned pictures have the same pixels.
    face = in_colors(motifs.portrait(), 256)
    text = in_colors(motifs.card_text(), 16)
    chip = in_colors(motifs.chip(), 64)
    pictures = {
        "tile": (motifs.tile(), 8),
        "portrait": (face, 8),
        "portrait_rotated": (face.half_turned(), 8),
        "text": (text, 8),
        "text_rotated": (text.half_turned(), 8),
        "text_flipped": (text.mirrored(), 8),
        "text_flipped_rotated": (text.mirrored().half_turned(), 8),
        "dither": (motifs.dither(), 1),
        "chip_landscape": (chip, 8),
        "chip_portrait": (chip.quarter_turned(), 8),
    }
    for is_portrait, name in FORMATS:
        pictures[f"back_mark_{name}"] = (in_colors(motifs.back_mark(is_portrait), 64), 8)
        for sides in ("both", "front", "back"):
            pictures[f"page_order_{name}_{sides}"] = (
                in_colors(motifs.page_order(is_portrait, sides), 16), 4)
    return pictures


def icons():
    """All icons by name, each in its sizes."""
    return {name: [motifs.icon(size, is_portrait) for size in motifs.ICONS]
            for is_portrait, name in FORMATS}


def on_ground(picture):
    """The picture with its opacities over the sheet's ground."""
    return Picture([[tuple((value * pixel[3] + ground * (255 - pixel[3])) // 255
                           for value, ground in zip(pixel, SHEET_GROUND))
                     for pixel in row] for row in picture.rows])


def doubled(picture):
    return Picture([[pixel for pixel in row for _ in range(2)]
                    for row in picture.rows for _ in range(2)])


def shrunk(picture, width, height):
    """The picture in a smaller size, each pixel the mean of what it covers."""
    def cover(length, count):
        step = length / count
        return [[(i, min(i + 1, (n + 1) * step) - max(i, n * step))
                 for i in range(int(n * step), min(length, int((n + 1) * step) + 1))]
                for n in range(count)]

    columns, lines = cover(picture.width, width), cover(picture.height, height)
    area = picture.width * picture.height / (width * height)
    return Picture([[tuple(int(sum(picture.rows[y][x][channel] * share_x * share_y
                                   for y, share_y in line for x, share_x in column)
                               / area + 0.5) for channel in range(3))
                     for column in columns] for line in lines])


def sheet(pictures):
    """The pictures side by side in lines, like words."""
    places, x, y, line = [], SHEET_GAP, SHEET_GAP, 0
    for picture in pictures:
        if x + picture.width + SHEET_GAP > SHEET_WIDTH:
            x, y, line = SHEET_GAP, y + line + SHEET_GAP, 0
        places.append((x, y, picture))
        x += picture.width + SHEET_GAP
        line = max(line, picture.height)
    rows = [[SHEET_GROUND] * SHEET_WIDTH for _ in range(y + line + SHEET_GAP)]
    for x, y, picture in places:
        for line, row in enumerate(picture.rows):
            rows[y + line][x:x + picture.width] = row
    return Picture(rows)


def views(pictures, all_icons):
    """All pictures at twice their size; the large ones also as small as a dialog shows them."""
    large = [picture for picture in pictures if picture.height > 200]
    small = [picture for picture in pictures if picture.height <= 200]
    small += [on_ground(picture) for sizes in all_icons for picture in sizes]
    return ([doubled(picture) for picture in small]
            + [shrunk(picture, 81, 127) for picture in large]
            + [doubled(picture) for picture in large])


def write(folder, name, data):
    folder = RESOURCES / folder
    folder.mkdir(exist_ok=True)
    (folder / name).write_bytes(data)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--sheet", type=pathlib.Path, metavar="FILE.png")
    sheet_file = parser.parse_args().sheet

    all_bitmaps, all_icons = bitmaps(), icons()
    for name, (picture, bits) in all_bitmaps.items():
        write("bitmaps", f"{name}.bmp", files.bmp(picture, bits))
    for name, sizes in all_icons.items():
        write("icons", f"{name}.ico", files.ico(sizes))
    if sheet_file is not None:
        shown = views([picture for picture, _ in all_bitmaps.values()], all_icons.values())
        sheet_file.write_bytes(files.png(sheet(shown)))


if __name__ == "__main__":
    main()
