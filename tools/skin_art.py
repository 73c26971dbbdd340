"""The elements of a skin: each is drawn whole, in units of the window, and cut into its parts.

docs/formats/skin.md tells what each part is.
"""
from drawing import darker, lighter, mix, rgb
from skin_pen import Pen, RADIUS, WHITE


class Art:
    """The images of one skin by name. `keys` are the lines of its .ini file."""

    def __init__(self, keys):
        self.images = {}
        self.colours = {key: rgb(value) for key, value in keys.items() if value.startswith("#")}
        c = self.colours
        self.frame, self.frame_dis, self.ribbon, self.hair = c["draw_frame"], c["draw_frame_dis"], c["draw_ribbon"], c["draw_line"]
        self.field, self.accent, self.mark, self.focus = c["draw_field"], c["draw_accent"], c["draw_mark"], c["draw_focus"]
        self.accent_line = darker(self.accent, 0.18)
        self.over, self.press, self.check = (mix(WHITE, self.accent, share) for share in (0.14, 0.34, 0.26))
        self.state_line = mix(self.hair, self.accent_line, 0.75)
        self.grey = mix(self.ribbon, WHITE, 0.45)

    def put(self, name, parts):
        for number, part in enumerate(parts, start=1):
            self.images[f"{name}.{number:02}.bmp"] = part

    def put_nine(self, name, pen, widths, heights):
        """Three rows: the upper one under the state's own name, the middle and the lower with .e1 and .e2."""
        parts = list(pen.cells(widths, heights))
        for row, suffix in enumerate(("", ".e1", ".e2")):
            self.put(name + suffix, parts[3 * row:3 * row + 3])

    def draw_all(self):
        for draw in (self.window_frame, self.window_buttons, self.menus, self.tabs, self.groups, self.group_buttons, self.boxes_and_options,
                     self.combos, self.quick_and_exit, self.zoom, self.scroll_bars, self.small_buttons, self.dialog_parts, self.marks):
            draw()
        return self.images

    def frame_colours(self):
        return (("std", self.frame), ("dis", self.frame_dis))

    def window_frame(self):
        for state, ground in self.frame_colours():
            edge = lighter(ground, 0.22)
            pen = Pen(34, 30)
            pen.box(lighter(ground, 0.05), edge, height=34, below=ground, corners="1100")
            pen.rect(16, 8, 1, 14, darker(ground, 0.35))
            pen.rect(17, 8, 1, 14, lighter(ground, 0.16))
            self.put(f"title.{state}", pen.cells([8, 8, 2, 8, 8]))
            pen = Pen(16, 16)
            pen.box(ground, edge, y=-8, height=24, corners="0011")
            corner, bottom, other = pen.cut(0, 12, 4, 4), pen.cut(4, 12, 8, 4), pen.cut(12, 12, 4, 4)
            self.put(f"border.{state}", [pen.cut(0, 0, 4, 8), pen.cut(12, 0, 4, 8), corner, bottom, other])
            pen = Pen(42, 24)
            pen.rect(0, 0, 42, 24, ground)
            pen.rect(0, 0, 42, 1, lighter(ground, 0.12))
            pen.rect(16, 6, 1, 13, lighter(ground, 0.22))
            for x, y in ((36, 19), (36, 15), (36, 11), (32, 19), (32, 15), (28, 19)):
                pen.rect(x, y, 2, 2, lighter(ground, 0.35))
            self.put(f"statusbar.{state}", pen.cells([8, 8, 2, 8, 16]))

    def window_buttons(self):
        for state in ("std", "over", "press", "dis"):
            ink = mix(self.frame, self.colours["color_caption_text_enabled"], 0.88)
            if state == "dis":
                ink = self.colours["color_caption_text_disabled"]
            glyphs = [self.window_button(state, part, ink) for part in ("min", "max", "close", "restore")]
            self.put(f"win.{state}", glyphs[:3])
            self.put(f"win.max.{state}", glyphs[3:])

    def window_button(self, state, part, ink):
        pen = Pen(32, 24)
        strength = {"over": 0.16, "press": 0.08}.get(state)
        if strength is not None:
            red = self.colours["draw_close"]
            ground = (red if state == "over" else darker(red, 0.18)) if part == "close" else lighter(self.frame, strength)
            pen.box(ground, x=2, y=1, width=28, height=22)
            ink = WHITE
        if part == "min":
            pen.rect(11, 14, 10, 1.5, ink)
        elif part == "max":
            pen.line([(11.75, 7.75), (20.25, 7.75), (20.25, 16.25), (11.75, 16.25)], ink, 1.5, closed=True)
        elif part == "restore":
            pen.line([(11.75, 9.75), (18.25, 9.75), (18.25, 16.25), (11.75, 16.25)], ink, 1.5, closed=True)
            pen.line([(13.75, 7.75), (20.25, 7.75), (20.25, 14.25)], ink, 1.5)
        else:
            pen.line([(11.75, 7.75), (20.25, 16.25)], ink, 1.5)
            pen.line([(20.25, 7.75), (11.75, 16.25)], ink, 1.5)
        return pen.surface

    def menus(self):
        ground = self.colours["color_popup_menu"]
        pen = Pen(20, 20)
        pen.box(ground, self.colours["color_popup_border"])
        parts = list(pen.cells([6, 8, 6], [6, 8, 6]))
        self.put("menu.border", parts[:4] + parts[5:])
        pen = Pen(20, 24)
        pen.box(lighter(ground, 0.13), radius=3)
        pen.box(self.accent, x=2, y=5, width=2, height=14, radius=1)
        self.put("menu.select", pen.cells([6, 8, 6]))

    def tabs(self):
        grounds = {"std": self.ribbon, "over": lighter(self.frame, 0.12), "empty": self.frame, "alt": lighter(self.frame, 0.06),
                   "group": mix(self.frame, self.accent, 0.22)}
        for state, ground in grounds.items():
            pen = Pen(24, 24)
            pen.rect(0, 0, 24, 24, self.frame)
            if state == "alt":
                pen.box(ground, self.accent_line, height=32, corners="1100")
            elif state != "empty":
                pen.box(ground, height=24, corners="1100")
            if state in ("std", "group"):
                pen.box(self.accent, x=4, y=0, width=16, height=2, radius=0)
                pen.context.save()
                pen.rounded(0, 0, 24, 24, RADIUS, "1100")
                pen.context.clip()
                pen.rect(0, 0, 24, 2, self.accent)
                pen.context.restore()
            self.put_nine(f"tab.{state}", pen, [8, 8, 8], [8, 8, 8])

    def groups(self):
        for state in ("std", "over"):
            ground = self.ribbon if state == "std" else mix(self.ribbon, WHITE, 0.4)
            pen = Pen(20, 32)
            pen.rect(0, 0, 20, 32, ground)
            pen.rect(0, 14, 20, 18, darker(ground, 0.025))
            pen.rect(18, 6, 1, 21, self.hair)
            pen.rect(19, 6, 1, 21, lighter(ground, 0.6))
            pen.rect(0, 31, 20, 1, self.hair)
            self.put_nine(f"group.{state}", pen, [6, 8, 6], [6, 8, 18])
        for state, ground in (("std", None), ("over", self.over), ("press", self.press)):
            pen = Pen(16, 16)
            if ground:
                pen.box(ground, self.state_line, radius=3)
            ink = self.colours["color_arrow_drop_one"]
            pen.line([(5.5, 8.5), (5.5, 5.5), (8.5, 5.5)], ink)
            pen.line([(7.5, 7.5), (10.5, 10.5), (10.5, 8), (10.5, 10.5), (8, 10.5)], ink)
            self.put_nine(f"grp.ex.{state}", pen, [4, 8, 4], [4, 8, 4])

    def state_box(self, pen, state, height=None, y=0, corners="1111"):
        """The ground of a button on the ribbon; none in its normal state."""
        grounds = {"over": (self.over, self.state_line), "press": (self.press, self.accent_line), "check": (self.check, self.accent_line)}
        if state in grounds:
            pen.box(*grounds[state], y=y, height=height, corners=corners)
        elif state == "select":
            pen.box(mix(self.ribbon, WHITE, 0.5), self.focus, y=y, height=height, corners=corners, thick=2)

    def group_buttons(self):
        stronger = {"over": "press", "press": "press", "check": "press", "select": "select", "std": "std"}
        for state, lower_state in stronger.items():
            pen = Pen(16, 66)
            self.state_box(pen, state)
            lower = Pen(16, 26)
            self.state_box(lower, lower_state, corners="0011")
            divider = Pen(8, 1)
            if state != "std":
                divider.rect(0, 0, 8, 1, self.state_line)
            self.put(f"btn.grp.{state}", [*pen.cells([4, 8, 4]), *lower.cells([4, 8, 4]), divider.surface])

    def box_colours(self, state):
        """Ground, line and mark (None for none) of a check or option box."""
        line = self.colours["color_text_border"]
        dim = mix(line, self.grey, 0.5)
        dark = darker(self.accent, 0.3)
        return {"std": (self.field, line, None), "over": (self.over, self.accent_line, None), "press": (self.press, self.accent_line, None),
                "check": (self.accent, dark, self.mark), "chkover": (lighter(self.accent, 0.15), dark, self.mark),
                "ckhalf": (self.grey, dim, dim), "disable": (self.grey, dim, None)}[state]

    def boxes_and_options(self):
        for state in ("std", "over", "press", "check", "chkover"):
            ground, line, mark = self.box_colours(state)
            pen = Pen(16, 16)
            pen.box(ground, line, x=1, y=1, width=14, height=14, radius=3)
            if mark:
                pen.line([(4.5, 8.25), (7, 10.75), (11.5, 5.25)], mark, 1.75)
            self.put(f"cb.{state}", pen.cells([4, 8, 4], [4, 8, 4]))
        for state in ("std", "over", "check", "ckover", "ckhalf", "disable"):
            ground, line, mark = self.box_colours({"ckover": "chkover"}.get(state, state))
            pen = Pen(16, 16)
            pen.disc(8, 8, 7, line)
            pen.disc(8, 8, 6, ground)
            if mark:
                pen.disc(8, 8, 2.75, mark)
            self.put(f"opt.{state}", [pen.surface])

    def combos(self):
        arrow = self.colours["color_arrow_drop_one"]
        for element, height in (("combo", 22), ("combobox", 24)):
            for state in ("std", "over", "press"):
                pen = Pen(32, height)
                line = {"std": self.colours["color_text_border"], "over": self.accent_line, "press": self.accent_line}[state]
                pen.box(self.field, line, radius=3)
                if state != "std":
                    pen.box(self.over if state == "over" else self.press, x=13, y=1, width=18, height=height - 2, radius=2, corners="0110")
                    pen.rect(13, 1, 1, height - 2, self.state_line)
                pen.triangle(22, height / 2, 4, arrow)
                self.put(f"{element}.{state}", pen.cells([4, 8, 20]))

    def quick_and_exit(self):
        for state, ground, line in (("over", 0.16, None), ("press", 0.08, None), ("check", 0.10, self.accent)):
            pen = Pen(24, 22)
            pen.box(lighter(self.frame, ground), line)
            self.put(f"qb.{state}", pen.cells([4, 16, 4]))
        menu = self.colours["color_main_menu"]
        for state, ground, line in (("std", lighter(menu, 0.06), lighter(menu, 0.25)), ("over", lighter(menu, 0.14), self.accent)):
            pen = Pen(20, 26)
            pen.box(ground, line)
            self.put(f"exit.{state}", pen.cells([6, 8, 6]))

    def zoom_button(self, state, sign):
        pen = Pen(18, 20)
        ink = mix(self.frame, WHITE, 0.85)
        if state != "std":
            pen.box(lighter(self.frame, 0.18 if state == "over" else 0.08), x=1, y=2, width=16, height=16, radius=3)
            ink = WHITE
        pen.rect(5, 9.5, 8, 1, ink)
        if sign == "+":
            pen.rect(8.5, 6, 1, 8, ink)
        return pen.surface

    def zoom_thumb(self, state):
        pen = Pen(10, 20)
        ground = {"std": mix(self.frame, WHITE, 0.88), "over": WHITE, "press": self.accent}[state]
        pen.box(ground, darker(self.frame, 0.3), x=1, y=3, width=8, height=14, radius=3)
        return pen.surface

    def zoom(self):
        pen = Pen(16, 20)
        pen.box(lighter(self.frame, 0.35), x=1, y=9, width=14, height=2, radius=1)
        self.put("zoom.std", [*pen.cells([4, 8, 4]), self.zoom_button("std", "-"), self.zoom_button("std", "+"), self.zoom_thumb("std")])
        for state in ("over", "press"):
            self.put(f"zoom.{state}", [self.zoom_button(state, "-"), self.zoom_button(state, "+"), self.zoom_thumb(state)])

    def scroll_bars(self):
        track, arrow = self.grey, self.colours["color_arrow_drop_one"]
        thumbs = {"std": mix(self.hair, self.colours["color_text_border"], 0.35), "over": self.colours["color_text_border"],
                  "press": self.colours["color_arrow_drop_one"]}
        for state, thumb in thumbs.items():
            for element, ways in (("scr.v", "^v"), ("scr.h", "<>")):
                parts = []
                for way in ways:
                    pen = Pen(14, 14)
                    pen.rect(0, 0, 14, 14, track)
                    if state != "std":
                        pen.box(self.over if state == "over" else self.press, x=1, y=1, width=12, height=12, radius=3)
                    pen.triangle(7, 7, 3.5, arrow, way)
                    parts.append(pen.surface)
                upright = element == "scr.v"
                pen = Pen(14, 8) if upright else Pen(8, 14)
                pen.rect(0, 0, 14, 14, track)
                parts.append(pen.surface)
                pen = Pen(14, 20) if upright else Pen(20, 14)
                pen.rect(0, 0, 20, 20, track)
                x, y, width, height = (3, 1, 8, 18) if upright else (1, 3, 18, 8)
                pen.box(thumb, x=x, y=y, width=width, height=height)
                self.put(f"{element}.{state}", [*parts, *(pen.cells([14], [6, 8, 6]) if upright else pen.cells([6, 8, 6]))])

    def small_buttons(self):
        for state in ("std", "over", "press", "check", "dis"):
            pen = Pen(16, 24)
            self.state_box(pen, state)
            self.put(f"button.small.{state}", pen.cells([4, 8, 4]))
        states = {"a": (None, None), "b": (self.over, mix(self.ribbon, self.over, 0.6)), "c": (self.press, self.over),
                  "d": (mix(self.ribbon, self.over, 0.6), self.over), "e": (self.over, self.press), "f": (self.check, self.check)}
        for state, (body, drop) in states.items():
            pen = Pen(28, 24)
            if body:
                pen.box(body, self.state_line)
                pen.box(drop, x=12, y=1, width=15, height=22, radius=3, corners="0110")
                pen.rect(12, 1, 1, 22, self.state_line)
            pen.triangle(20, 12, 3.5, self.colours["color_arrow_drop_one"])
            self.put(f"button.small.split.{state}", pen.cells([4, 8, 16]))

    def dialog_parts(self):
        line = self.colours["color_text_border"]
        light = mix(self.grey, WHITE, 0.3)
        buttons = {"std": (WHITE, line, light), "over": (self.over, self.accent_line, None), "press": (self.press, self.accent_line, None),
                   "def": (WHITE, self.accent_line, light), "dis": (self.grey, mix(line, self.grey, 0.6), None)}
        for state, (ground, edge, below) in buttons.items():
            pen = Pen(16, 28)
            pen.box(ground, edge, below=below, thick=2 if state == "def" else 1)
            self.put(f"btn.dlg.{state}", pen.cells([4, 8, 4]))
        for state, ground, edge, thick in (("std", self.field, line, 1), ("focus", self.field, self.focus, 2),
                                           ("dis", self.grey, mix(line, self.grey, 0.6), 1)):
            pen = Pen(16, 16)
            pen.box(ground, edge, radius=3, thick=thick)
            self.put_nine(f"edit.{state}", pen, [4, 8, 4], [4, 8, 4])
        for state, ground in (("std", lighter(self.frame, 0.22)), ("fill", self.accent)):
            pen = Pen(16, 8)
            pen.box(ground)
            self.put(f"progress.{state}", pen.cells([4, 8, 4]))

    def marks(self):
        ink = self.colours["color_menu_text_std"]
        for state in ("check", "radio", "sub"):
            pen = Pen(16, 16)
            if state == "check":
                pen.line([(3.5, 8.25), (6.75, 11.5), (12.5, 4.75)], ink, 2)
            elif state == "radio":
                pen.disc(8, 8, 3, ink)
            else:
                pen.triangle(8, 8, 4, ink, ">")
            self.put(f"menu.mark.{state}", [pen.surface])
        pen = Pen(2, 8)
        pen.rect(0, 0, 1, 8, self.hair)
        pen.rect(1, 0, 1, 8, lighter(self.ribbon, 0.6))
        self.put("sep.bar", [pen.surface])
