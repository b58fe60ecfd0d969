"""The pictures of ace, king, queen and jack: busts in a gold frame, crimson for red suits, navy for black."""

import math

from drawing import (GOLD_PALE, INK, Drawing, circle, ellipse, group, mirrored, path, polygon, rect,
                     star_points)

GROUNDS = {
    "red": [(0, "#e0434c"), (0.55, "#a81c28"), (1, "#640a14")],
    "black": [(0, "#4a5fae"), (0.55, "#26356f"), (1, "#10183a")],
    "star": [(0, "#c4bb52"), (0.55, "#857d22"), (1, "#454008")],
}
ROBES = {  # against the ground's colour
    "red": [(0, "#3a53a8"), (1, "#16224e")],
    "black": [(0, "#d0303a"), (1, "#7a0f1a")],
}
W = 1.3  # outline: two thirds of a pixel in the smallest court


def framed(kind):
    d = Drawing(70, 70)
    d.add(rect(1.5, 1.5, 67, 67, 9, fill=d.radial(35, 28, 46, GROUNDS[kind])))
    return d


def close_frame(d):
    d.add(rect(2, 2, 66, 66, 8.5, stroke=d.linear(0, 0, 70, 70, [
        (0, "#fff0b8"), (0.3, "#dcb24a"), (0.55, "#9a6c1c"), (0.8, "#e8c662"), (1, "#8a5f17")]),
        width=3))
    d.add(rect(0.9, 0.9, 68.2, 68.2, 9.5, stroke="#5a3d0c", width=0.8))
    d.add(rect(3.9, 3.9, 62.2, 62.2, 6.8, stroke=INK, width=0.7, opacity=0.55))


def skin(d):
    return d.linear(0, 24, 0, 52, [(0, "#ffe9d0"), (1, "#eebd94")])


def eyes(y, brow="#3a1f10"):
    return [ellipse(29.8, y, 1.55, 1.8, fill=INK), ellipse(40.2, y, 1.55, 1.8, fill=INK),
            path(f"M26.8 {y - 3.4}Q29.8 {y - 5} 32.6 {y - 3.4}M37.4 {y - 3.4}Q40.2 {y - 5} 43.2 {y - 3.4}",
                 stroke=brow, width=1.3, cap="round")]


def king(kind):
    d = framed(kind)
    gold = d.gold(6, 26)
    robe = d.linear(0, 46, 0, 68, ROBES[kind])
    hair = d.linear(0, 22, 0, 60, [(0, "#8a5a2c"), (1, "#4c2c12")])
    d.add(
        path("M4 67C5 55 16 51 25 49L45 49C54 51 65 55 66 67Z", fill=robe, stroke=INK, width=W),
        path("M19 51C22 58 28 67 28 67L42 67C42 67 48 58 51 51L45 48L25 48Z", fill="#fbf6ea",
             stroke=INK,
             width=W, join="round"),
        # hair behind the face
        path("M21 27C18 36 18 46 22 51L48 51C52 46 52 36 49 27Z", fill=hair, stroke=INK, width=W),
        path("M24.5 25L45.5 25L45.5 40C45.5 47 41 51 35 51C29 51 24.5 47 24.5 40Z", fill=skin(d)),
        # beard and moustache
        path("M24 37C25 42 28 41.5 31 41C33 40.5 34.2 41.5 35 42C35.8 41.5 37 40.5 39 41"
             "C42 41.5 45 42 46 37C48 48 45 57 35 62C25 57 22 48 24 37Z",
             fill=hair, stroke=INK, width=W * 0.8, join="round"),
        path("M31.5 46.2Q35 48.4 38.5 46.2Q35 47 31.5 46.2Z", fill="#b33a30", stroke="#7a1c18",
             width=0.9),
        path("M35 32L33.4 38.2L36.4 38.4", stroke="#b5744c", width=1.2, cap="round", join="round"),
        *eyes(33.4),
        # crown
        path("M20 27L16.5 11L26 18.5L35 7.5L44 18.5L53.5 11L50 27Q35 23.5 20 27Z", fill=gold,
             stroke=INK,
             width=W, join="round"),
        path("M20 27.5Q35 24 50 27.5L49.6 23Q35 19.5 20.4 23Z",
             fill="#c8202c" if kind == "black" else "#2b45a0", stroke=INK, width=W * 0.8),
        circle(16.5, 11, 2.4, fill=GOLD_PALE, stroke=INK, width=W * 0.8),
        circle(53.5, 11, 2.4, fill=GOLD_PALE, stroke=INK, width=W * 0.8),
        circle(35, 7.9, 2.9, fill="#ffffff", stroke=INK, width=W * 0.8),
        circle(35, 23.6, 1.7, fill=GOLD_PALE), circle(27.5, 24.3, 1.3, fill=GOLD_PALE),
        circle(42.5, 24.3, 1.3, fill=GOLD_PALE),
        # ermine
        *[ellipse(x, y, 0.9, 1.6, fill=INK) for x, y in ((24.6, 54.5), (45.4, 54.5), (28.6, 61),
                                                         (41.4, 61))],
    )
    close_frame(d)
    return d


