"""Four queens, each with her own crown, hair and collar."""

from drawing import GOLD_PALE, INK, circle, group, mirrored, path, polygon, rect
from portrait import (CLUBS, DIAMONDS, HEARTS, LINEN, SPADES, W, blush, eyes, gem, lips, nose, outlined,
                      oval_face, thin)

SHOULDERS = "M5 66.6C6 57 17 55 26 53L35 60L44 53C53 55 64 57 65 66.6Z"
NECK = "M30 46L30 51C29 53 26.5 53.4 25 54L35 65.5L45 54C43.5 53.4 41 53 40 51L40 46Z"


def bust(d):
    return [outlined(SHOULDERS, d.robe()), outlined(NECK, d.skin(), W * 0.7)]


def face(d, iris, brow, stern=0.0):
    return [oval_face(d, 26, 44, 26, 50.6), *eyes(36.8, iris, brow, 5.1, stern),
            nose(38, 42.2, "#c08457"), *lips(45.6, 3.1), *blush((29.6, 42.4), (40.4, 42.4))]


def of_spades(d):
    """Dark and grave, under a veil."""
    veil = d.shade(20, 66, ("#f4f0fa", "#a8a0c0"))
    hair = d.hair()
    return [
        outlined("M35 16C18 16 16 30 16 40C16 50 12 57 8.5 66.6L61.5 66.6C58 57 54 50 54 40C54 30 52 16 35 16Z", veil),
        mirrored([thin("M19.5 34C19.5 46 17.5 55 14 64M22.4 44C22.2 52 21 58 18.6 64", "#8c84a8", 0.9, 0.8)], 35),
        outlined("M15 66.6C17 59 22 56 27 54.4L35 61L43 54.4C48 56 53 59 55 66.6Z", d.robe()),
        outlined(NECK, d.skin(), W * 0.7),
        outlined("M35 20C23 20 21.5 30 22 38C22.4 44 24.4 48 27 50.4L43 50.4C45.6 48 47.6 44 48 38C48.5 30 47 20 35 20Z",
                 hair),
        *face(d, "#3c3a68", "#1d1210", 0.7),
        outlined("M35 24.5C29.6 26 26.6 31 25 38.4C22.6 33 23.6 24.6 35 22C46.4 24.6 47.4 33 45 38.4"
                 "C43.4 31 40.4 26 35 24.5Z", hair, W * 0.6),
        thin("M28 55Q35 62 42 55", GOLD_PALE, 1.6), *gem(35, 60, 2.3, "#c8202c"),
        # tall crown with leaf-shaped points
        outlined("M21 25L18.6 12.4C21 14 23.4 16.4 25.4 18.6C26 14.6 27.4 11 30 8.6C31.6 11 32.6 13.4 33 15.8"
                 "C33.2 12 34 8.6 35 6.6C36 8.6 36.8 12 37 15.8C37.4 13.4 38.4 11 40 8.6C42.6 11 44 14.6 44.6 18.6"
                 "C46.6 16.4 49 14 51.4 12.4L49 25Q35 20 21 25Z", d.gold(6, 26)),
        thin("M22 21.6Q35 16.6 48 21.6", "#7a5413", 0.9),
        *gem(35, 20.4, 1.9, "#c8202c"), *gem(28, 21.4, 1.3, "#ffffff"), *gem(42, 21.4, 1.3, "#ffffff"),
    ]


