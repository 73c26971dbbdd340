"""The icons of the ribbon and of the main menu, by family and number."""
import icon_shapes as shape
from icon_pen import AMBER, BLUE, BUTT, GREEN, INK, MIST, PAPER, RED, SHADE, SKY, STEEL, TEAL, WOOD


def add(pen):
    shape.written_page(pen)
    shape.badge(pen, "+", GREEN)


def edit(pen):
    shape.written_page(pen)
    shape.pencil(pen, 19, 9, 13)


def delete(pen):
    shape.written_page(pen)
    shape.badge(pen, "x", RED)


def correction(pen):
    shape.page(pen)
    thick = 3 if not pen.small else 2
    pen.bar(8, 12, 10, thick, GREEN)
    pen.bar(13 - thick / 2 if not pen.small else 12, 8 + (0 if pen.small else 0.5), thick, 10, GREEN)
    pen.bar(14, 23, 10, thick, RED)


def clone(pen):
    shape.page(pen, 3, 1, 19, 24, 0, SKY)
    shape.page(pen, 10, 7, 19, 24, 6)
    pen.rows(14, 7, 15)
    pen.rows(14, 11, 19, 23)


def clone_many(pen):
    shape.page(pen, 2, 1, 17, 22, 0, SKY)
    shape.page(pen, 7, 4, 17, 22, 0, SKY)
    shape.page(pen, 12, 8, 18, 23, 6)
    pen.rows(16, 6, 17)
    pen.rows(16, 10, 21, 25)


def today(pen):
    shape.calendar(pen)
    pen.rect(11, 15, 10, 10, 2, AMBER)


def current_period(pen):
    shape.calendar(pen)
    shape.day_grid(pen, lambda column, row: AMBER if row == 1 else SHADE)


def last_period(pen):
    shape.calendar(pen)
    pen.polygon([(6, 20), (14, 12), (14, 17), (26, 17), (26, 24), (14, 24), (14, 28)], AMBER)


def all_periods(pen):
    shape.calendar(pen)
    shape.day_grid(pen, lambda column, row: AMBER)


def sort_rows(pen, widths):
    for index, width in enumerate(widths):
        pen.rect(16, 3 + 9 * index, width, 8, 1, BLUE)


def sort_up(pen):
    shape.arrow_down(pen, 8, 3, 30, AMBER, 7)
    sort_rows(pen, (5, 10, 15))


def sort_down(pen):
    shape.arrow_down(pen, 8, 3, 30, AMBER, 7)
    sort_rows(pen, (15, 10, 5))


def unsorted(pen):
    for index in range(3):
        pen.rect(4, 3 + 9 * index, 8, 8, 1, MIST)
    sort_rows(pen, (14, 14, 14))


def find(pen):
    shape.magnifier(pen)


def alphabet(pen):
    shape.page(pen, 3, 3, 26, 26, 0)
    if pen.small:
        shape.letters(pen, 11, 9, 10, 13, "A", BLUE, 3)
    else:
        shape.letters(pen, 8, 10, 6, 11, "A", BLUE, 2.6)
        shape.letters(pen, 18, 10, 6, 11, "Z", AMBER, 2.6)


def first_record(pen):
    pen.rect(4, 6, 6, 20, 1, BLUE)
    pen.polygon([(10, 16), (26, 5), (26, 27)], BLUE)


def previous_record(pen):
    pen.polygon([(7, 16), (24, 4), (24, 28)], BLUE)


def next_record(pen):
    pen.polygon([(25, 16), (8, 4), (8, 28)], BLUE)


def last_record(pen):
    pen.rect(22, 6, 6, 20, 1, BLUE)
    pen.polygon([(22, 16), (6, 5), (6, 27)], BLUE)


def page_setup(pen):
    shape.page(pen, 3, 2, 22, 28, 7)
    pen.rows(7, 8, 9, colour=SHADE)
    pen.rows(7, 14, 13, colour=SHADE)
    pen.clear_round(22, 22, 9.5)
    shape.gear(pen, 22, 22, 9, AMBER)


def print_one(pen):
    shape.printer(pen)


def preview(pen):
    shape.written_page(pen, 3, 2, 22, 28)
    pen.clear_round(19, 19, 8)
    shape.magnifier(pen, 19, 19, 7)


