"""The pen that draws one element of a skin, in units of the window."""
from drawing import cairo, hexadecimal, lightness, new_surface

SCALE = 2
RADIUS = 4
MOST_SHADING = 6  # of lightness, from 0 to 100
WHITE = (1, 1, 1)


class Pen:
    """Draws one element on a surface of `width` by `height` units."""

    def __init__(self, width, height):
        self.width, self.height = width, height
        self.surface = new_surface(width * SCALE, height * SCALE)
        self.context = cairo.Context(self.surface)
        self.context.scale(SCALE, SCALE)

    def rounded(self, x, y, width, height, radius=RADIUS, corners="1111"):
        """The path of a rectangle whose corners (from the upper left, clockwise) are round where `corners` has a 1."""
        context, quarter = self.context, 1.5707963267948966
        context.new_path()
        for index, (cx, cy) in enumerate(((x, y), (x + width, y), (x + width, y + height), (x, y + height))):
            if corners[index] == "1" and radius > 0:
                inner_x, inner_y = cx + (radius if cx == x else -radius), cy + (radius if cy == y else -radius)
                context.arc(inner_x, inner_y, radius, quarter * (index + 2), quarter * (index + 3))
            else:
                context.line_to(cx, cy)
        context.close_path()

    def fill(self, colour, below=None, alpha=1.0):
        """Fills the path; with `below` the colour passes over into that one from top to bottom."""
        if below is None:
            self.context.set_source_rgba(*colour, alpha)
        else:
            if abs(lightness(colour) - lightness(below)) >= MOST_SHADING:
                raise ValueError(f"shading too strong: {hexadecimal(colour)} to {hexadecimal(below)}")
            shading = cairo.LinearGradient(0, 0, 0, self.height)
            shading.add_color_stop_rgb(0, *colour)
            shading.add_color_stop_rgb(1, *below)
            self.context.set_source(shading)
        self.context.fill()

    def box(self, colour, line=None, x=0, y=0, width=None, height=None, radius=RADIUS, corners="1111", below=None, alpha=1.0, thick=1):
        """A filled rectangle with a hairline inside its edge."""
        width = self.width - x if width is None else width
        height = self.height - y if height is None else height
        self.rounded(x, y, width, height, radius, corners)
        if line is None:
            self.fill(colour, below, alpha)
            return
        self.fill(line)
        self.rounded(x + thick, y + thick, width - 2 * thick, height - 2 * thick, max(0, radius - thick), corners)
        if alpha < 1:
            self.context.set_operator(cairo.OPERATOR_SOURCE)
        self.fill(colour, below, alpha)
        self.context.set_operator(cairo.OPERATOR_OVER)

    def rect(self, x, y, width, height, colour, alpha=1.0):
        self.context.rectangle(x, y, width, height)
        self.fill(colour, None, alpha)

    def line(self, points, colour, width=1.0, alpha=1.0, closed=False):
        self.context.new_path()
        for point in points:
            self.context.line_to(*point)
        if closed:
            self.context.close_path()
        self.context.set_source_rgba(*colour, alpha)
        self.context.set_line_width(width)
        self.context.set_line_cap(cairo.LINE_CAP_ROUND)
        self.context.set_line_join(cairo.LINE_JOIN_ROUND)
        self.context.stroke()

    def triangle(self, x, y, half, colour, way="v"):
        """A filled arrow head about (x, y), `half` its half breadth."""
        dx, dy = {"v": (0, 1), "^": (0, -1), ">": (1, 0), "<": (-1, 0)}[way]
        depth = half * 0.55
        self.context.new_path()
        self.context.move_to(x - dy * half - dx * depth, y - dx * half - dy * depth)
        self.context.line_to(x + dy * half - dx * depth, y + dx * half - dy * depth)
        self.context.line_to(x + dx * depth, y + dy * depth)
        self.context.close_path()
        self.fill(colour)

    def disc(self, x, y, radius, colour):
        self.context.new_path()
        self.context.arc(x, y, radius, 0, 6.283185307179586)
        self.fill(colour)

    def cut(self, x, y, width, height):
        part = new_surface(width * SCALE, height * SCALE)
        context = cairo.Context(part)
        context.set_source_surface(self.surface, -x * SCALE, -y * SCALE)
        context.paint()
        return part

    def cells(self, widths, heights=None):
        """The surface cut into columns and rows; the cells from the upper left, row by row."""
        y = 0
        for height in heights or [self.height]:
            x = 0
            for width in widths:
                yield self.cut(x, y, width, height)
                x += width
            y += height
