#!/usr/bin/env python3
"""Draws the icons: make_icons.py OUT writes OUT/Icons/*.ico, each with the sizes 16, 24, 32, 48 and 64.

An icon of the ribbon is <family>.<nn>.<state>.ico, state 0 normal and 1 hot; the others have one state. docs/formats/icons.md lists them.
"""
import os
import sys

sys.dont_write_bytecode = True
import drawing
from icon_dialogs import SINGLE
from icon_pen import IconPen, LINE_WIDTH
from icon_ribbon import FAMILIES


def icon_table():
    """Each file's name with what draws it and its state."""
    for family, drawings in FAMILIES.items():
        for number, draw in enumerate(drawings, start=1):
            for hot in (0, 1):
                yield f"{family}.{number:02}.{hot}.ico", draw, hot
    for name, draw in SINGLE.items():
        yield f"{name}.ico", draw, 0


def picture(draw, size, hot):
    pen = IconPen(size, hot)
    draw(pen)
    return pen.surface


def main(arguments):
    if len(arguments) != 2:
        sys.exit(__doc__)
    folder = os.path.join(arguments[1], "Icons")
    os.makedirs(folder, exist_ok=True)
    for name, draw, hot in icon_table():
        drawing.write_file(os.path.join(folder, name), drawing.ico([picture(draw, size, hot) for size in LINE_WIDTH]))


if __name__ == "__main__":
    main(sys.argv)
