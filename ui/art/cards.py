"""Cards: faces, the joker and the stack of a pile, in the three sizes of the table."""

from backs import BACKS, CORNER, EDGE, SIZES
from drawing import GOLD_DARK, Drawing, circle, ellipse, group, lettering, path, polygon, rect


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


def stack(size, number):
    """Several cards on each other, seen slightly from above: that back and the edges below it."""
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
    top = BACKS[number](size)
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
