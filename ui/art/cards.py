"""Cards: faces, backs, the joker and the stack of a pile, in the three sizes of the table."""

import math

from drawing import (GOLD, GOLD_DARK, GOLD_PALE, Drawing, circle, ellipse, group, lettering, line,
                     path,
                     polygon, rect, star_points)

SIZES = {"small": (90, 120), "medium": (120, 160), "large": (160, 220)}
CORNER = {"small": 6, "medium": 7.5, "large": 10}
EDGE = "#8d8168"


def face(size, tinted=False):
    w, h = SIZES[size]
    r = CORNER[size]
    d = Drawing(w, h)
    paper = [(0, "#ffffff"), (0.5, "#fffdf6"), (1, "#f5eedc")]
    if tinted:
        paper = [(0, "#fffbe9"), (0.5, "#fdf3d2"), (1, "#f0dfae")]
    d.add(rect(0.5, 0.5, w - 1, h - 1, r, fill=d.linear(0, 0, w * 0.6, h, paper), stroke=EDGE))
    if tinted:
        d.add(rect(2, 2, w - 4, h - 4, r - 1.5, stroke=d.gold(0, h), width=2),
              rect(4, 4, w - 8, h - 8, r - 3, stroke=GOLD_DARK, width=0.5, opacity=0.7))
    else:
        d.add(rect(1.5, 1.5, w - 3, h - 3, r - 1, stroke="#ffffff", width=1))
    return d


def clipped_diagonals(x0, y0, x1, y1, step):
    """Lines at 45 degrees within a rectangle, symmetrical about its centre, as one path."""
    cx, cy = (x0 + x1) / 2, (y0 + y1) / 2
    hw, hh = (x1 - x0) / 2, (y1 - y0) / 2
    d = ""
    count = int((hw + hh) / step) + 1
    for k in range(-count, count + 1):
        c = (k + 0.5) * step
        lo, hi = max(-hw, c - hh), min(hw, c + hh)
        if lo >= hi:
            continue
        for flip in (1, -1):
            d += f"M{cx + lo:.2f} {cy + flip * (lo - c):.2f}L{cx + hi:.2f} {cy + flip * (hi - c):.2f}"
    return d


def lattice_centres(x0, y0, x1, y1, step, margin):
    """Centres of the diamonds that those lines enclose, at least margin inside the rectangle."""
    cx, cy = (x0 + x1) / 2, (y0 + y1) / 2
    out = []
    n = int(max(x1 - x0, y1 - y0) / step) + 2
    for i in range(-n, n + 1):
        for j in range(-n, n + 1):
            x, y = cx + (i + j) * step / 2, cy + (i - j) * step / 2
            if x0 + margin <= x <= x1 - margin and y0 + margin <= y <= y1 - margin:
                out.append((x, y))
    return out


def rosette(d, cx, cy, r, petals, stroke):
    """A guilloche of turned ellipses around a star: the emblem of the back."""
    turns = [k * 180 / petals for k in range(petals)]
    shapes = [circle(cx, cy, r, fill=d.radial(cx, cy - r * 0.3, r * 1.4,
                                              [(0, "#b3202c"), (1, "#5c0812")]),
                     stroke=d.gold(cy - r, cy + r), width=stroke * 2.6)]
    shapes += [ellipse(cx, cy, r * 0.34, r * 0.86, t, stroke=GOLD, width=stroke) for t in turns]
    shapes.append(circle(cx, cy, r * 0.44, fill="#6d0c16", stroke=d.gold(cy - r / 2, cy + r / 2),
                         width=stroke * 1.5))
    shapes.append(polygon(star_points(cx, cy, r * 0.38, r * 0.13, 8), fill=d.gold(cy - r / 2,
                                                                                  cy + r / 2)))
    return shapes


def back_ground(d, size):
    """The ivory edge and the red field of a back; returns the field's rectangle."""
    w, h = SIZES[size]
    r = CORNER[size]
    m = {"small": 4.5, "medium": 6, "large": 7.5}[size]
    d.add(rect(0.5, 0.5, w - 1, h - 1, r, fill=d.linear(0, 0, w * 0.6, h, [(0, "#ffffff"), (1,
                                                                                            "#efe6d0")]),
               stroke=EDGE))
    d.add(rect(m, m, w - 2 * m, h - 2 * m, r * 0.55,
               fill=d.linear(0, 0, 0, h, [(0, "#a81c28"), (0.5, "#7c0f1a"), (1, "#a81c28")])))
    return m, m, w - m, h - m


