"""The backs to choose from: crimson with a rosette, waves and a compass on blue, rays and fans on black.

Each looks the same when the card is turned round."""

import math

from drawing import (GOLD, GOLD_DARK, GOLD_PALE, Drawing, circle, ellipse, group, line, path, polygon, rect,
                     star_points)

SIZES = {"small": (90, 120), "medium": (120, 160), "large": (160, 220)}
CORNER = {"small": 6, "medium": 7.5, "large": 10}
EDGE = "#8d8168"
MARGIN = {"small": 4.5, "medium": 6, "large": 7.5}  # of paper around the printed field
INSET = {"small": 2.5, "medium": 3, "large": 4}  # of the frame in the field
THIN = {"small": 0.7, "medium": 0.75, "large": 0.8}


class Back(Drawing):
    """Paper with a printed field, in whose frame a0..a1, b0..b1 the pattern stands."""

    def __init__(self, size, field):
        self.w, self.h = SIZES[size]
        super().__init__(self.w, self.h)
        self.size, self.thin, self.inset = size, THIN[size], INSET[size]
        self.cx, self.cy = self.w / 2, self.h / 2
        r, m = CORNER[size], MARGIN[size]
        self.add(rect(0.5, 0.5, self.w - 1, self.h - 1, r,
                      fill=self.linear(0, 0, self.w * 0.6, self.h, [(0, "#ffffff"), (1, "#efe6d0")]), stroke=EDGE),
                 rect(m, m, self.w - 2 * m, self.h - 2 * m, r * 0.55,
                      fill=self.linear(0, 0, 0, self.h, list(zip((0, 0.5, 1), field)))))
        far = m + self.inset
        self.a0, self.b0, self.a1, self.b1 = far, far, self.w - far, self.h - far

    def frame(self, stroke, width):
        return rect(self.a0, self.b0, self.a1 - self.a0, self.b1 - self.b0, 2, stroke=stroke, width=width)

    def inside(self, x, y):
        return self.a0 <= x <= self.a1 and self.b0 <= y <= self.b1


def crossing(clear, hidden, visible):
    """Where the way from a visible point to a hidden one disappears."""
    for _ in range(12):
        middle = ((clear[0] + hidden[0]) / 2, (clear[1] + hidden[1]) / 2)
        clear, hidden = (middle, hidden) if visible(*middle) else (clear, middle)
    return clear


def seen(points, visible):
    """The visible parts of a straight line through points, as a path's data."""
    d, drawing = "", False
    for a, b in zip(points, points[1:]):
        from_a, to_b = visible(*a), visible(*b)
        if from_a or to_b:
            start = a if from_a else crossing(b, a, visible)
            end = b if to_b else crossing(a, b, visible)
            if not drawing:
                d += f"M{start[0]:.2f} {start[1]:.2f}"
            if not to_b or b == points[-1]:
                d += f"L{end[0]:.2f} {end[1]:.2f}"
        drawing = to_b
    return d


def at(cx, cy, r, degrees):
    """A point of a circle; 0 is to the right, 90 below."""
    t = math.radians(degrees)
    return cx + r * math.cos(t), cy + r * math.sin(t)


def seen_arc(cx, cy, r, visible):
    """The visible parts of the upper half of a circle, as a path's data."""
    def clear(degrees, _):
        return visible(*at(cx, cy, r, degrees))

    d, steps, start = "", range(180, 361, 6), None
    for a, b in zip(steps, steps[1:]):
        if start is None and (clear(a, 0) or clear(b, 0)):
            start = a if clear(a, 0) else crossing((b, 0), (a, 0), clear)[0]
        if start is not None and (not clear(b, 0) or b == 360):
            end = b if clear(b, 0) else crossing((a, 0), (b, 0), clear)[0]
            (x1, y1), (x2, y2) = at(cx, cy, r, start), at(cx, cy, r, end)
            d += f"M{x1:.2f} {y1:.2f}A{r:.2f} {r:.2f} 0 0 1 {x2:.2f} {y2:.2f}"
            start = None
    return d


def clipped_diagonals(x0, y0, x1, y1, step):
    """Lines at 45 degrees within a rectangle, symmetrical about its centre, each as a path's data."""
    cx, cy = (x0 + x1) / 2, (y0 + y1) / 2
    hw, hh = (x1 - x0) / 2, (y1 - y0) / 2
    lines = []
    count = int((hw + hh) / step) + 1
    for k in range(-count, count + 1):
        c = (k + 0.5) * step
        lo, hi = max(-hw, c - hh), min(hw, c + hh)
        if lo >= hi:
            continue
        for flip in (1, -1):
            lines.append(f"M{cx + lo:.2f} {cy + flip * (lo - c):.2f}L{cx + hi:.2f} {cy + flip * (hi - c):.2f}")
    return lines


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