def pdf(pen):
    shape.page(pen)
    pen.rect(2, 15, 28, 11, 2, RED)
    if pen.small:
        pen.bar(6, 19, 20, 2, PAPER)
    else:
        shape.letters(pen, 6.5, 18, 4, 5.4, "PDF", PAPER, 1.9)


def print_series(pen):
    pen.rect(11, 1, 16, 12, 1, SKY)
    shape.printer(pen, 2, 5, 28)


def print_list(pen):
    shape.page(pen, 2, 1, 20, 24, 0)
    for y in (5, 9, 13):
        pen.bar(5, y, 2, 2, BLUE)
        pen.rows(9, 9, y)
    pen.rect(13, 14, 12, 8, 1, PAPER)
    pen.rect(9, 18, 21, 10, 2, MIST)
    pen.rect(13, 23, 13, 8, 1, PAPER)
    pen.bar(25, 20, 2, 2, GREEN)


def address(pen):
    pen.rect(2, 6, 28, 20, 2, PAPER)
    pen.rect(21, 9, 6, 7, 0.5, RED)
    pen.rows(6, 9, 11)
    pen.rows(6, 13, 16, 20, colour=STEEL)


def fiscal(pen):
    pen.polygon([(6, 2), (26, 2), (26, 29), (22, 26), (19, 29), (16, 26), (13, 29), (10, 26), (6, 29)], PAPER)
    pen.rows(10, 6, 7, 11)
    pen.rows(19, 4, 7, 11)
    pen.bar(10, 17, 12, 5, GREEN)


def company(pen):
    pen.rect(17, 11, 12, 19, 1, SKY)
    pen.rect(4, 2, 15, 28, 1, MIST)
    for y in (5, 10, 15):
        pen.bar(8, y, 3, 3, BLUE)
        pen.bar(13, y, 3, 3, BLUE)
    for y in (15, 20):
        pen.bar(22, y, 4, 3, BLUE)
    pen.rect(9, 22, 6, 8, 0.5, AMBER)


def database(pen):
    shape.cylinder(pen)


def program_settings(pen):
    shape.gear(pen, 16, 16, 15, STEEL, AMBER)


def interface(pen):
    pen.rect(2, 4, 28, 24, 3, PAPER)
    pen.bar(3.5, 5.5, 25, 5, BLUE)
    for x, colour in ((6, GREEN), (13, AMBER), (20, RED)):
        pen.bar(x, 16, 6, 8, colour)


def backup(pen):
    shape.cylinder(pen, 2, 2, 22, 26)
    shape.badge(pen, "^", GREEN)


def restore(pen):
    shape.cylinder(pen, 2, 2, 22, 26)
    shape.badge(pen, "v", AMBER)


def export(pen):
    shape.written_page(pen, 3, 2, 20, 28)
    pen.polygon([(14, 17), (22, 17), (22, 12), (31, 20), (22, 28), (22, 23), (14, 23)], GREEN)


def letter_i(pen):
    pen.bar(14, 13, 4, 11, PAPER)
    pen.bar(14, 7, 4, 4, PAPER)


def information(pen):
    pen.circle(16, 16, 14, BLUE)
    letter_i(pen)


def leave(pen):
    pen.rect(4, 2, 18, 28, 1, MIST)
    pen.polygon([(4, 2), (15, 6), (15, 30), (4, 30)], WOOD)
    pen.bar(11, 17, 2, 3, INK)
    pen.polygon([(18, 13), (24, 13), (24, 9), (31, 16), (24, 23), (24, 19), (18, 19)], RED)


def exchange(pen):
    shape.coin(pen, 16, 16, 14)


def balance(pen):
    shape.page(pen)
    points = [(21, 11), (11, 11), (16, 18), (11, 25), (21, 25)]
    pen.stroke(points, BLUE, 3.2 if not pen.small else 2.6)


def sales_chart(pen):
    pen.rect(2, 3, 28, 26, 2, PAPER)
    for x, top, colour in ((6, 19, BLUE), (13, 14, BLUE), (20, 7, GREEN)):
        pen.bar(x, top, 5 if not pen.small else 4, 26 - top, colour)


def receivables(pen):
    shape.written_page(pen)
    pen.clear_round(22, 22, 10)
    pen.circle(22, 22, 9, AMBER)
    pen.stroke([(22, 17), (22, 22), (26, 22)], INK, 2, BUTT)