def back(size):
    w, h = SIZES[size]
    d = Drawing(w, h)
    x0, y0, x1, y1 = back_ground(d, size)
    inset = {"small": 2.5, "medium": 3, "large": 4}[size]
    step = {"small": 10, "medium": 11, "large": 12}[size]
    thin = {"small": 0.7, "medium": 0.75, "large": 0.8}[size]
    a0, b0, a1, b1 = x0 + inset, y0 + inset, x1 - inset, y1 - inset
    d.add(path(clipped_diagonals(a0, b0, a1, b1, step), stroke=GOLD, width=thin, opacity=0.55))
    cx, cy = w / 2, h / 2
    radius = w * 0.27
    for x, y in lattice_centres(a0, b0, a1, b1, step, step * 0.3):
        if math.hypot(x - cx, y - cy) > radius + step * 0.3:
            d.add(circle(x, y, step * 0.1, fill=GOLD_PALE, opacity=0.8))
    d.add(rect(a0, b0, a1 - a0, b1 - b0, 2, stroke=d.gold(0, h), width=thin * 1.6))
    d.add(circle(cx, cy, radius + inset * 1.1, fill="#7c0f1a"))
    d.add(circle(cx, cy, radius + inset * 1.1, stroke=GOLD, width=thin))
    d.add(*rosette(d, cx, cy, radius, {"small": 8, "medium": 10, "large": 12}[size], thin))
    for sx, sy in ((0, 0), (1, 0), (0, 1), (1, 1)):
        d.add(corner_fan(d, (a0, a1)[sx], (b0, b1)[sy], 1 - 2 * sx, 1 - 2 * sy, w * 0.15, thin))
    return d


def corner_fan(d, x, y, dx, dy, r, thin):
    """A quarter of a rosette in a corner."""
    sweep = 1 if dx * dy > 0 else 0

    def quarter(k):
        return f"M{x + dx * r * k:.2f} {y:.2f}A{r * k:.2f} {r * k:.2f} 0 0 {sweep} {x:.2f} {y + dy * r * k:.2f}"

    shapes = [path(quarter(1) + f"L{x:.2f} {y:.2f}Z", fill="#7c0f1a", stroke=GOLD,
                   width=thin * 1.3)]
    for t in (0.25, 0.5, 0.75):
        angle = t * math.pi / 2
        shapes.append(line(x + dx * r * 0.3 * math.cos(angle), y + dy * r * 0.3 * math.sin(angle),
                           x + dx * r * 0.82 * math.cos(angle), y + dy * r * 0.82 * math.sin(angle),
                           stroke=GOLD, width=thin * 1.2, cap="round"))
    shapes.append(path(quarter(0.34) + f"L{x:.2f} {y:.2f}Z", fill=GOLD))
    return group(shapes)


def stack(size):
    """Several cards on each other, seen slightly from above: the back and the edges below it."""
    w, h = SIZES[size]
    r = CORNER[size]
    d = Drawing(w, h)
    layers = 4
    lift = {"small": 1.25, "medium": 1.5, "large": 2}[size]
    depth = layers * lift
    for k in range(layers):
        d.add(rect(0.5, 0.5 + depth - k * lift, w - 1, h - 1 - depth, r,
                   fill="#efe6d0" if k % 2 else "#d8cdb2", stroke=EDGE, width=0.75))
    scale = (h - depth) / h
    top = back(size)
    d.defs = top.defs
    d.add(group(top.body, f"matrix(1 0 0 {scale:.4f} 0 0)"))
    return d


def cap_colours(d):
    """Gold, red, blue and green of a jester's cap 50 high; the gradients belong to the drawing."""
    return (d.linear(0, 2, 0, 56, [(0, "#fff0b8"), (0.5, "#dcb24a"), (1, "#a87820")]),
            d.linear(0, 5, 0, 60, [(0, "#e83a44"), (1, "#8e1420")]),
            d.linear(0, 5, 0, 60, [(0, "#4a70dc"), (1, "#1d2a6c")]),
            d.linear(0, 0, 0, 46, [(0, "#36b068"), (1, "#0d5a34")]))


