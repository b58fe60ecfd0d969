"""Five aces of one family: the suit in gold relief under a small crown, in a wreath of its own."""

import math

from drawing import INK, PIPS, circle, ellipse, group, mirrored, path, polygon, star_points
from portrait import CLUBS, DIAMONDS, HEARTS, SPADES, STARS, W, outlined

LIGHT, MIDDLE, DARK = "#fff0b8", "#f6d983", "#b98a2c"
HALVES = {  # the right half of each pip in a square of 100
    SPADES: "M50 5C57 22 93 40 93 64C93 76 84 83.5 74 83.5C65.5 83.5 58 79 54 72C55 83 60 91 68 95L50 95Z",
    HEARTS: "M50 93C56 81 93 59 93 32C93 17 82 8 70 8C61 8 54 13 50 23Z",
    CLUBS: "M50 5C62 5 71 14 71 26C71 33 68 38 63.5 43C67 41.5 70 41 73.5 41C85 41 94 50 94 61.5C94 73 85 82 73.5 82"
           "C65 82 58 77 54.5 69C55.5 82 60 91 68 95L50 95Z",
    DIAMONDS: "M50 4C58 21 72 38 86 50C72 62 58 79 50 96Z",
}


def gold_leaf(d):
    return d.linear(0, -5.5, 0, 5.5, [(0, "#fff0b8"), (0.5, "#dcb24a"), (1, "#a87820")])


def around(make, count, first, step, radius=23.5):
    """What make gives for a place, on both sides of a ring that is open at the top."""
    shapes = []
    for k in range(count):
        angle = first + k * step
        x, y = 35 + radius * math.cos(math.radians(angle)), 38 + radius * math.sin(math.radians(angle))
        shapes.append(group(make(k), f"translate({x:.2f} {y:.2f}) rotate({angle:.1f})"))
    return mirrored(shapes, 35)


def laurel(d):
    leaf = path("M0 5.5C-3.6 1.5 -2.8 -3 0 -5.5C2.8 -3 3.6 1.5 0 5.5Z", fill=gold_leaf(d), stroke=INK, width=0.7)
    return [around(lambda k: [group([leaf], "rotate(18)")], 8, 104, 19), tie()]


def tie():
    return path("M30 62.5L35 59.5L40 62.5", stroke="#dcb24a", width=2.4, cap="round", join="round")


def roses(d):
    leaf = path("M0 4.4C-3.2 1.2 -2.6 -2.4 0 -4.4C2.6 -2.4 3.2 1.2 0 4.4Z", fill=gold_leaf(d), stroke=INK, width=0.7)
    blossom = [circle(3.1 * math.cos(math.radians(t)), 3.1 * math.sin(math.radians(t)), 2.1, fill=MIDDLE,
                      stroke=INK, width=0.7) for t in range(0, 360, 72)] + [
        circle(0, 0, 2, fill=DARK, stroke=INK, width=0.6), circle(-0.3, -0.4, 0.8, fill=LIGHT)]
    return [around(lambda k: blossom if k % 2 else [group([leaf], "rotate(26)")], 8, 96, 20)]


def oak(d):
    leaf = path("M0 6C-1 4.6 -3 4.8 -3.2 3C-4.6 2.2 -4.2 0.4 -3.2 0C-4.2 -1.2 -3.4 -2.8 -2.2 -2.8C-2.4 -4.6 -1 -5.8 0 -6"
                "C1 -5.8 2.4 -4.6 2.2 -2.8C3.4 -2.8 4.2 -1.2 3.2 0C4.2 0.4 4.6 2.2 3.2 3C3 4.8 1 4.6 0 6Z",
                fill=gold_leaf(d), stroke=INK, width=0.7, join="round")
    vein = path("M0 5L0 -3.6", stroke="#7a5413", width=0.6)
    acorn = [ellipse(0, 0.4, 2, 2.8, fill=MIDDLE, stroke=INK, width=0.7),
             path("M-2.4 1.2Q0 2.6 2.4 1.2L2 3.4Q0 4.6 -2 3.4Z", fill=DARK, stroke=INK, width=0.6)]
    leaves = around(lambda k: [group([leaf, vein], "rotate(16)")], 6, 106, 25)
    return [leaves, around(lambda k: [group(acorn, "rotate(90)")], 3, 131, 50, 26), tie()]


