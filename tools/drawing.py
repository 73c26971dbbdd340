"""What make_skins.py and make_icons.py share: colours, contrast, and pictures written as BMP with alpha and as ICO."""
import io
import os
import struct
import sys

try:
    import cairo
except ImportError:
    # python3-cairo belongs to the system's own interpreter, which need not be the first one on the path.
    SYSTEM = "/usr/bin/python3"
    if not os.path.exists(SYSTEM) or os.path.realpath(sys.executable) == os.path.realpath(SYSTEM):
        sys.exit("python3-cairo is missing")
    os.execv(SYSTEM, [SYSTEM, *sys.argv])


def rgb(text):
    """"#rrggbb" as three numbers from 0 to 1."""
    return tuple(int(text[i:i + 2], 16) / 255 for i in (1, 3, 5))


def hexadecimal(colour):
    return "#" + "".join(f"{round(part * 255):02X}" for part in colour)


def mix(first, second, ratio):
    return tuple((1 - ratio) * a + ratio * b for a, b in zip(first, second))


def lighter(colour, amount):
    return mix(colour, (1, 1, 1), amount)


def darker(colour, amount):
    return mix(colour, (0, 0, 0), amount)


def saturated(colour, factor):
    """Each part moved away from the colour's own grey (factor above 1) or toward it."""
    grey = 0.299 * colour[0] + 0.587 * colour[1] + 0.114 * colour[2]
    return tuple(min(1, max(0, grey + (part - grey) * factor)) for part in colour)


def luminance(colour):
    linear = [part / 12.92 if part <= 0.03928 else ((part + 0.055) / 1.055) ** 2.4 for part in colour]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(first, second):
    """From 1 to 21, as the accessibility guidelines define it."""
    light, dark = sorted((luminance(first), luminance(second)), reverse=True)
    return (light + 0.05) / (dark + 0.05)


def lightness(colour):
    """From 0 to 100, as the eye judges it."""
    y = luminance(colour)
    return 116 * y ** (1 / 3) - 16 if y > 0.008856 else 903.3 * y


def new_surface(width, height):
    return cairo.ImageSurface(cairo.FORMAT_ARGB32, width, height)


def straight_rows(surface):
    """The rows from the top as B, G, R, A bytes whose colours are not multiplied by the alpha."""
    surface.flush()
    width, height, stride = surface.get_width(), surface.get_height(), surface.get_stride()
    data = bytearray(surface.get_data())
    for y in range(height):
        row = data[y * stride:y * stride + 4 * width]
        if any(row[3::4].strip(b"\xff")):
            for at in range(0, 4 * width, 4):
                alpha = row[at + 3]
                if 0 < alpha < 255:
                    row[at:at + 3] = bytes(min(255, (part * 255 + alpha // 2) // alpha) for part in row[at:at + 3])
        yield bytes(row)


def bmp(surface):
    """A 32-bit BMP with a version 4 header, whose masks say that the fourth byte is the alpha."""
    rows = list(straight_rows(surface))
    bits = b"".join(reversed(rows))
    header = struct.pack("<IiiHHIIiiII", 108, surface.get_width(), surface.get_height(), 1, 32, 3, len(bits), 5669, 5669, 0, 0)
    header += struct.pack("<IIII", 0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000)
    header += struct.pack("<I48x", 0x73524742)  # sRGB, so no end points and no gamma
    return struct.pack("<2sIHHI", b"BM", 14 + 108 + len(bits), 0, 0, 14 + 108) + header + bits


def png(surface):
    out = io.BytesIO()
    surface.write_to_png(out)
    return out.getvalue()


def ico(surfaces):
    """An icon file of one picture a size, each as PNG."""
    pictures = [png(surface) for surface in surfaces]
    offset = 6 + 16 * len(pictures)
    directory = struct.pack("<HHH", 0, 1, len(pictures))
    for surface, picture in zip(surfaces, pictures):
        directory += struct.pack("<BBBBHHII", surface.get_width() % 256, surface.get_height() % 256, 0, 0, 1, 32, len(picture), offset)
        offset += len(picture)
    return directory + b"".join(pictures)


def write_file(path, content):
    """All or nothing: the file stands under its name when it is complete."""
    with open(path + ".new", "wb") as out:
        out.write(content)
    os.replace(path + ".new", path)
