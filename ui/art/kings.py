"""Four kings, each with his own crown, beard and mantle."""

from drawing import GOLD_PALE, INK, circle, ellipse, mirrored, path, polygon, rect
from portrait import (CLUBS, DIAMONDS, HEARTS, LINEN, SPADES, W, eyes, gem, nose, outlined, oval_face, thin)

MANTLE = "M5 66.4C6 55 16 51 25 49L45 49C54 51 64 55 65 66.4Z"
COLLAR = "M19 51C22 58 28 66.6 28 66.6L42 66.6C42 66.6 48 58 51 51L45 48L25 48Z"


def ermine(*spots):
    return [outlined(COLLAR, LINEN), *[ellipse(x, y, 0.9, 1.6, fill=INK) for x, y in spots]]


def mouth(y):
    return path(f"M31.5 {y}Q35 {y + 2.4} 38.5 {y}Q35 {y + 0.9} 31.5 {y}Z", fill="#b33a30", stroke="#7a1c18",
                width=0.9)


def gems_on_band(y, *fills):
    shapes = []
    for k, fill in enumerate(fills):
        x = 35 + (k - (len(fills) - 1) / 2) * 7.4
        shapes += gem(x, y + abs(x - 35) * 0.09, 1.7 if x == 35 else 1.4, fill)
    return shapes


def of_spades(d):
    """Dark, stern, with a long beard."""
    hair = d.hair()
    return [
        outlined(MANTLE, d.robe()), *ermine((24.6, 54.5), (45.4, 54.5), (28, 61), (42, 61)),
        outlined("M21 27C18 36 18 46 22 51L48 51C52 46 52 36 49 27Z", hair),
        oval_face(d, 24.6, 45.4, 25, 50),
        outlined("M24 36C25 42 28 41.5 31 41C33 40.5 34.2 41.5 35 42C35.8 41.5 37 40.5 39 41C42 41.5 45 42 46 36"
                 "C48.4 48 45 57.4 35 63.4C25 57.4 21.6 48 24 36Z", hair, W * 0.8),
        mirrored([thin("M33.6 50.6C33.4 54 33.8 57.4 34.6 60.4M29.6 49C29.4 52.4 30.2 55.4 31.8 58"
                       "M26.4 45.6C26.2 48.6 26.8 51 28 53.4", "#a08a78", 0.8, 0.75)], 35),
        mouth(46.2), *eyes(33.6, "#4a3418", "#1d1210", 5.4, 1), nose(34.4, 39.4),
        outlined("M20 27L16.5 11L26 18.5L35 7.5L44 18.5L53.5 11L50 27Q35 23.5 20 27Z", d.gold(6, 26)),
        outlined("M20 27.5Q35 24 50 27.5L49.6 23Q35 19.5 20.4 23Z", "#c8202c", W * 0.8),
        *gems_on_band(23.5, GOLD_PALE, "#ffffff", GOLD_PALE),
        *[circle(x, 11, 2.4, fill=GOLD_PALE, stroke=INK, width=W * 0.8) for x in (16.5, 53.5)],
        circle(35, 7.9, 2.7, fill="#ffffff", stroke=INK, width=W * 0.8),
    ]