def queen(kind):
    d = framed(kind)
    gold = d.gold(8, 26)
    robe = d.linear(0, 50, 0, 68, ROBES[kind])
    hair = d.linear(0, 18, 0, 64, [(0, "#d98a3a"), (1, "#8a4316")])
    d.add(
        # long hair falls on the shoulders
        path("M35 18C21 18 18 30 18.5 40C19 48 13 52 12 61L58 61C57 52 51 48 51.5 40C52 30 49 18 35 18Z",
             fill=hair, stroke=INK, width=W),
        path("M5 67C6 57 17 55 26 53L35 60L44 53C53 55 64 57 65 67Z", fill=robe, stroke=INK,
             width=W,
             join="round"),
        path("M30 46L30 51C29 53 26.5 53.4 25 54L35 65.5L45 54C43.5 53.4 41 53 40 51L40 46Z",
             fill=skin(d),
             stroke=INK, width=W * 0.7, join="round"),
        path("M26 30C24.5 40 29 50.5 35 50.5C41 50.5 45.5 40 44 30C41 26 29 26 26 30Z",
             fill=skin(d), stroke=INK, width=W * 0.7),
        # the parted front hair
        path("M35 24.5C28 25 25.5 31 24.6 39C22 33 23 24 35 21C47 24 48 33 45.4 39C44.5 31 42 25 35 24.5Z",
             fill=hair, stroke=INK, width=W * 0.6),
        *eyes(36.8, "#6b3410"),
        path("M35 37.5L33.9 41.6L36 41.8", stroke="#c08457", width=1.1, cap="round", join="round"),
        path("M31.6 45.2Q33.4 43.8 35 44.8Q36.6 43.8 38.4 45.2Q35 48.4 31.6 45.2Z", fill="#c8202c",
             stroke="#8a1018", width=0.6),
        circle(28.6, 42, 2, fill="#e0564a", opacity=0.35), circle(41.4, 42, 2, fill="#e0564a",
                                                                  opacity=0.35),
        # necklace
        path("M28.5 54.5Q35 61 41.5 54.5", stroke=GOLD_PALE, width=1.8),
        circle(35, 58.6, 2.3, fill="#2b9a5c", stroke=INK, width=W * 0.7),
        # tiara
        path("M21.5 24L21 14L27.5 18.5L30 10.5L35 16.5L40 10.5L42.5 18.5L49 14L48.5 24Q35 18.5 "
             "21.5 24Z", fill=gold, stroke=INK, width=W, join="round"),
        *[circle(x, y, 1.9, fill="#ffffff", stroke=INK, width=W * 0.7)
          for x, y in ((21, 13.4), (30, 10), (40, 10), (49, 13.4))],
        circle(35, 18.6, 1.9, fill="#c8202c" if kind == "black" else "#2b45a0", stroke=INK,
               width=0.6),
    )
    close_frame(d)
    return d