def price_list(pen):
    pen.polygon([(3, 3), (16, 3), (30, 17), (17, 30), (3, 16)], GREEN)
    pen.circle(9, 9, 3, PAPER)
    if not pen.small:
        for shift in (0, 4):
            pen.stroke([(13 + shift, 19 - shift), (17 + shift, 23 - shift)], PAPER, 2)


def percent(pen):
    pen.rect(3, 3, 26, 26, 4, TEAL)
    pen.stroke([(22, 9), (10, 23)], PAPER, 2.8)
    for x, y in ((10, 10), (22, 22)):
        pen.context.new_path()
        pen.context.arc(x * pen.unit, y * pen.unit, 3.1 * pen.unit, 0, 6.2832)
        pen.ink(PAPER, max(1.0, 2.2 * pen.unit), BUTT)


def documents(pen):
    shape.page(pen, 9, 1, 18, 22, 5)
    pen.rows(13, 6, 7)
    pen.rows(13, 10, 11)
    pen.rect(3, 14, 26, 16, 2, AMBER)
    pen.rect(11, 19, 10, 5, 1, PAPER)


def goods(pen):
    pen.polygon([(16, 2), (29, 8), (16, 14), (3, 8)], (0.96, 0.85, 0.66))
    pen.polygon([(3, 8), (16, 14), (16, 30), (3, 24)], WOOD)
    pen.polygon([(29, 8), (16, 14), (16, 30), (29, 24)], AMBER)


def customers(pen):
    shape.person(pen, 22, 9, TEAL, 0.9)
    shape.person(pen, 11, 12, BLUE, 1.08)


def payments(pen):
    pen.rect(2, 6, 28, 20, 3, BLUE)
    pen.bar(2 + pen.width / pen.unit, 10, 28 - 2 * pen.width / pen.unit, 4, INK)
    pen.rect(6, 18, 7, 5, 1, AMBER)
    pen.bar(20, 20, 6, 2, PAPER)


def units(pen):
    pen.rect(1, 10, 30, 12, 2, AMBER)
    for index, x in enumerate(range(6, 28, 4)):
        pen.bar(x, 10, 1.4, 6 if index % 2 else 4, INK)


def employees(pen):
    pen.rect(2, 6, 28, 22, 3, PAPER)
    pen.rect(12, 3, 8, 6, 1, BLUE)
    shape.person(pen, 11, 15, BLUE, 0.62)
    pen.rows(19, 7, 14, 18, 22, colour=STEEL)


def countries(pen):
    shape.globe(pen)


def regions(pen):
    for index, colour in enumerate((SKY, PAPER, SKY)):
        x, slant = 2 + 28 / 3 * index, 4 if index % 2 else 0
        other = 4 - slant
        pen.polygon([(x, 6 + slant), (x + 28 / 3, 6 + other), (x + 28 / 3, 26 + other), (x, 26 + slant)], colour)
    map_pin(pen, 20, 10)


def map_pin(pen, x, y):
    pen.polygon([(x - 6, y + 2), (x + 6, y + 2), (x, y + 13)], RED)
    pen.circle(x, y, 7, RED)
    pen.circle(x, y, 2.5, PAPER, None)


def currencies(pen):
    for y in (25, 20, 15):
        pen.ellipse(11, y, 9, 4, AMBER)
    shape.coin(pen, 21, 12, 9)


def bank_rates(pen):
    shape.coin(pen, 13, 13, 11)
    shape.badge(pen, "v", GREEN)


def tasks(pen):
    pen.rect(4, 4, 24, 26, 2, WOOD)
    pen.rect(7, 7, 18, 20, 1, PAPER)
    pen.rect(11, 2, 10, 6, 2, STEEL)
    shape.check(pen, 16, 18, 6, GREEN, 4)


FAMILIES = {
    "qdb": [add, edit, delete, correction, clone, clone_many],
    "sel": [today, current_period, last_period, all_periods, sort_up, sort_down, unsorted, find, alphabet],
    "rec": [first_record, previous_record, next_record, last_record],
    "std": [page_setup, print_one, preview, pdf, print_series, print_list, address, fiscal, company, database, program_settings, interface,
            backup, restore, export, information, leave],
    "rap": [exchange, balance, sales_chart, receivables, price_list],
    "dic": [percent, documents, goods, customers, payments, units, employees, countries, regions, currencies, bank_rates],
    "tsk": [tasks],
}