def crimson(size):
    d = Back(size, ("#a81c28", "#7c0f1a", "#a81c28"))
    step = {"small": 10, "medium": 11, "large": 12}[size]
    a0, b0, a1, b1, thin = d.a0, d.b0, d.a1, d.b1, d.thin
    # Gold mixed with the field's colours, and not translucent, as the lines cross one another. One
    # path of all of them would take many times as long to draw.
    faint = d.linear(0, 0, 0, d.h, [(0, "#c36c3a"), (0.5, "#af6633"), (1, "#c36c3a")])
    d.add(*[path(line, stroke=faint, width=thin) for line in clipped_diagonals(a0, b0, a1, b1, step)])
    radius = d.w * 0.27
    for x, y in lattice_centres(a0, b0, a1, b1, step, step * 0.3):
        if math.hypot(x - d.cx, y - d.cy) > radius + step * 0.3:
            d.add(circle(x, y, step * 0.1, fill=GOLD_PALE, opacity=0.8))
    d.add(d.frame(d.gold(0, d.h), thin * 1.6))
    d.add(circle(d.cx, d.cy, radius + d.inset * 1.1, fill="#7c0f1a"))
    d.add(circle(d.cx, d.cy, radius + d.inset * 1.1, stroke=GOLD, width=thin))
    d.add(*rosette(d, d.cx, d.cy, radius, {"small": 8, "medium": 10, "large": 12}[size], thin))
    for sx, sy in ((0, 0), (1, 0), (0, 1), (1, 1)):
        d.add(corner_fan((a0, a1)[sx], (b0, b1)[sy], 1 - 2 * sx, 1 - 2 * sy, d.w * 0.15, thin))
    return d


def corner_fan(x, y, dx, dy, r, thin):
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


def waves(d, r, visible):
    """Scales of three rings as far as visible, in the upper half of the back; a path's data each."""
    scales = []
    for row in range(-3, int(d.h / r) + 2):
        y = d.cy - row * r / 2  # its discs' centres; the rows below it lie in front
        for k in range(-8, 9):
            x = d.cx + (2 * k + row % 2) * r
            front = [(x - r, y + r / 2), (x + r, y + r / 2), (x, y + r)]

            def shown(px, py, front=front):
                return py <= d.cy and visible(px, py) and all(
                    math.hypot(px - fx, py - fy) >= r - 0.01 for fx, fy in front)

            rings = "".join(seen_arc(x, y, r * ring, shown) for ring in (1, 0.68, 0.36))
            scales += [rings] if rings else []
    return scales


