"""The pen that icons are drawn with: a grid of 32 units whatever the size, outer edges of outlined shapes on whole pixels."""
import math

from drawing import cairo, darker, lighter, new_surface, rgb, saturated

LINE_WIDTH = {16: 1.0, 24: 1.5, 32: 1.5, 48: 2.0, 64: 2.0}
INK, PAPER, SHADE = rgb("#2E3A48"), rgb("#FFFFFF"), rgb("#AEBAC7")
STEEL, MIST = rgb("#8496AA"), rgb("#D7E0EA")
BLUE, SKY = rgb("#2F80D8"), rgb("#CFE5FA")
GREEN, RED, AMBER, TEAL = rgb("#2FA35E"), rgb("#DA4A3F"), rgb("#F5AE27"), rgb("#17A398")
WOOD = rgb("#E9BE83")
ROUND, BUTT = cairo.LINE_CAP_ROUND, cairo.LINE_CAP_BUTT


class IconPen:
    """One icon of one size. State 1 (hot) is the same drawing with fuller colours."""

    def __init__(self, size, hot):
        self.size, self.hot = size, hot
        self.unit = size / 32
        self.width = LINE_WIDTH[size]
        self.small = size < 24
        self.surface = new_surface(size, size)
        self.context = cairo.Context(self.surface)
        self.context.set_line_join(cairo.LINE_JOIN_ROUND)

    def snap(self, value):
        return math.floor(value * self.unit + 0.5)

    def tone(self, colour):
        if colour in (INK, PAPER):
            return colour
        return saturated(lighter(colour, 0.04), 1.3) if self.hot else saturated(colour, 0.9)

    def paint(self, fill, line, box):
        """Fills and outlines the current path; `box` is its top and bottom in pixels, for the shading of the fill."""
        context = self.context
        if fill is not None:
            base = self.tone(fill)
            shading = cairo.LinearGradient(0, box[0], 0, box[1])
            shading.add_color_stop_rgb(0, *lighter(base, 0.10))
            shading.add_color_stop_rgb(1, *darker(base, 0.03))
            context.set_source(shading)
            if line is None:
                context.fill()
            else:
                context.fill_preserve()
        if line is not None:
            context.set_source_rgb(*self.tone(line))
            context.set_line_width(self.width)
            context.stroke()

    def rect(self, x, y, width, height, radius=2, fill=PAPER, line=INK):
        left, top, right, bottom = self.snap(x), self.snap(y), self.snap(x + width), self.snap(y + height)
        inset = self.width / 2 if line is not None else 0
        self.rounded(left + inset, top + inset, right - inset, bottom - inset, radius * self.unit)
        self.paint(fill, line, (top, bottom))

    def rounded(self, left, top, right, bottom, radius):
        context = self.context
        radius = max(0.0, min(radius, (right - left) / 2, (bottom - top) / 2))
        context.new_path()
        for x, y, start in ((right - radius, top + radius, -90), (right - radius, bottom - radius, 0),
                            (left + radius, bottom - radius, 90), (left + radius, top + radius, 180)):
            context.arc(x, y, radius, math.radians(start), math.radians(start + 90))
        context.close_path()

    def circle(self, x, y, radius, fill=PAPER, line=INK):
        left, top = self.snap(x - radius), self.snap(y - radius)
        across = max(2, self.snap(2 * radius))
        inset = self.width / 2 if line is not None else 0
        self.context.new_path()
        self.context.arc(left + across / 2, top + across / 2, across / 2 - inset, 0, 2 * math.pi)
        self.paint(fill, line, (top, top + across))

    def ellipse(self, x, y, across, down, fill=PAPER, line=INK):
        """About the middle (x, y), `across` and `down` its half axes."""
        left, top, right, bottom = self.snap(x - across), self.snap(y - down), self.snap(x + across), self.snap(y + down)
        inset = self.width / 2 if line is not None else 0
        context = self.context
        context.new_path()
        context.save()
        context.translate((left + right) / 2, (top + bottom) / 2)
        context.scale((right - left) / 2 - inset, (bottom - top) / 2 - inset)
        context.arc(0, 0, 1, 0, 2 * math.pi)
        context.restore()
        self.paint(fill, line, (top, bottom))

    def trace(self, points, closed):
        self.context.new_path()
        for x, y in points:
            self.context.line_to(x, y)
        if closed:
            self.context.close_path()

    def polygon(self, points, fill=PAPER, line=INK):
        """Corners on the grid; the outline lies inside, as that of a rectangle, where sides are level or upright."""
        pixels = [(self.snap(x), self.snap(y)) for x, y in points]
        middle = [sum(part) / len(pixels) for part in zip(*pixels)]
        inset = self.width / 2 if line is not None else 0

        def inward(value, centre):
            return value + inset if value < centre else value - inset if value > centre else value

        self.trace([(inward(x, middle[0]), inward(y, middle[1])) for x, y in pixels], True)
        heights = [y for _, y in pixels]
        self.paint(fill, line, (min(heights), max(heights)))

    def bar(self, x, y, width, height, colour=SHADE):
        """A filled rectangle without outline, at least a pixel thick."""
        left, top = self.snap(x), self.snap(y)
        wide, high = max(1, self.snap(x + width) - left), max(1, self.snap(y + height) - top)
        self.context.set_source_rgb(*self.tone(colour))
        self.context.rectangle(left, top, wide, high)
        self.context.fill()

    def rows(self, x, width, *heights, colour=SHADE):
        """Lines of writing."""
        for y in heights:
            left, top = self.snap(x), self.snap(y)
            self.context.set_source_rgb(*self.tone(colour))
            self.context.rectangle(left, top, self.snap(x + width) - left, max(1, round(1.6 * self.unit)))
            self.context.fill()

    def stroke(self, points, colour=INK, width=2.0, cap=ROUND, closed=False):
        """A plain line, `width` in units, at least a pixel."""
        thick = max(1.0, width * self.unit)
        shift = 0.5 if round(thick) % 2 else 0.0
        self.trace([(self.snap(x) + shift, self.snap(y) + shift) for x, y in points], closed)
        self.ink(colour, thick, cap)

    def curve(self, x, y, radius, start, end, colour=INK, width=2.0, cap=ROUND):
        """An arc from `start` to `end` degrees, clockwise from the right."""
        self.context.new_path()
        self.context.arc(x * self.unit, y * self.unit, radius * self.unit, math.radians(start), math.radians(end))
        self.ink(colour, max(1.0, width * self.unit), cap)

    def ink(self, colour, thick, cap):
        self.context.set_source_rgb(*self.tone(colour))
        self.context.set_line_width(thick)
        self.context.set_line_cap(cap)
        self.context.stroke()

    def tube(self, points, colour, width=5.0, cap=ROUND, closed=False):
        """A thick coloured line with an outline on both sides."""
        core = max(2.0, float(round(width * self.unit)))
        pixels = [(self.snap(x) + core % 2 / 2, self.snap(y) + core % 2 / 2) for x, y in points]
        for tint, thick in ((INK, core + 2 * self.width), (colour, core)):
            self.trace(pixels, closed)
            self.ink(tint, thick, cap)

    def ring(self, x, y, radius, start, end, colour, width=4.0):
        """A tube along an arc, with flat ends."""
        core = max(2.0, width * self.unit)
        edge = math.degrees(self.width / (radius * self.unit))
        whole = end - start >= 360
        for tint, thick, more in ((INK, core + 2 * self.width, 0 if whole else edge), (colour, core, 0)):
            self.context.new_path()
            self.context.arc(x * self.unit, y * self.unit, radius * self.unit, math.radians(start - more), math.radians(end + more))
            self.ink(tint, thick, BUTT)

    def cross_shape(self, x, y, reach, width, colour, arms="+"):
        """A plus or a minus about (x, y), outlined, every edge on a pixel."""
        half = max(1, self.snap(width / 2))
        centre_x, centre_y, far = self.snap(x), self.snap(y), max(2, self.snap(reach))
        for tint, more in ((INK, self.width), (colour, 0)):
            self.context.set_source_rgb(*self.tone(tint))
            self.context.rectangle(centre_x - far - more, centre_y - half - more, 2 * (far + more), 2 * (half + more))
            if arms == "+":
                self.context.rectangle(centre_x - half - more, centre_y - far - more, 2 * (half + more), 2 * (far + more))
            self.context.fill()

    def clear_round(self, x, y, radius):
        """Takes away what lies under a badge, so that a gap parts the two."""
        self.context.save()
        self.context.set_operator(cairo.OPERATOR_CLEAR)
        self.context.arc(x * self.unit, y * self.unit, radius * self.unit, 0, 2 * math.pi)
        self.context.fill()
        self.context.restore()