def jack(kind):
    d = framed(kind)
    gold = d.gold(44, 68)
    robe = d.linear(0, 50, 0, 68, ROBES[kind])
    cap = d.linear(0, 10, 0, 28, ROBES[kind])
    hair = d.linear(0, 22, 0, 50, [(0, "#f0c75c"), (1, "#b07a1e")])
    feather = d.linear(40, 6, 62, 30, [(0, "#ffffff"), (1, "#e6d9b4")])
    d.add(
        path("M5 67C6 57 16 54 26 52L44 52C54 54 64 57 65 67Z", fill=robe, stroke=INK, width=W),
        path("M35 54L35 67", stroke=gold, width=2.4),
        # ruff
        polygon([(22, 50), (27, 49), (35, 52), (43, 49), (48, 50), (50, 56), (44.5, 55), (41, 60),
                 (35, 56.5),
                 (29, 60), (25.5, 55), (20, 56)], fill="#fbf6ea", stroke=INK, width=W,
                 join="round"),
        # bobbed hair
        path("M21 26C17 36 18 46 20.5 49.5C24 51 28 49 28 45L42 45C42 49 46 51 49.5 49.5C52 46 53 36 49 26Z",
             fill=hair, stroke=INK, width=W),
        path("M25.5 26L44.5 26L44.8 38C44.8 46 40 50.8 35 50.8C30 50.8 25.2 46 25.2 38Z",
             fill=skin(d),
             stroke=INK, width=W * 0.7),
        path("M25 34C26 28 31 28 35 28C39 28 44 28 45 34C46.5 30 46 25 44 23L26 23C24 25 23.5 30 25 34Z", fill=hair, stroke=INK, width=W * 0.6),
        *eyes(36.4, "#7a5413"),
        path("M35 37L33.8 41.6L36 41.8", stroke="#b5744c", width=1.1, cap="round", join="round"),
        path("M31 45Q35 48 39 45", stroke="#a8322a", width=1.5, cap="round"),
        # plume behind the cap's brim
        path("M44 22C46 12 53 6 62 9C58 10.5 62 14 58.5 16C62 18 56 21 57 23C52 26 47 25 44 22Z",
             fill=feather, stroke=INK, width=W * 0.9, join="round"),
        path("M45.5 22C50 19 54 14 58.5 11.5", stroke="#a8966a", width=1),
        path("M18 23C16 14 26 10 36 10.5C46 11 52 15 52 23Z", fill=cap, stroke=INK, width=W),
        path("M15.5 24.5C22 19.5 48 19.5 54.5 24.5C52 29 47 27.5 35 27.5C23 27.5 18 29 15.5 24.5Z",
             fill=gold_band(d), stroke=INK, width=W, join="round"),
        circle(45.5, 22.4, 2.4, fill="#c8202c" if kind == "black" else "#2b45a0", stroke=INK,
               width=W * 0.7),
    )
    close_frame(d)
    return d


def gold_band(d):
    return d.linear(0, 20, 0, 29, [(0, "#fff0b8"), (0.5, "#dcb24a"), (1, "#9a6c1c")])


def ace(kind):
    """A star in a laurel under a small crown."""
    d = framed(kind)
    gold = d.gold(8, 64)
    leaves = []
    for k in range(8):
        angle = math.radians(104 + k * 19)
        x, y = 35 + 23.5 * math.cos(angle), 38 + 23.5 * math.sin(angle)
        turn = math.degrees(angle)
        leaves.append(group([path("M0 5.5C-3.6 1.5 -2.8 -3 0 -5.5C2.8 -3 3.6 1.5 0 5.5Z",
                                  fill=gold_leaf(d), stroke=INK, width=0.7)],
                            f"translate({x:.2f} {y:.2f}) rotate({turn + 18:.1f})"))
    d.add(mirrored(leaves, 35))
    d.add(path("M30 62.5L35 59.5L40 62.5", stroke="#dcb24a", width=2.4, cap="round", join="round"))
    outer, inner = star_points(35, 39, 17.5, 6.8, 5)[::2], star_points(35, 39, 17.5, 6.8, 5)[1::2]
    d.add(polygon(star_points(35, 39, 17.5, 6.8, 5), fill="#f6d983", stroke=INK, width=W * 1.3,
                  join="round"))
    for k in range(5):  # one light and one dark side for each ray
        d.add(polygon([(35, 39), outer[k], inner[k]], fill="#b98a2c"))
        d.add(polygon([(35, 39), outer[k], inner[k - 1]], fill="#fff0b8"))
    d.add(path("M28 18L26.5 9.5L31.3 13L35 7.5L38.7 13L43.5 9.5L42 18Z", fill=gold, stroke=INK,
               width=W,
               join="round"))
    close_frame(d)
    return d


def gold_leaf(d):
    return d.linear(0, -5, 0, 5, [(0, "#fff0b8"), (0.5, "#dcb24a"), (1, "#a87820")])