def compass(d, r):
    """A rose of sixteen points, each with a light side and a dark one."""
    shapes = [circle(d.cx, d.cy, r, fill=d.radial(d.cx, d.cy - r * 0.3, r * 1.4, [(0, "#2f55b0"), (1, "#0b1740")]),
                     stroke=d.linear(0, d.cy - r, 0, d.cy + r, SILVER), width=d.thin * 2.6),
              circle(d.cx, d.cy, r * 0.86, stroke="#c8d4ee", width=d.thin * 0.9)]
    for k in range(32):
        t = k * 360 / 32
        shapes.append(line(*at(d.cx, d.cy, r * 0.86, t), *at(d.cx, d.cy, r * 0.96, t), stroke="#c8d4ee",
                           width=d.thin * (1.2 if k % 4 == 0 else 0.7)))
    shapes.append(circle(d.cx, d.cy, r * 0.5, stroke="#c8d4ee", width=d.thin * 0.9))
    for first, every, long, waist in ((22.5, 45, 0.56, 0.15), (45, 90, 0.68, 0.17), (0, 90, 0.84, 0.2)):
        for k in range(360 // every):
            t = first + k * every
            tip = at(d.cx, d.cy, r * long, t)
            for turn, fill in ((every / 2, "#f4f7ff"), (-every / 2, "#8ea2cc")):
                shapes.append(polygon([(d.cx, d.cy), at(d.cx, d.cy, r * waist, t + turn), tip], fill=fill,
                                      stroke="#0b1740", width=d.thin * 0.4, join="round"))
    return shapes + [circle(d.cx, d.cy, r * 0.1, fill=GOLD, stroke="#0b1740", width=d.thin * 0.7)]


SILVER = [(0, "#ffffff"), (0.4, "#c8d4ee"), (0.75, "#8496c0"), (1, "#dfe7f8")]


def navy(size):
    d = Back(size, ("#2747a0", "#142a6c", "#2747a0"))
    radius = d.w * 0.27
    across = {"small": 4, "medium": 5, "large": 6}[size]

    def visible(x, y):
        return d.inside(x, y) and math.hypot(x - d.cx, y - d.cy) > radius + d.inset * 1.1

    upper = [path(scale, stroke="#b9c8ec", width=d.thin, opacity=0.75)
             for scale in waves(d, (d.a1 - d.a0) / 2 / across, visible)]
    d.add(group(upper), group(upper, f"rotate(180 {d.cx} {d.cy})"))
    d.add(d.frame(d.linear(0, 0, 0, d.h, SILVER), d.thin * 1.6),
          circle(d.cx, d.cy, radius + d.inset * 1.1, stroke="#c8d4ee", width=d.thin))
    d.add(*compass(d, radius))
    return d


def onyx(size):
    d = Back(size, ("#3a3843", "#1b1a21", "#3a3843"))
    gold = d.gold(0, d.h)
    hw, hh = (d.a1 - d.a0) / 2, (d.b1 - d.b0) / 2
    fan = hw * 0.62  # the fans' reach from the middle of the upper and lower edge
    corner = hw * 0.4

    def lozenge(k):
        return [(d.cx, d.cy - hh * k), (d.cx + hw * k, d.cy), (d.cx, d.cy + hh * k), (d.cx - hw * k, d.cy)]

    def visible(x, y):
        dx, dy = abs(x - d.cx), abs(y - d.cy)
        return (d.inside(x, y) and dx / hw + dy / hh >= 0.72 and math.hypot(dx, hh - dy) >= fan
                and math.hypot(hw - dx, hh - dy) >= corner)

    rays, count = "", {"small": 48, "medium": 64, "large": 80}[size]
    for k in range(count):
        t = 360 * (k + 0.5) / count
        rays += seen([at(d.cx, d.cy, s, t) for s in range(0, int(hh * 1.6), 3)], visible)
    d.add(path(rays, stroke=GOLD, width=d.thin, opacity=0.75))
    d.add(*[polygon(lozenge(k), stroke=gold, width=d.thin * w, join="round")
            for k, w in ((0.72, 1.4), (0.64, 0.8), (0.56, 0.8))])
    d.add(*gem(d, lozenge(0.46), lozenge(0.22)))
    upper = half_fan(d, d.cx, d.b0, fan, 0, 180) + half_fan(d, d.a0, d.b0, corner, 0, 90) + half_fan(
        d, d.a1, d.b0, corner, 90, 180)
    d.add(group(upper), group(upper, f"rotate(180 {d.cx} {d.cy})"))
    d.add(d.frame(gold, d.thin * 1.6))
    return d


def gem(d, outer, inner):
    """A stone cut in four facets about a table; turned round it is lit as before."""
    sides = ("#f8e3a0", GOLD_DARK, "#f8e3a0", GOLD_DARK)
    shapes = [polygon([outer[k], outer[(k + 1) % 4], inner[(k + 1) % 4], inner[k]], fill=fill)
              for k, fill in enumerate(sides)]
    table = d.radial(d.cx, d.cy, d.h * 0.2, [(0, "#fff0c0"), (1, "#b98a2c")])
    return shapes + [polygon(inner, fill=table), polygon(outer, stroke="#16151a", width=d.thin, join="round")]


def half_fan(d, x, y, r, first, last):
    """Feathers about a point of the edge, between two angles: rings, and ribs in every other one."""
    shapes = []
    for feather, ring in enumerate((1, 0.74, 0.48, 0.22)):
        points = [at(x, y, r * ring, first + k * (last - first) / 24) for k in range(25)]
        shapes.append(polygon(points + [(x, y)], fill=("#23222a", "#35333e", "#23222a", GOLD)[feather], stroke=GOLD,
                              width=d.thin))
        ribs = max(int((last - first) * ring / {"small": 22, "medium": 18, "large": 15}[d.size]), 2)
        if feather in (0, 2):
            for rib in range(1, ribs):
                t = first + (last - first) * rib / ribs
                shapes.append(line(*at(x, y, r * (ring - 0.26), t), *at(x, y, r * ring, t), stroke=GOLD, width=d.thin))
    return shapes


BACKS = (crimson, navy, onyx)