def of_hearts(d):
    """Fair and kind, his beard in curls, without a moustache, in an arched crown."""
    hair = d.hair()
    curls = [(23.4, 40.6), (24, 45.2), (26.4, 49.4), (30.4, 52.2), (35, 53.2), (39.6, 52.2), (43.6, 49.4),
             (46, 45.2), (46.6, 40.6)]
    return [
        outlined(MANTLE, d.robe()), *ermine((24.4, 54.5), (45.6, 54.5), (29, 61.5), (41, 61.5)),
        outlined("M22 26C16.5 31 17 38 19.4 41C17.4 45 19.6 50.6 24.4 50.6L45.6 50.6C50.4 50.6 52.6 45 50.6 41"
                 "C53 38 53.5 31 48 26Z", hair),
        oval_face(d, 24.6, 45.4, 25, 52),
        *[circle(x, y, 3.3, fill=hair, stroke=INK, width=W * 0.8) for x, y in curls],
        path("M26.4 40C26.6 46 29.6 50.2 35 50.2C40.4 50.2 43.4 46 43.6 40L41.6 36L28.4 36Z", fill=d.skin()),
        *[thin(f"M{x - 1.5} {y + 0.3}A1.5 1.5 0 0 1 {x + 1.3} {y + 0.7}", "#fff0b8", 0.8) for x, y in curls],
        thin("M31 45.2Q35 48.2 39 45.2", "#a8322a", 1.6), *eyes(34, "#2c62a8", "#8a5a14", 5.2), nose(35, 40.4),
        # velvet between two arches, a cross above
        outlined("M19.6 24C15 16 21 9.6 28 9.6C31.6 9.6 34 11 35 13C36 11 38.4 9.6 42 9.6C49 9.6 55 16 50.4 24Z",
                 d.robe()),
        outlined("M19.6 24C14 15.6 20 8.4 28 8.4C31.8 8.4 34.2 10 35 12C35.8 10 38.2 8.4 42 8.4C50 8.4 56 15.6 50.4 24"
                 "L46.6 23C51 16.6 47.4 11.8 42 11.8C38.4 11.8 36.8 14.4 36.8 18L36.8 23L33.2 23L33.2 18"
                 "C33.2 14.4 31.6 11.8 28 11.8C22.6 11.8 19 16.6 23.4 23Z", d.gold(8, 24), W * 0.8),
        *[circle(x, y, 0.9, fill="#ffffff") for x, y in ((20.3, 16.6), (23, 11.9), (28, 10.1), (42, 10.1), (47, 11.9),
                                                         (49.7, 16.6))],
        outlined("M19.4 28.2Q35 24.2 50.6 28.2L51 22.6Q35 18.6 19 22.6Z", d.gold(19, 29)),
        *gems_on_band(23.6, "#2b45a0", "#c8202c", "#2b45a0"),
        path("M33.9 4.6L36.1 4.6L36.1 6.7L38.2 6.7L38.2 8.9L36.1 8.9L36.1 12L33.9 12L33.9 8.9L31.8 8.9L31.8 6.7"
             "L33.9 6.7Z", fill=GOLD_PALE, stroke=INK, width=W * 0.7, join="round"),
    ]


def of_clubs(d):
    """Old, with a broad white beard, in a crown of clover leaves."""
    white = d.shade(28, 64, ("#ffffff", "#b9b4b0"))
    strand = "#8c8680"
    points = []
    for x, y, r in ((22.6, 13.2, 2.3), (47.4, 13.2, 2.3), (35, 9.8, 2.8)):
        gold = d.gold(y - 2 * r, y + 3 * r)
        points.append(rect(x - r * 0.5, y, r, r * 3.4, fill=gold, stroke=INK, width=W * 0.7))
        points += [circle(x + dx, y + dy, r, fill=gold, stroke=INK, width=W * 0.8)
                   for dx, dy in ((0, -r), (r, r * 0.5), (-r, r * 0.5))]
        points.append(circle(x, y, r * 0.7, fill="#ecc965"))
    return [
        outlined(MANTLE, d.robe()),
        mirrored([outlined("M25 48.5L12.4 53.4C15 58 17.6 62.4 19.6 66.6L31 66.6Z", d.trim(48, 68)),
                  *[ellipse(x, y, 0.8, 0.8, fill=GOLD_PALE) for x, y in ((17.6, 55.4), (20.4, 60.4), (23, 65))]], 35),
        outlined("M21 27C17 36 17 45 20.4 52L49.6 52C53 45 53 36 49 27Z", white),
        oval_face(d, 24.6, 45.4, 25, 50),
        outlined("M23.6 37C25.4 41.6 28.4 41.4 31 41.4C33 41.2 34.2 41.8 35 42.4C35.8 41.8 37 41.2 39 41.4"
                 "C41.6 41.4 44.6 41.6 46.4 37C50.6 46 51.6 54 48 61C45.4 62.4 44.4 61.6 43.2 60.8C41.4 64.4 38.6 64.4 37.4 62.6"
                 "C36.4 65.6 33.6 65.6 32.6 62.6C31.4 64.4 28.6 64.4 26.8 60.8C25.6 61.6 24.6 62.4 22 61C18.4 54 19.4 46 23.6 37Z",
                 white, W * 0.8),
        mirrored([thin("M33.4 51C32.6 55 32.6 58.6 33 62M29.2 49C28 53 27.6 57 27.4 60.2M25 45.4C23.4 49.6 22.8 54 22.8 58",
                       strand, 0.8)], 35),
        mouth(46.6),
        outlined("M35 42.2C32 40.6 27.4 41.6 24.4 46C28.4 47.4 33 46.6 35 44.2C37 46.6 41.6 47.4 45.6 46C42.6 41.6 38 40.6 35 42.2Z",
                 white, W * 0.6),
        *eyes(33.8, "#2d7a4c", "#8c8680", 5.3, 0.4), nose(34.6, 40),
        *points,
        outlined("M19.4 27.4Q35 23.6 50.6 27.4L51.4 20Q35 15.6 18.6 20Z", d.gold(15, 28)),
        thin("M19 21.9Q35 17.6 51 21.9M19.4 25.4Q35 21.6 50.6 25.4", "#7a5413", 0.7),
        *gems_on_band(21.6, "#2b9a5c", "#7a3f8e", "#2b9a5c"),
    ]