def of_hearts(d):
    """Fair, her hair in curls, with a rose."""
    hair = d.hair()
    curls = [(19.6, 34, 5), (18, 42.4, 5.2), (17.6, 51, 5.4), (20.6, 58.4, 4.8)]
    return [
        *bust(d),
        outlined("M35 18C21 18 19 30 19.4 40C19.6 47 19 52 19 58L28.4 54L28 46L42 46L41.6 54L51 58"
                 "C51 52 50.4 47 50.6 40C51 30 49 18 35 18Z", hair),
        mirrored([circle(x, y, r, fill=hair, stroke=INK, width=W) for x, y, r in curls]
                 + [thin(f"M{x - r * 0.45} {y}A{r * 0.45} {r * 0.45} 0 1 1 {x} {y + r * 0.45}", "#fff0b8", 0.9)
                    for x, y, r in curls], 35),
        *face(d, "#2c62a8", "#8a5a14"),
        outlined("M35 24C28 25 26 31 25.4 38C22.4 33 23 24 35 21C47 24 47.6 33 44.6 38C44 31 42 25 35 24Z",
                 hair, W * 0.6),
        thin("M28.5 54.5Q35 61 41.5 54.5", GOLD_PALE, 1.8), *gem(35, 58.6, 2.3, "#2b9a5c"),
        outlined("M21.5 24L21 14L27.5 18.5L30 10.5L35 16.5L40 10.5L42.5 18.5L49 14L48.5 24Q35 18.5 21.5 24Z",
                 d.gold(8, 26)),
        *[circle(x, y, 1.9, fill="#ffffff", stroke=INK, width=W * 0.7)
          for x, y in ((21, 13.4), (30, 10), (40, 10), (49, 13.4))],
        path("M35 22.4C33 20.8 31.8 19.6 31.8 18C31.8 16.4 34 15.8 35 17.6C36 15.8 38.2 16.4 38.2 18"
             "C38.2 19.6 37 20.8 35 22.4Z", fill="#c8202c", stroke=INK, width=0.8),
        *rose(50.5, 60.5),
    ]


def rose(x, y):
    petals = [circle(x + dx, y + dy, 2.5, fill="#f6b8c0", stroke=INK, width=0.8)
              for dx, dy in ((0, -2.6), (2.5, -0.8), (1.5, 2.1), (-1.5, 2.1), (-2.5, -0.8))]
    return [outlined(f"M{x + 2} {y + 1}Q{x + 7.4} {y + 0.4} {x + 7.8} {y + 4.2}Q{x + 3} {y + 5.4} {x + 2} {y + 1}Z",
                     "#2b9a5c", 0.8), *petals, circle(x, y, 1.6, fill="#e0606e", stroke=INK, width=0.7)]


def of_clubs(d):
    """Red-haired, with two long plaits."""
    hair = d.hair()
    plait = []
    for k in range(5):  # its turns, narrower downwards
        y, r = 43.4 + 4.8 * k, 4.4 - 0.32 * k
        plait.append(outlined(f"M{21.6 - r:.2f} {y - 2.6:.2f}Q{21.6:.2f} {y - 4.6:.2f} {21.6 + r:.2f} {y - 2.6:.2f}"
                              f"Q{21.6 + r:.2f} {y + 1.8:.2f} 21.6 {y + 3:.2f}Q{21.6 - r:.2f} {y + 1.8:.2f} "
                              f"{21.6 - r:.2f} {y - 2.6:.2f}Z", hair, W * 0.8))
        plait.append(thin(f"M{21.6:.2f} {y + 2.4:.2f}L{21.6 + r * 0.7:.2f} {y - 1.4:.2f}", "#6a2410", 0.8))
    return [
        *bust(d),
        path("M26 53L35 60L44 53", stroke=d.trim(52, 62), width=3.4, join="round"),
        outlined("M35 19C22 19 18.6 28 18.4 38L19 42L51 42L51.6 38C51.4 28 48 19 35 19Z", hair),
        *face(d, "#2d7a4c", "#6a2410"),
        outlined("M35 24.4C29 26 26.6 31.6 25.6 41C21.4 36 22 25 35 22C48 25 48.6 36 44.4 41C43.4 31.6 41 26 35 24.4Z",
                 hair, W * 0.6),
        mirrored(plait, 35),
        *[path(f"M{x - 3} 65.4L{x + 3} 65.4", stroke=GOLD_PALE, width=2) for x in (21.6, 48.4)],
        circle(35, 57.2, 1.5, fill=GOLD_PALE, stroke=INK, width=0.7),
        # a circlet with three clover leaves
        *[shape for x, y, r in ((24.6, 17.4, 2.1), (45.4, 17.4, 2.1), (35, 13.2, 2.7))
          for shape in clover(d, x, y, r)],
        outlined("M20.4 26Q35 18.4 49.6 26L49.2 21Q35 13.8 20.8 21Z", d.gold(14, 27)),
        *gem(35, 19.6, 1.6, "#7a3f8e"), *gem(27.6, 21.2, 1.3, "#7a3f8e"), *gem(42.4, 21.2, 1.3, "#7a3f8e"),
    ]