def jewels(d):
    """A ring of cut stones, large and small in turn."""
    ring = [circle(35, 38, 23.5, stroke=INK, width=3), circle(35, 38, 23.5, stroke="#dcb24a", width=1.6)]

    def stone(k):
        r, s = (4.4, 3.4) if k % 2 else (2.6, 2.2)
        return [polygon([(-r, 0), (0, -s), (r, 0), (0, s)], fill=MIDDLE, stroke=INK, width=0.8, join="round"),
                polygon([(-r, 0), (0, -s), (0, 0)], fill=LIGHT), polygon([(r, 0), (0, s), (0, 0)], fill=DARK)]

    below = group(stone(1), "translate(35 61.5) rotate(90)")
    return [*ring, around(stone, 8, 108.5, 18.3), below]


def relief(suit, x, y, size):
    """The pip with one light half and one dark, and a smaller one on it the other way round."""
    half = HALVES[suit]

    def halves(right, left):
        return [path(half, fill=right), group([path(half, fill=left)], "matrix(-1 0 0 1 100 0)")]

    return group([path(PIPS[suit], stroke=INK, width=10, join="round"), *halves(DARK, LIGHT),
                  group(halves(MIDDLE, "#dcae4c"), "translate(17 19) scale(0.66)")],
                 f"translate({x:.2f} {y:.2f}) scale({size / 100:.4f})")


def gem_relief(x, y, size):
    """A diamond cut in facets about a table."""
    def at(points, fill):
        return polygon([(x + px * size / 100, y + py * size / 100) for px, py in points], fill=fill)
    top, right, low, left = (50, 2), (88, 50), (50, 98), (12, 50)
    it, ir, il, ib = (50, 28), (70, 50), (30, 50), (50, 72)
    return [polygon([(x + px * size / 100, y + py * size / 100) for px, py in (top, right, low, left)], fill=MIDDLE,
                    stroke=INK, width=W * 2, join="round"),
            at((top, right, ir, it), "#dcae4c"), at((right, low, ib, ir), DARK),
            at((low, left, il, ib), "#dcae4c"), at((left, top, it, il), LIGHT),
            at((it, ir, ib, il), MIDDLE), at((it, ir, il), "#fff6d4")]


def star():
    outer, inner = star_points(35, 39, 17.5, 6.8, 5)[::2], star_points(35, 39, 17.5, 6.8, 5)[1::2]
    shapes = [polygon(star_points(35, 39, 17.5, 6.8, 5), fill=MIDDLE, stroke=INK, width=W * 1.3, join="round")]
    for k in range(5):  # one light and one dark side for each ray
        shapes += [polygon([(35, 39), outer[k], inner[k]], fill=DARK),
                   polygon([(35, 39), outer[k], inner[k - 1]], fill=LIGHT)]
    return shapes


def ace(suit):
    wreath = {SPADES: laurel, HEARTS: roses, CLUBS: oak, DIAMONDS: jewels, STARS: laurel}[suit]

    def draw(d):
        emblem = star() if suit == STARS else gem_relief(18, 22, 33) if suit == DIAMONDS else [
            relief(suit, *{SPADES: (18.5, 21.5, 33), HEARTS: (19, 23, 32), CLUBS: (18.5, 21.5, 33)}[suit])]
        crown = outlined("M28 18L26.5 9.5L31.3 13L35 7.5L38.7 13L43.5 9.5L42 18Z", d.gold(8, 64))
        return [*wreath(d), *emblem, crown]

    return draw


ACES = {suit: ace(suit) for suit in (SPADES, HEARTS, CLUBS, DIAMONDS, STARS)}
