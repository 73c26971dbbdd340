#!/usr/bin/env python3
"""Writes src/print/font_width_tables.h: character widths of six fonts at a cell height of 125 units, by Windows-1250 byte.

    make_widths.py > src/print/font_width_tables.h

Read from free fonts with the widths of the ones that pages name: Liberation Sans 2 (fonts-liberation2) for Arial, Liberation Mono 2 for
Courier New, Wine's Tahoma (fonts-wine) for Tahoma. The size is the whole number of pixels an em that comes nearest to a cell, winAscent and
winDescent together, of 125 pixels without passing it; a width is the advance in whole pixels at that size.
"""
import math
import struct
import sys

CELL = 125
LIBERATION = "/usr/share/fonts/truetype/liberation2/"
WINE = "/usr/share/wine/fonts/"
FACES = [
    ("Arial", LIBERATION + "LiberationSans-Regular.ttf"),
    ("Arial,Bold", LIBERATION + "LiberationSans-Bold.ttf"),
    ("Courier New", LIBERATION + "LiberationMono-Regular.ttf"),
    ("Courier New,Bold", LIBERATION + "LiberationMono-Bold.ttf"),
    ("Tahoma", WINE + "tahoma.ttf"),
    ("Tahoma,Bold", WINE + "tahomabd.ttf"),
]


class TrueType:
    """The few tables of a TrueType font that say how wide a character is."""

    def __init__(self, path):
        self.data = open(path, "rb").read()
        self.tables = {}
        for i in range(self.u16(4)):
            tag, _, offset, _ = struct.unpack_from(">4sIII", self.data, 12 + 16 * i)
            self.tables[tag.decode("latin-1")] = offset
        self.units_per_em = self.u16(self.tables["head"] + 18)
        self.advances = self.u16(self.tables["hhea"] + 34)
        self.cell = self.u16(self.tables["OS/2"] + 74) + self.u16(self.tables["OS/2"] + 76)
        self.unicode_map = self.find_unicode_map()

    def u16(self, at):
        return struct.unpack_from(">H", self.data, at)[0]

    def find_unicode_map(self):
        cmap = self.tables["cmap"]
        for i in range(self.u16(cmap + 2)):
            platform, encoding, offset = struct.unpack_from(">HHI", self.data, cmap + 4 + 8 * i)
            if (platform, encoding) in ((3, 1), (0, 3)) and self.u16(cmap + offset) == 4:
                return cmap + offset
        raise ValueError("no Unicode character map")

    def glyph(self, code):
        """Number of the glyph of a code point, 0 when the font lacks it (character map of format 4)."""
        at, double_count = self.unicode_map, self.u16(self.unicode_map + 6)
        for i in range(0, double_count, 2):
            if code > self.u16(at + 14 + i):
                continue
            start = self.u16(at + 16 + double_count + i)
            delta = self.u16(at + 16 + 2 * double_count + i)
            place = at + 16 + 3 * double_count + i
            offset = self.u16(place)
            if code < start:
                return 0
            if offset == 0:
                return (code + delta) & 0xFFFF
            found = self.u16(place + offset + 2 * (code - start))
            return (found + delta) & 0xFFFF if found else 0
        return 0

    def advance(self, code):
        return self.u16(self.tables["hmtx"] + 4 * min(self.glyph(code), self.advances - 1))


def round_half_up(value):
    return math.floor(value + 0.5)


def widths(font):
    size = round_half_up(CELL * font.units_per_em / font.cell)
    if round_half_up(size * font.cell / font.units_per_em) > CELL:
        size -= 1
    result = []
    for byte in range(256):
        text = bytes([byte]).decode("cp1250", errors="ignore")
        result.append(round_half_up(font.advance(ord(text) if text else byte) * size / font.units_per_em))
    return result


def main():
    out = ["// Made by tools/make_widths.py: not to be edited. Widths by Windows-1250 byte at a cell height of 125 units.", "#pragma once", "",
           "#include <array>", "#include <cstdint>", "", "namespace ostrinka {", "",
           f"inline constexpr std::array<std::array<uint8_t, 256>, {len(FACES)}> kWidthsAt125 = {{{{"]
    for name, path in FACES:
        out.append(f"    {{{{  // {name}")
        row = widths(TrueType(path))
        for start in range(0, 256, 32):
            out.append("        " + ", ".join(str(width) for width in row[start:start + 32]) + ",")
        out.append("    }},")
    out += ["}};", "", "}  // namespace ostrinka"]
    sys.stdout.write("\n".join(out) + "\n")


if __name__ == "__main__":
    main()