def jester(d):
    """Head and shoulders of a jester about x = 70 in a box 140 wide and 84 high."""
    gold, red, blue, green = cap_colours(d)
    skin = d.linear(0, 36, 0, 72, [(0, "#ffe9d2"), (1, "#f0bf96")])
    ink, w = "#2a1310", 1.6
    shapes = [
        polygon([(70, 62), (88, 64), (112, 70), (103, 83), (91, 76), (81, 84), (70, 76), (59, 84),
                 (49, 76),
                 (37, 83), (28, 70), (52, 64)], fill=gold, stroke=ink, width=w, join="round"),
        polygon([(70, 60), (86, 63), (91, 76), (81, 84), (70, 76)], fill=red, stroke=ink, width=w,
                join="round"),
        polygon([(70, 60), (54, 63), (49, 76), (59, 84), (70, 76)], fill=blue, stroke=ink, width=w,
                join="round"),
        path("M51 42C50 60 59 73 70 73C81 73 90 60 89 42Z", fill=skin, stroke=ink, width=w),
        path("M58 46C52 20 26 10 12 34C26 27 38 33 41 52C47 53 53 51 58 46Z", fill=blue,
             stroke=ink, width=w,
             join="round"),
        path("M82 46C88 20 114 10 128 34C114 27 102 33 99 52C93 53 87 51 82 46Z", fill=red,
             stroke=ink, width=w,
             join="round"),
        path("M49 48C42 28 54 14 70 9C86 14 98 28 91 48C80 40 60 40 49 48Z", fill=green,
             stroke=ink, width=w,
             join="round"),
        path("M58 44C55 30 61 18 70 9C79 18 85 30 82 44C75 41 65 41 58 44Z", fill=gold, stroke=ink,
             width=w,
             join="round"),
        path("M46 51C50 42 60 39.5 70 39.5C80 39.5 90 42 94 51C86 46.5 78 45.5 70 45.5C62 45.5 54 46.5 46 51Z",
             fill=red, stroke=ink, width=w * 0.9, join="round"),
    ]
    shapes += [circle(x, y, 5.4, fill=gold, stroke=ink, width=w) for x, y in ((11, 38), (129, 38),
                                                                              (70, 7))]
    shapes += [
        ellipse(62.5, 53.5, 2.2, 2.9, fill=ink), ellipse(77.5, 53.5, 2.2, 2.9, fill=ink),
        circle(63.2, 52.4, 0.7, fill="#ffffff"), circle(78.2, 52.4, 0.7, fill="#ffffff"),
        circle(58, 60.5, 3.3, fill="#e0564a", opacity=0.5), circle(82, 60.5, 3.3, fill="#e0564a",
                                                                   opacity=0.5),
        path("M70 54Q73 59 69.5 59.6", stroke="#b5744c", width=1.3, cap="round"),
        path("M60.5 62.5Q70 66 79.5 62.5Q76 70.5 70 70.5Q64 70.5 60.5 62.5Z", fill="#a01822",
             stroke=ink, width=1,
             join="round"),
        path("M63 64.2Q70 66.6 77 64.2L76 66Q70 68 64 66Z", fill="#ffffff"),
    ]
    return shapes


def cap(d):
    """The jester's cap alone, bold enough for a dialog's button, in a box 100 wide and 72 high."""
    gold, red, blue, green = cap_colours(d)
    ink, w = "#2a1310", 2
    shapes = [
        path("M46 62C44 22 16 10 7 44C16 32 24 40 24 62Z", fill=blue, stroke=ink, width=w,
             join="round"),
        path("M54 62C56 22 84 10 93 44C84 32 76 40 76 62Z", fill=red, stroke=ink, width=w,
             join="round"),
        path("M31 62C30 42 38 24 50 14C62 24 70 42 69 62Z", fill=green, stroke=ink, width=w,
             join="round"),
        rect(19, 56, 62, 14, 5, fill=gold, stroke=ink, width=w),
    ]
    return shapes + [circle(x, y, 8, fill=gold, stroke=ink, width=w) for x, y in ((9, 48), (91,
                                                                                            48),
                                                                                            (50,
                                                                                             9))]


def joker(size):
    w, h = SIZES[size]
    d = face(size)
    band = {"small": 28, "medium": 36, "large": 46}[size]
    top, bottom = (h - band) / 2, (h + band) / 2
    margin = {"small": 4, "medium": 5, "large": 7}[size]
    name = {"small": 0, "medium": 9, "large": 12}[size]  # height of the letters down the corner
    scale = min((top - margin) / 86, (w - 2 * margin - 2 * name) / 140)
    half = [group(jester(d),
                  f"translate({w / 2 - 70 * scale:.2f} {top - 84.5 * scale:.2f}) scale({scale:.4f})")]
    for k, letter in enumerate("JOKER" if name else ""):
        half.append(lettering(letter, margin + name * 0.62, margin + name * (0.95 + 0.9 * k), name,
                              "serif",
                              fill="#a01822"))
    d.add(group(half), group([group(half)], f"rotate(180 {w / 2} {h / 2})"))
    gold = d.linear(0, 0, w, 0, [(0, GOLD_DARK), (0.5, "#e9c65c"), (1, GOLD_DARK)])
    for y in (top, bottom):
        d.add(rect(margin, y - 0.75, w - 2 * margin, 1.5, fill=gold))
    return d