def clover(d, x, y, r):
    gold = d.gold(y - 2 * r, y + 3 * r)
    leaves = ((0, -r), (r, r * 0.5), (-r, r * 0.5))
    stem = rect(x - r * 0.35, y, r * 0.7, r * 3, fill=gold, stroke=INK, width=W * 0.7)
    return [stem] + [circle(x + dx, y + dy, r, fill=gold, stroke=INK, width=W * 0.8) for dx, dy in leaves] + [
        circle(x, y, r * 0.7, fill="#ecc965")]


def of_diamonds(d):
    """Her dark hair high, in a wide ruff set with pearls."""
    hair = d.hair()
    ruff = []
    for k in range(15):
        ruff.append(group([outlined("M35 47L31.4 66C31.4 69.6 38.6 69.6 38.6 66Z", LINEN, W * 0.7),
                           thin("M35 52L35 66.4", "#b8ac8c", 0.7)],
                          f"translate(0 -3.4) translate(35 47) scale(1 0.86) rotate({(k - 7) * 13.5}) "
                          f"translate(-35 -47)"))
    pearls = [circle(x, y, 1.1, fill="#ffffff", stroke=INK, width=0.5)
              for x, y in ((27.4, 24.6), (30, 22.9), (32.5, 22), (35, 21.7), (37.5, 22), (40, 22.9), (42.6, 24.6))]
    return [
        outlined("M9 66.6C10 60 20 57 26 55L44 55C50 57 60 60 61 66.6Z", d.robe()),
        *ruff,
        outlined("M35 15C24 14 19.6 21 21 29C21.6 34 22.6 38 25 42L45 42C47.4 38 48.4 34 49 29C50.4 21 46 14 35 15Z",
                 hair),
        *face(d, "#7a4a18", "#4e2a12"),
        outlined("M26 34C26.4 28 30 25.6 35 25.6C40 25.6 43.6 28 44 34C46 30 45.6 25 43.4 23L26.6 23C24.4 25 24 30 26 34Z",
                 hair, W * 0.6),
        mirrored([thin("M24.6 22.6C23 25 23 29 23.8 32.6M29 19.4C26.6 20 25.4 21 24.8 22", "#d8a878", 0.9, 0.8)], 35),
        *pearls,
        *[circle(x, 44, 1.2, fill="#ffffff", stroke=INK, width=0.6) for x in (25.4, 44.6)],
        # a small crown of lozenges
        outlined("M27 18.6L25 10.6L30 13.4L35 6.4L40 13.4L45 10.6L43 18.6Q35 15.8 27 18.6Z", d.gold(6, 20)),
        polygon([(35, 10), (37.4, 13.4), (35, 16.8), (32.6, 13.4)], fill="#c8202c", stroke=INK, width=0.8,
                join="round"),
        *[circle(x, y, 1.4, fill="#ffffff", stroke=INK, width=W * 0.6) for x, y in ((25, 10.4), (35, 6.4), (45, 10.4))],
    ]


QUEENS = {SPADES: of_spades, HEARTS: of_hearts, CLUBS: of_clubs, DIAMONDS: of_diamonds}
