#!/usr/bin/env python3
"""Draws the skins: make_skins.py OUT writes OUT/skins/black.skin, silver.skin and blue.skin. docs/formats/skin.md tells the layout.

resources/skins/<name>.ini has a skin's colours, resources/skin_images.txt the names of the images in their order. The tool fails, and
writes nothing of that skin, when the drawn names are not those of the list or when a text would not stand out from its ground.
"""
import os
import struct
import sys

sys.dont_write_bytecode = True
import drawing
from skin_art import Art
from skin_pen import SCALE

RESOURCES = os.path.join(os.path.dirname(os.path.abspath(__file__)), os.pardir, "resources")
SKINS = ("black", "silver", "blue")
IMAGES = 399
MOST_DATA = 999999
KEYS = ["round_corners"] + ["color_" + name for name in (
    "main_menu popup_menu popup_margin popup_border background caption_text_enabled caption_text_disabled caption_text_document "
    "tab_text_std tab_text_act toolbar_text btn_text_std btn_text_act btn_text_chk btn_text_dis menu_text_std menu_text_dis "
    "arrow_drop_one arrow_drop_two "
    "icon_dis_one icon_dis_two icon_dis_three text_border").split()] + ["scale"]
TEXT, DISABLED, SHAPE = 4.5, 3.9, 3.0  # least contrast

# A text's key, the grounds it stands on (an image, or a key; what an image lets through shows the ribbon), the least contrast.
LEGIBLE = [
    ("color_tab_text_std", TEXT, "tab.empty.e1.02 tab.over.e1.02 tab.alt.e1.02 tab.group.e1.02 statusbar.std.02 statusbar.std.04"),
    ("color_tab_text_act", TEXT, "tab.std.e1.02"),
    ("color_caption_text_enabled", TEXT, "title.std.04 draw_close qb.over.02 qb.check.02"),
    ("color_caption_text_document", TEXT, "title.std.04"),
    ("color_caption_text_disabled", DISABLED, "title.dis.04 statusbar.dis.02"),
    ("color_toolbar_text", TEXT, "group.std.e1.02 group.std.e2.02 group.over.e2.02 color_background"),
    ("color_btn_text_std", TEXT, "group.std.e1.02 btn.dlg.std.02 btn.dlg.over.02 btn.dlg.press.02 btn.dlg.def.02 edit.std.e1.02 "
     "edit.focus.e1.02 combo.std.02 combobox.press.02 color_background color_icon_dis_three color_menu_text_std"),
    ("color_btn_text_act", TEXT, "btn.grp.over.02 btn.grp.press.02 btn.grp.over.05 button.small.over.02 button.small.split.b.02 "
     "btn.grp.select.02"),
    ("color_btn_text_chk", TEXT, "btn.grp.check.02 btn.grp.check.05 button.small.check.02 button.small.split.f.02"),
    ("color_btn_text_dis", DISABLED, "group.std.e1.02 btn.dlg.dis.02 edit.dis.e1.02 button.small.dis.02"),
    ("color_menu_text_std", TEXT, "color_popup_menu color_popup_margin color_main_menu menu.select.02 exit.std.02 exit.over.02"),
    ("color_menu_text_dis", DISABLED, "color_popup_menu color_popup_margin"),
    ("color_popup_menu", TEXT, "color_tab_text_std"),
    ("color_arrow_drop_one", SHAPE, "group.std.e1.02 combo.over.02 btn.grp.press.05"),
    ("color_arrow_drop_two", SHAPE, "tab.empty.e1.02 color_popup_menu"),
    ("color_text_border", SHAPE, "draw_field"),
    ("draw_focus", SHAPE, "draw_field draw_ribbon"),
    ("draw_mark", SHAPE, "draw_accent"),
]


def read_keys(name):
    """The lines of a skin's .ini file, in their order."""
    with open(os.path.join(RESOURCES, "skins", name + ".ini"), encoding="ascii") as lines:
        pairs = (line.strip().split("=", 1) for line in lines if line.strip() and not line.startswith("#"))
        return {key: value for key, value in pairs}


def read_names():
    with open(os.path.join(RESOURCES, "skin_images.txt"), encoding="ascii") as lines:
        names = [line.strip() for line in lines if line.strip() and not line.startswith("#")]
    if len(names) != IMAGES or len(set(names)) != IMAGES:
        sys.exit(f"skin_images.txt: {len(set(names))} different names of {len(names)}, not {IMAGES}")
    return names


def middle_colour(surface, under):
    """The pixel in the middle, laid over `under` where it is clear."""
    row = list(drawing.straight_rows(surface))[surface.get_height() // 2]
    at = 4 * (surface.get_width() // 2)
    blue, green, red, alpha = row[at:at + 4]
    return drawing.mix(under, (red / 255, green / 255, blue / 255), alpha / 255)


def illegible(art):
    """A line for each text that does not stand out."""
    for key, least, grounds in LEGIBLE:
        for ground in grounds.split():
            below = art.colours.get(ground) or middle_colour(art.images[ground + ".bmp"], art.ribbon)
            contrast = drawing.contrast(art.colours[key], below)
            if contrast < least:
                yield f"{key} on {ground}: contrast {contrast:.2f}, at least {least} wanted"


def faults(art, names):
    drawn = set(art.images)
    yield from (f"not drawn: {name}" for name in names if name not in drawn)
    yield from (f"not in the list: {name}" for name in sorted(drawn - set(names)))
    yield from (f"no whole size: {name}" for name, image in art.images.items() if image.get_width() % SCALE or image.get_height() % SCALE)
    yield from illegible(art)


def entry(name, data):
    if not 1 <= len(data) <= MOST_DATA:
        sys.exit(f"{name}: {len(data)} bytes do not fit an entry")
    return struct.pack("<96si", name.encode("cp1250").ljust(96), len(data)) + data


def package(skin, names):
    keys = read_keys(skin)
    if [key for key in keys if not key.startswith("draw_")] != KEYS or keys["scale"] != str(SCALE):
        sys.exit(f"{skin}.ini: not the keys of a skin in their order, or another scale than {SCALE}")
    art = Art(keys)
    art.draw_all()
    wrong = list(faults(art, names))
    if wrong:
        sys.exit("\n".join([f"{skin}:", *wrong]))
    ini = "".join(f"{key}={keys[key]}\r\n" for key in KEYS)
    return entry("skin.ini", ini.encode("ascii")) + b"".join(entry(name, drawing.bmp(art.images[name])) for name in names)


def main(arguments):
    if len(arguments) != 2:
        sys.exit(__doc__)
    folder = os.path.join(arguments[1], "skins")
    os.makedirs(folder, exist_ok=True)
    names = read_names()
    for skin in SKINS:
        drawing.write_file(os.path.join(folder, skin + ".skin"), package(skin, names))


if __name__ == "__main__":
    main(sys.argv)
