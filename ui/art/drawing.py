"""What every picture is made of: shapes as SVG text, gradients collected per picture, lettering, colours.

Only SVG Tiny 1.2 without text, filters, masks,
patterns or clipping: QtSvg draws nothing else reliably.
"""

import json
import math
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
LETTERING = json.loads((FOLDER / "lettering.json").read_text(encoding="utf-8"))

GOLD_STOPS = [(0, "#fff3c4"), (0.35, "#ecc965"), (0.7, "#b98a2c"), (1, "#8a5f17")]
GOLD = "#d9ae48"
GOLD_DARK = "#7a5413"
GOLD_PALE = "#f8e3a0"
RED = "#c80000"
BLACK = "#0b0b0d"
INK = "#24120a"

RED_SUITS = (2, 4)
FOUR_COLOURS = {  # of the suits that change theirs; CardPainter writes the ranks in the middle ones
    3: [(0, "#0a7036"), (0.6, "#006428"), (1, "#004a1c")],
    4: [(0, "#1a5cd0"), (0.6, "#0046be"), (1, "#003290")],
}


def num(value):
    return f"{value:.2f}".rstrip("0").rstrip(".") if value else "0"


class Drawing:
    """One picture: its size in logical pixels, its gradients, its shapes in painting order."""

    def __init__(self, width, height):
        self.width, self.height = width, height
        self.defs, self.body = [], []

    def add(self, *shapes):
        self.body.extend(shapes)

    def _gradient(self, kind, geometry, stops):
        name = f"g{len(self.defs) + 1}"
        inner = "".join(
            f'<stop offset="{num(s[0])}" stop-color="{s[1]}"'
            + (f' stop-opacity="{num(s[2])}"' if len(s) > 2 else "") + "/>"
            for s in stops)
        self.defs.append(
            f'<{kind} id="{name}" gradientUnits="userSpaceOnUse" {geometry}>{inner}</{kind}>')
        return f"url(#{name})"

    def linear(self, x1, y1, x2, y2, stops):
        return self._gradient(
            "linearGradient",
            f'x1="{num(x1)}" y1="{num(y1)}" x2="{num(x2)}" y2="{num(y2)}"', stops)

    def radial(self, cx, cy, r, stops):
        return self._gradient(
            "radialGradient", f'cx="{num(cx)}" cy="{num(cy)}" r="{num(r)}"', stops)

    def gold(self, y1, y2):
        return self.linear(0, y1, 0, y2, GOLD_STOPS)

    def text(self):
        defs = f"<defs>{''.join(self.defs)}</defs>\n" if self.defs else ""
        body = "\n".join(self.body)
        return (f'<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny" '
                f'width="{num(self.width)}" height="{num(self.height)}" '
                f'viewBox="0 0 {num(self.width)} {num(self.height)}">\n{defs}{body}\n</svg>\n')


def paint(fill="none", stroke=None, width=1.0, opacity=None, cap=None, join=None):
    out = f'fill="{fill}"'
    if stroke:
        out += f' stroke="{stroke}" stroke-width="{num(width)}"'
        if cap:
            out += f' stroke-linecap="{cap}"'
        if join:
            out += f' stroke-linejoin="{join}"'
    if opacity is not None:
        out += f' opacity="{num(opacity)}"'
    return out


def rect(x, y, w, h, r=0, **look):
    corner = f' rx="{num(r)}" ry="{num(r)}"' if r else ""
    return (f'<rect x="{num(x)}" y="{num(y)}" width="{num(w)}" height="{num(h)}"{corner} '
            f'{paint(**look)}/>')


def circle(cx, cy, r, **look):
    return f'<circle cx="{num(cx)}" cy="{num(cy)}" r="{num(r)}" {paint(**look)}/>'


def ellipse(cx, cy, rx, ry, turn=0, **look):
    spin = f' transform="rotate({num(turn)} {num(cx)} {num(cy)})"' if turn else ""
    return (f'<ellipse cx="{num(cx)}" cy="{num(cy)}" rx="{num(rx)}" ry="{num(ry)}"{spin} '
            f'{paint(**look)}/>')


def path(d, **look):
    return f'<path d="{d}" {paint(**look)}/>'


def line(x1, y1, x2, y2, **look):
    return path(f"M{num(x1)} {num(y1)}L{num(x2)} {num(y2)}", **look)


def polygon(points, **look):
    return path("M" + "L".join(f"{num(x)} {num(y)}" for x, y in points) + "Z", **look)


def group(shapes, transform="", opacity=None):
    out = "<g"
    if transform:
        out += f' transform="{transform}"'
    if opacity is not None:
        out += f' opacity="{num(opacity)}"'
    return out + ">" + "".join(shapes) + "</g>"