def of_diamonds(d):
    """Brown, with a short forked beard and a twirled moustache, in a crown like a wall."""
    hair = d.hair()
    merlons = "M19.4 27.4L17 10.6L23.4 10.6L24.2 15L28.6 14.2L28.2 8.8L34 8L34.2 13.4L35.8 13.4L36 8L41.8 8.8L41.4 14.2" \
              "L45.8 15L46.6 10.6L53 10.6L50.6 27.4Q35 23.4 19.4 27.4Z"
    return [
        outlined(MANTLE, d.robe()),
        outlined("M20 51L28.4 66.6L41.6 66.6L50 51L44 48L26 48Z", d.trim(48, 68)),
        polygon([(35, 57.6), (39.4, 62), (35, 66.4), (30.6, 62)], fill="#c8202c", stroke=INK, width=W * 0.8,
                join="round"),
        outlined("M21.6 26C19.4 34 18.6 42 16.8 47C20 50.6 25.4 50 27 46L43 46C44.6 50 50 50.6 53.2 47"
                 "C51.4 42 50.6 34 48.4 26Z", hair),
        mirrored([thin("M22.8 33C22 38 21.4 43 20.4 46.6", "#d8a878", 0.8, 0.8)], 35),
        oval_face(d, 24.8, 45.2, 25, 50.8),
        outlined("M25.4 41C26.4 45.6 28.6 46.8 31.2 46.8L38.8 46.8C41.4 46.8 43.6 45.6 44.6 41"
                 "C45.4 48 43.6 53.6 38.4 57.6C37 56.6 36 55.2 35 53.2C34 55.2 33 56.6 31.6 57.6C26.4 53.6 24.6 48 25.4 41Z",
                 hair, W * 0.8),
        path("M31.8 46.4Q35 48.6 38.2 46.4Q35 47.2 31.8 46.4Z", fill="#b33a30", stroke="#7a1c18", width=0.9),
        outlined("M35 43C32.4 41.4 28.8 43.4 26.4 43.6C24.4 43.6 23.8 41.6 25.2 40.6C22.6 40.6 21.8 43.6 23.8 45.2"
                 "C27 47.2 32.6 46.4 35 44.8C37.4 46.4 43 47.2 46.2 45.2C48.2 43.6 47.4 40.6 44.8 40.6"
                 "C46.2 41.6 45.6 43.6 43.6 43.6C41.2 43.4 37.6 41.4 35 43Z", hair, W * 0.6),
        *eyes(34, "#7a4a18", "#4e2a12", 5.2, 0.5), nose(34.8, 41),
        outlined(merlons, d.gold(7, 28)),
        thin("M18.8 18.2Q35 14.4 51.2 18.2", "#7a5413", 0.8),
        *[polygon([(x, y - 3), (x + 2.2, y), (x, y + 3), (x - 2.2, y)], fill=fill, stroke=INK, width=0.8,
                  join="round")
          for x, y, fill in ((26, 21.8, "#2b9a5c"), (35, 20.6, "#c8202c"), (44, 21.8, "#2b9a5c"))],
    ]


KINGS = {SPADES: of_spades, HEARTS: of_hearts, CLUBS: of_clubs, DIAMONDS: of_diamonds}
