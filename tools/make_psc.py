#!/usr/bin/env python3
"""Makes the postal table psc.bin from a plain list: make_psc.py postal_codes.txt psc.bin

A line of the list is "NN-NNN;Town" in UTF-8; empty lines and lines that start with # are comments. The order is kept. A bad line ends the
run with its number and writes nothing. The layout of a record is told in docs/formats/postal-table.md.
"""
import os
import re
import sys

CODE_LENGTH, TOWN_LENGTH = 6, 25


def scramble(text, length):
    """The stored form of a field: the inverse of subtracting the position and toggling the highest bit."""
    plain = text.encode("cp1250").ljust(length, b" ")
    return bytes(((byte ^ 0x80) + position) % 256 for position, byte in enumerate(plain, start=1))


def record(line, seen):
    """One record of 32 bytes, or ValueError with the reason."""
    parts = line.split(";")
    if len(parts) != 2:
        raise ValueError("not of the form NN-NNN;Town")
    code, town = parts
    if not re.fullmatch(r"[0-9]{2}-[0-9]{3}", code):
        raise ValueError(f"no postal code: {code!r}")
    if not town or town != town.strip() or any(ord(letter) < 32 for letter in town):
        raise ValueError(f"no town name: {town!r}")
    try:
        length = len(town.encode("cp1250"))
    except UnicodeEncodeError as error:
        raise ValueError(f"a letter outside Windows-1250: {town!r}") from error
    if length > TOWN_LENGTH:
        raise ValueError(f"town name longer than {TOWN_LENGTH}: {town!r}")
    if (code, town) in seen:
        raise ValueError(f"a second time: {line!r}")
    seen.add((code, town))
    return scramble(code, CODE_LENGTH) + scramble(town, TOWN_LENGTH) + b" "


def main(arguments):
    if len(arguments) != 3:
        sys.exit(__doc__)
    source, target = arguments[1:]
    seen, table = set(), bytearray()
    with open(source, encoding="utf-8") as lines:
        for number, line in enumerate(lines, start=1):
            line = line.rstrip("\n")
            if not line or line.startswith("#"):
                continue
            try:
                table += record(line, seen)
            except ValueError as error:
                sys.exit(f"{source}:{number}: {error}")
    if not table:
        sys.exit(f"{source}: no codes")
    with open(target + ".new", "wb") as out:
        out.write(table)
    os.replace(target + ".new", target)


if __name__ == "__main__":
    main(sys.argv)