def mirrored(shapes, axis):
    """The shapes and their reflection at the vertical line x = axis."""
    return group(shapes) + group(shapes, f"matrix(-1 0 0 1 {num(2 * axis)} 0)")


def star_points(cx, cy, outer, inner, points, turn=-90.0):
    out = []
    for k in range(2 * points):
        radius = inner if k % 2 else outer
        angle = math.radians(turn + 180 * k / points)
        out.append((cx + radius * math.cos(angle), cy + radius * math.sin(angle)))
    return out


def text_width(text, size, face="sans", spacing=0.0):
    return sum(LETTERING[face][c][0] for c in text) * size / 1000 + spacing * (len(text) - 1)


def lettering(text, cx, baseline, size, face="sans", spacing=0.0, stretch=1.0, **look):
    """The text as outlines, centred on cx; size is the font's, capitals are about 0.7 of it high."""
    x = cx - text_width(text, size, face, spacing) * stretch / 2
    shapes = []
    for c in text:
        width, outline = LETTERING[face][c]
        if outline:
            k = size / 1000
            shapes.append(f'<path transform="matrix({k * stretch:.5f} 0 0 {k:.5f} {num(x)} {num(baseline)})" '
                          f'd="{outline}" {paint(**look)}/>')
        x += (width * size / 1000 + spacing) * stretch
    return "".join(shapes)


def arc_lettering(text, cx, cy, radius, size, face="sans", spacing=0.0, bottom=False, **look):
    """The text as outlines along a circle, centred at its top, or at its bottom, readable from the centre."""
    total = text_width(text, size, face, spacing)
    along = -total / 2
    shapes = []
    for c in text:
        width, outline = LETTERING[face][c]
        advance = width * size / 1000
        angle = math.degrees((along + advance / 2) / radius)
        if outline:
            k = size / 1000
            turn = -angle if bottom else angle
            y = cy + radius if bottom else cy - radius
            shapes.append(
                f'<g transform="rotate({num(turn)} {num(cx)} {num(cy)})"><path transform="matrix({k:.5f} 0 0 '
                f'{k:.5f} {num(cx - advance / 2)} {num(y)})" d="{outline}" {paint(**look)}/></g>')
        along += advance + spacing
    return "".join(shapes)


# The pips' outlines in a square of 100.
HEART = ("M50 93C44 81 7 59 7 32C7 17 18 8 30 8C39 8 46 13 50 23C54 13 61 8 70 8C82 8 93 17 93 32"
         "C93 59 56 81 50 93Z")
DIAMOND = "M50 4C58 21 72 38 86 50C72 62 58 79 50 96C42 79 28 62 14 50C28 38 42 21 50 4Z"
SPADE = ("M50 5C57 22 93 40 93 64C93 76 84 83.5 74 83.5C65.5 83.5 58 79 54 72C55 83 60 91 68 95L32 95"
         "C40 91 45 83 46 72C42 79 34.5 83.5 26 83.5C16 83.5 7 76 7 64C7 40 43 22 50 5Z")
CLUB = ("M50 5C62 5 71 14 71 26C71 33 68 38 63.5 43C67 41.5 70 41 73.5 41C85 41 94 50 94 61.5"
        "C94 73 85 82 73.5 82C65 82 58 77 54.5 69C55.5 82 60 91 68 95L32 95C40 91 44.5 82 45.5 69"
        "C42 77 35 82 26.5 82C15 82 6 73 6 61.5C6 50 15 41 26.5 41C30 41 33 41.5 36.5 43"
        "C32 38 29 33 29 26C29 14 38 5 50 5Z")
STAR = "M" + "L".join(f"{num(x)} {num(y)}" for x, y in star_points(50, 54, 49, 20, 5)) + "Z"
PIPS = {1: SPADE, 2: HEART, 3: CLUB, 4: DIAMOND, 5: STAR}


def pip_look(drawing, suit, top, bottom, four_colours=False):
    """The colours of a suit between two heights; the stars alone have an outline, as gold on ivory is pale."""
    if suit == 5:
        fill = drawing.linear(0, top, 0, bottom, [(0, "#e6dc7a"), (0.5, "#bebe3c"), (1, "#8f8a1e")])
        return {"fill": fill, "stroke": "#3d3a08", "width": 4, "join": "round"}
    stops = FOUR_COLOURS.get(suit) if four_colours else None
    if not stops:
        stops = [(0, "#dc1414"), (0.6, RED), (1, "#a80000")] if suit in RED_SUITS else [
            (0, "#34343a"), (0.5, "#0e0e10"), (1, "#000000")]
    return {"fill": drawing.linear(0, top, 0, bottom, stops)}


def pip(drawing, suit, x, y, size, look=None):
    look = look or pip_look(drawing, suit, 0, 100)
    return group([path(PIPS[suit], **look)],
                 f"translate({num(x)} {num(y)}) scale({num(size / 100)})")
