"""The things that icons are put together from: pages, printers, calendars, people, badges. All in units of the pen's grid."""
from math import cos, pi, sin

from icon_pen import AMBER, BLUE, BUTT, GREEN, INK, MIST, PAPER, SHADE, SKY, STEEL, WOOD


def page(pen, x=5, y=2, width=22, height=28, fold=7, fill=PAPER):
    right, bottom = x + width, y + height
    pen.polygon([(x, y), (right - fold, y), (right, y + fold), (right, bottom), (x, bottom)], fill)
    if fold:
        pen.polygon([(right - fold, y), (right, y + fold), (right - fold, y + fold)], MIST)


def written_page(pen, x=4, y=2, width=22, height=28, fold=7):
    page(pen, x, y, width, height, fold)
    pen.rows(x + 4, width - 12, y + 8, colour=SHADE)
    pen.rows(x + 4, width - 8, y + 12, y + 16, y + 20, colour=SHADE)


def badge(pen, glyph, colour, x=23, y=23):
    """A round mark in the lower right corner, with one of + x > ^ v on it."""
    pen.clear_round(x, y, 9)
    pen.circle(x, y, 8, colour)
    line = 2.6 if not pen.small else 2
    reach = 3.5 if not pen.small else 4
    if glyph == "+":
        left, across = pen.snap(x - 8), pen.snap(16)
        middle_x, middle_y = left + across / 2, pen.snap(y - 8) + across / 2
        thick = max(1, round(2.6 * pen.unit))
        thick += (across - thick) % 2  # so that its edges fall on pixels
        far = round(reach * pen.unit) + across % 2 / 2
        pen.context.set_source_rgb(*PAPER)
        pen.context.rectangle(middle_x - far, middle_y - thick / 2, 2 * far, thick)
        pen.context.rectangle(middle_x - thick / 2, middle_y - far, thick, 2 * far)
        pen.context.fill()
    lines = {"x": [[(-3, -3), (3, 3)], [(-3, 3), (3, -3)]],
             ">": [[(-4, 0), (4, 0)], [(0.5, -3.5), (4, 0), (0.5, 3.5)]],
             "^": [[(0, 4), (0, -4)], [(-3.5, -0.5), (0, -4), (3.5, -0.5)]],
             "v": [[(0, -4), (0, 4)], [(-3.5, 0.5), (0, 4), (3.5, 0.5)]]}
    for points in lines.get(glyph, []):
        pen.trace([((x + dx) * pen.unit, (y + dy) * pen.unit) for dx, dy in points], False)
        pen.ink(PAPER, max(1.2, line * pen.unit), 1)


def pencil(pen, x=18, y=8, reach=14):
    """Points to the lower left; (x, y) is the upper right end of its lead half."""
    tip = (x - reach / 2, y + reach + reach / 2)
    pen.polygon([(x + 4, y), (x + 11, y + 7), (tip[0] + 7, tip[1] - 1), (tip[0], tip[1]), (tip[0] + 1, tip[1] - 7)], AMBER)
    pen.polygon([(tip[0], tip[1]), (tip[0] + 0.6, tip[1] - 4), (tip[0] + 4, tip[1] - 0.6)], INK)


def calendar(pen, accent=BLUE):
    pen.rect(3, 4, 26, 25, 3)
    left, top, right, bottom = pen.snap(3) + pen.width, pen.snap(4) + pen.width, pen.snap(29) - pen.width, pen.snap(12)
    pen.context.set_source_rgb(*pen.tone(accent))
    pen.rounded(left, top, right, bottom, 1.5 * pen.unit)
    pen.context.fill()
    for x in (9, 21):
        pen.rect(x, 1, 3 if not pen.small else 4, 7, 1, PAPER)


