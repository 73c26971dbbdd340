"""The icons of dialogs, message boxes and fields, and the program's own, by name."""
import icon_shapes as shape
import icon_ribbon as ribbon
from icon_pen import AMBER, BLUE, GREEN, INK, PAPER, RED, SKY, STEEL, TEAL


def accept(pen):
    shape.check(pen, 16, 16, 10, GREEN, 6)


def cancel(pen):
    shape.cross(pen, 16, 16, 8, RED, 6)


def close(pen):
    shape.cross(pen, 16, 16, 8, STEEL, 6)


def exclamation(pen, colour, top=8):
    pen.bar(14, top, 4, 10, colour)
    pen.bar(14, top + 12, 4, 4, colour)


def field_warning(pen):
    pen.circle(16, 16, 13, RED)
    exclamation(pen, PAPER)


def message_error(pen):
    pen.circle(16, 16, 14, RED)
    for sign in (1, -1):
        pen.trace([(11 * pen.unit, (16 - 5 * sign) * pen.unit), (21 * pen.unit, (16 + 5 * sign) * pen.unit)], False)
        pen.ink(PAPER, 4 * pen.unit, 1)


def message_warning(pen):
    pen.polygon([(16, 2), (30, 28), (2, 28)], AMBER)
    exclamation(pen, INK, 10)


def plus(pen):
    pen.cross_shape(16, 16, 11, 6, GREEN, "+")


def minus(pen):
    pen.cross_shape(16, 16, 11, 6, RED, "-")


def pencil(pen):
    shape.pencil(pen, 15, 3, 17)


def browse(pen):
    shape.folder(pen)


def web(pen):
    shape.globe(pen, 14, 14, 12)
    pen.polygon([(16, 15), (29, 22), (23, 24), (20, 30)], AMBER)


def mail(pen):
    shape.envelope(pen)


def attachment_add(pen):
    shape.clip(pen, -4, -2)
    shape.badge(pen, "+", GREEN)


def attachment_delete(pen):
    shape.clip(pen, -4, -2)
    shape.badge(pen, "x", RED)


def attachment_open(pen):
    shape.clip(pen, -4, -2)
    shape.badge(pen, ">", BLUE)


def accounts(pen):
    pen.polygon([(16, 2), (30, 10), (30, 12), (2, 12), (2, 10)], SKY)
    for x in (5, 13, 21):
        pen.rect(x, 12, 6, 13, 0.5, PAPER)
    pen.rect(2, 24, 28, 6, 1, AMBER)


def logo(pen):
    pen.rect(2, 4, 28, 24, 2, SKY)
    pen.circle(22, 11, 3.5, AMBER, None)
    pen.polygon([(4, 26), (12, 13), (18, 21), (21, 18), (28, 26)], GREEN)


def zoom(sign):
    def draw(pen):
        shape.magnifier(pen)
        if sign == "1" and pen.size < 48:
            pen.bar(9, 9, 8, 3, INK)
            pen.bar(9, 15, 8, 3, INK)
            return
        if sign == "1":
            shape.letters(pen, 9.5, 9, 2.4, 8, "1", INK, 2)
            shape.letters(pen, 12, 9, 2, 8, ":", INK, 2)
            shape.letters(pen, 14.5, 9, 2.4, 8, "1", INK, 2)
            return
        pen.bar(8, 12, 10, 2, INK)
        if sign == "+":
            pen.bar(12, 8, 2, 10, INK)
    return draw


def program_icon(pen):
    pen.rect(1, 1, 30, 30, 7, (0.20, 0.24, 0.30))
    shape.page(pen, 6, 4, 17, 22, 6)
    pen.rows(10, 6, 10)
    pen.rows(10, 9, 14)
    pen.ring(20, 20, 6.5, 0, 360, AMBER, 4)


SINGLE = {
    "ostrinka": program_icon, "error": field_warning,
    "msg.error": message_error, "msg.warning": message_warning, "msg.info": ribbon.information,
    "btnsave": accept, "btncancel": cancel, "btnclose": close, "btnadd": plus, "btnedit": pencil, "btnremove": minus,
    "btnfind": ribbon.find, "btnbrowse": browse, "btnweb": web, "btnmail": mail,
    "btnattadd": attachment_add, "btnattdel": attachment_delete, "btnattopen": attachment_open, "btnaccounts": accounts, "btnlogo": logo,
    "btnprint": ribbon.print_one, "btnpreview": ribbon.preview, "btnpdf": ribbon.pdf,
    "btnzoomin": zoom("+"), "btnzoomout": zoom("-"), "btnzoom100": zoom("1"),
}