def day_grid(pen, colour_of):
    """Days in rows, as many as the size has room for; `colour_of(column, row)` gives the colour of one."""
    columns, rows, step, side = (4, 3, 5, 3) if not pen.small else (3, 2, 6, 4)
    left, top = (7, 15) if not pen.small else (8, 15)
    for row in range(rows):
        for column in range(columns):
            pen.bar(left + step * column, top + (step - (0 if pen.small else 1)) * row + row // 2, side, side, colour_of(column, row))


def arrow_down(pen, x, top, bottom, colour, half=5):
    """An outlined arrow about the upright `x`."""
    stem = 3
    neck = bottom - half - 1
    head = [(x + stem, neck), (x + half, neck), (x, bottom), (x - half, neck), (x - stem, neck)]
    pen.polygon([(x - stem, top), (x + stem, top), *head], colour)


def printer(pen, x=2, y=4, width=28, sheet=PAPER):
    """A printer of 24 units of height with paper at top and bottom."""
    pen.rect(x + 6, y, width - 12, 10, 1, sheet)
    pen.rect(x, y + 8, width, 12, 3, MIST)
    pen.bar(x + width - 7, y + 11, 3, 2, GREEN)
    pen.rect(x + 6, y + 15, width - 12, 10, 1, PAPER)
    pen.rows(x + 9, width - 18, y + 18, y + 21)


def magnifier(pen, x=13, y=13, radius=10, lens=SKY, handle=AMBER):
    reach = radius * 0.72
    end = min(28, x + radius + 7.5)
    pen.tube([(x + reach + 2, y + reach + 2), (end, y + end - x)], handle, 5)
    pen.circle(x, y, radius, lens)


def coin(pen, x, y, radius, colour=AMBER, sign=True):
    pen.circle(x, y, radius, colour)
    if sign:
        euro(pen, x + radius * 0.08, y, radius * 0.5)


def euro(pen, x, y, radius):
    thick = max(2.4, radius * 0.42)
    pen.curve(x, y, radius, 50, 310, INK, thick, BUTT)
    for dy in ((-radius * 0.3, radius * 0.3) if not pen.small else (0,)):
        pen.context.new_path()
        pen.context.move_to((x - radius * 1.5) * pen.unit, (y + dy) * pen.unit)
        pen.context.line_to((x + radius * 0.4) * pen.unit, (y + dy) * pen.unit)
        pen.ink(INK, max(1.0, thick * 0.6 * pen.unit), BUTT)


def cylinder(pen, x=4, y=2, width=24, height=28, colour=BLUE):
    """A database: a drum in three storeys."""
    context = pen.context
    inset = pen.width / 2
    left, right = pen.snap(x) + inset, pen.snap(x + width) - inset
    top, bottom = pen.snap(y + 4), pen.snap(y + height - 4)
    down = 4 * pen.unit - inset

    def half_round(at, start, end):
        context.save()
        context.translate((left + right) / 2, at)
        context.scale((right - left) / 2, down)
        context.arc(0, 0, 1, start, end)
        context.restore()

    context.new_path()
    context.move_to(left, top)
    context.line_to(right, top)
    half_round(bottom, 0, pi)
    context.close_path()
    pen.paint(colour, INK, (top, bottom))
    for storey in (1, 2):
        context.new_path()
        half_round(top + (bottom - top) * storey / 3, 0, pi)
        pen.paint(None, INK, (0, 1))
    pen.ellipse(x + width / 2, y + 4, width / 2, 4, SKY)


def person(pen, x, y, colour, scale=1.0):
    """Head and shoulders; (x, y) is the middle of the head. 22 units tall at scale 1."""
    context = pen.context
    inset = pen.width / 2
    half, low = 9 * scale, y + 16 * scale
    left, right = pen.snap(x - half) + inset, pen.snap(x + half) - inset
    top, bottom = pen.snap(y + 6 * scale) + inset, pen.snap(low) - inset
    context.new_path()
    context.move_to(left, bottom)
    context.curve_to(left, top + (bottom - top) * 0.3, left + (right - left) * 0.2, top, (left + right) / 2, top)
    context.curve_to(right - (right - left) * 0.2, top, right, top + (bottom - top) * 0.3, right, bottom)
    context.close_path()
    pen.paint(colour, INK, (top, bottom))
    pen.circle(x, y, 5.5 * scale, (1.0, 0.87, 0.74))


def gear(pen, x, y, radius, colour=STEEL, hole=PAPER):
    teeth, points = 8, []
    for tooth in range(teeth):
        for angle, reach in ((-0.30, 0.74), (-0.19, 1.0), (0.19, 1.0), (0.30, 0.74)):
            turn = 2 * pi * (tooth + angle) / teeth
            points.append(((x + radius * reach * cos(turn)) * pen.unit, (y + radius * reach * sin(turn)) * pen.unit))
    pen.trace(points, True)
    pen.paint(colour, INK, ((y - radius) * pen.unit, (y + radius) * pen.unit))
    pen.circle(x, y, radius * 0.36, hole)


def envelope(pen, x=2, y=6, width=28, height=20):
    pen.rect(x, y, width, height, 2, PAPER)
    middle = x + width / 2
    pen.polygon([(x, y), (x + width, y), (middle, y + height * 0.6)], SKY)


def globe(pen, x=16, y=16, radius=14):
    pen.circle(x, y, radius, BLUE)
    unit = pen.unit
    pen.ellipse(x, y, radius * 0.45, radius, SKY)
    pen.stroke([(x - radius + 1, y), (x + radius - 1, y)], INK, pen.width / unit, BUTT)
    if not pen.small:
        for dy in (-7, 7):
            reach = (radius ** 2 - 49) ** 0.5 - 1
            pen.stroke([(x - reach, y + dy), (x + reach, y + dy)], INK, pen.width / unit, BUTT)


def folder(pen, x=2, y=5, width=28, height=22, open_front=True):
    back = x + width - 2
    pen.polygon([(x, y), (x + 10, y), (x + 13, y + 4), (back, y + 4), (back, y + height), (x, y + height)], WOOD)
    if open_front:
        pen.polygon([(x + 5, y + 9), (x + width, y + 9), (x + width - 4, y + height), (x, y + height)], AMBER)


def clip(pen, x=0, y=0):
    """A paperclip, upright and leaning a little."""
    points = [(22, 8), (22, 21), (20, 26), (15, 28), (10, 26), (8, 21), (8, 8), (10, 5), (12, 4), (14, 5), (16, 8), (16, 20)]
    pen.tube([(x + px, y + py) for px, py in points], MIST, 3)


def check(pen, x, y, reach, colour, width=5):
    pen.tube([(x - reach, y), (x - reach * 0.3, y + reach * 0.7), (x + reach, y - reach * 0.8)], colour, width)


def cross(pen, x, y, reach, colour, width=5):
    core = max(2.0, width * pen.unit)
    left, right = (x - reach) * pen.unit, (x + reach) * pen.unit
    for tint, thick in ((INK, core + 2 * pen.width), (colour, core)):
        for sign in (1, -1):
            pen.trace([(left, (y - sign * reach) * pen.unit), (right, (y + sign * reach) * pen.unit)], False)
            pen.ink(tint, thick, 1)


STROKES = {
    "A": [[(0, 1), (0.5, 0), (1, 1)], [(0.2, 0.65), (0.8, 0.65)]],
    "D": [[(0, 0), (0, 1), (0.65, 1), (1, 0.7), (1, 0.3), (0.65, 0), (0, 0)]],
    "F": [[(0, 1), (0, 0), (1, 0)], [(0, 0.5), (0.8, 0.5)]],
    "P": [[(0, 1), (0, 0), (0.8, 0), (1, 0.15), (1, 0.42), (0.8, 0.56), (0, 0.56)]],
    "Z": [[(0, 0), (1, 0), (0, 1), (1, 1)]],
    "1": [[(0.1, 0.25), (0.55, 0), (0.55, 1)]],
    ":": [[(0.5, 0.3), (0.5, 0.32)], [(0.5, 0.8), (0.5, 0.82)]],
}


def letters(pen, x, y, width, height, text, colour=INK, thick=2.4):
    """Plain signs of STROKES, each `width` by `height`."""
    for index, letter in enumerate(text):
        at = x + index * (width + thick + 0.6)
        for points in STROKES[letter]:
            pen.trace([((at + px * width) * pen.unit, (y + py * height) * pen.unit) for px, py in points], False)
            pen.ink(colour, max(1.0, thick * pen.unit), 1)
