"""Four jacks. Those of spades and hearts look to the side, so that one eye is seen: the one-eyed jacks."""

from drawing import GOLD_PALE, INK, circle, group, mirrored, path, polygon
from portrait import (CLUBS, DIAMONDS, HEARTS, LINEN, SPADES, W, blush, eyes, lips, nose, outlined, oval_face,
                      thin)


def profile(d, iris, brow):
    """Neck, face and the one eye of a head that looks to the right."""
    return [
        outlined("M28 46L27 58L43 58L41.6 50Z", d.skin(), W * 0.7),
        outlined("M29 26L45.4 25.5C46.8 28.5 46.9 31 46.2 33.3C47.4 35.6 49.8 38.6 50.8 40.3"
                 "C51.3 41.6 49.4 42 47.5 42C48.6 42.8 49 43.6 48.4 44.5L47 45.1C48.3 45.6 48.5 46.6 47.7 47.4"
                 "C47.3 48.2 48.2 49.2 47.6 50.7C46.7 52.9 43.2 53.6 40 52.7C35.5 51.4 31 48 29 44Z",
                 d.skin(), W * 0.8),
        path("M39.9 35.5Q42.6 32.4 45.3 33.9L44.7 36.4Q42.3 37.4 39.9 35.5Z", fill="#fffdf6"),
        circle(43.5, 35, 1.6, fill=iris), circle(43.7, 35, 0.95, fill=INK),
        circle(44.1, 34.3, 0.5, fill="#ffffff"),
        thin("M39.3 35.6Q42.4 31.8 45.8 33.8", INK, 1.1),
        thin("M38.9 31.4Q42.4 28.9 46.3 30.6", brow, 1.4),
        thin("M48 41.4Q46.6 41.6 46.3 40.2", "#b5744c", 1),
        thin("M47.4 45Q45.2 46 43.4 44.9", "#a8322a", 1.3),
        *blush((41.2, 42.4)),
    ]


def of_hearts(d):
    """To the right, fair, in a huntsman's pointed hat."""
    hair = d.hair()
    shine = "#fff0b8"
    return [
        outlined("M6 66.6C7 59 17 55 26.5 53L44 54C54 56 61 60 62 66.6Z", d.robe()),
        *profile(d, "#2c62a8", "#8a5a14"),
        outlined("M24 54C29 60 40 61 45 55C47.5 58 47.6 61 46 63.5C38 68 28 66 22.5 60C22.2 57.5 22.8 55.5 24 54Z",
                 d.trim(54, 66), W),
        # curls down to the collar
        outlined("M25 23C17.5 30 16 42 18.5 50C15.5 53.5 19 57.5 23 56C26 59 31.5 57.5 32.5 53.5"
                 "C35.5 51 35 46.5 33.6 44.5C35.6 41 35.2 38 37.2 35.5C39.2 32.5 40.5 29.5 40.3 25Z", hair, W),
        thin("M24.5 30C21.5 38 22 46 24 51M30.5 30C27.5 37 27.6 43 28.8 48M35.6 29.5C33 33 32 36.5 31.6 39.5",
             shine, 0.9, 0.75),
        # feather, crown, and the brim drawn out to a point
        outlined("M31 16C24 9 15 5.5 8 7C9.5 9 8.5 10.5 10.5 12C10 13.5 12.5 14.5 13 16.5C18 20 26 21.5 32 20Z",
                 LINEN, W * 0.9),
        thin("M12 9.5C20 11 26 14.5 30.5 18.5", "#a8966a", 0.9),
        outlined("M23 23C22.5 13.5 29 8.5 37 8.5C44.5 9 48.5 14.5 49 23Z", d.shade(8, 26, d.colours.robe)),
        outlined("M16.5 17.5C18.5 22 25 22.6 33 21.6C43 20.4 52 19.6 61.5 25.8C54 28.6 44 27.8 37 28.4"
                 "C27 29.4 18.5 27 16.5 17.5Z", d.gold(18, 29)),
        circle(29, 24.6, 2.1, fill="#c8202c", stroke=INK, width=W * 0.7),
    ]


def of_spades(d):
    """To the left, dark, in a wide soft cap with a hanging tail of cloth."""
    hair = d.hair()
    return [group([
        outlined("M6 66.6C7 59 17 55 26.5 53L44 54C54 56 61 60 62 66.6Z", d.robe()),
        *profile(d, "#4a3418", "#1d1210"),
        # a stiff linen collar
        polygon([(24, 52), (30, 55), (38, 57.5), (44.5, 54.5), (48, 57.5), (44, 62.5), (37, 61.5), (31, 64),
                 (27, 60), (21, 60)], fill=LINEN, stroke=INK, width=W, join="round"),
        outlined("M25 23C18.5 29 17.5 41 20 48.5C21.5 54 28.5 55.5 31.8 52C34.4 49 34 46 33.4 43.5"
                 "C36 40.5 35.4 37 37.4 34C39 31 39.8 28 39.4 25Z", hair, W),
        thin("M25.5 31C22.8 38 23.2 45 25.2 50M31.5 31C28.6 37 28.6 42 29.6 47.5", "#a08a78", 0.9, 0.7),
        # a young beard along the jaw
        outlined("M34.5 47.5C38.5 51 43 51.4 47.6 50.1C47.9 53 44 55 40 53.8C37 52.8 35 50.6 34.5 47.5Z",
                 hair, W * 0.6),
        # tail of the cap, then its bag and its rolled brim
        outlined("M20 20C12 24 9 33 11 44C13 48 17 48.5 19.5 46C17 38 19 31 26 27Z",
                 d.shade(18, 50, d.colours.robe)),
        outlined("M17.5 24C13 14 22 8 33 8.5C44 8 54 13.5 51.5 24Z", d.shade(8, 26, d.colours.robe)),
        outlined("M15.5 25C16 20.6 22 20.4 34 20.2C46 20 53.5 20.6 54.5 25C53 29.4 46 28.4 35 28.4"
                 "C23 28.4 17 29.6 15.5 25Z", d.gold(19, 29)),
        *[thin(f"M{x} 20.8Q{x + 2.4} 24.4 {x + 0.4} 28.2", "#7a5413", 0.9) for x in (22, 29, 36, 43)],
        circle(48.6, 24.5, 2.3, fill="#c8202c", stroke=INK, width=W * 0.7),
    ], "matrix(-1 0 0 1 70 0)")]


def of_clubs(d):
    """Red-haired, with a moustache, in a cavalier's hat."""
    hair = d.hair()
    return [
        outlined("M5 66.6C6 58 16 54 26 52L44 52C54 54 64 58 65 66.6Z", d.robe()),
        thin("M35 58L35 66.6", INK, 1),
        *[circle(37.4, y, 0.9, fill=GOLD_PALE, stroke=INK, width=0.5) for y in (62, 65.4)],
        # waves of hair on the shoulders
        outlined("M24 24C16.5 33 20 38 17.5 44C15.5 49 17 55 22.5 56.5C28 58 30 53 29.5 49L40.5 49"
                 "C40 53 42 58 47.5 56.5C53 55 54.5 49 52.5 44C50 38 53.5 33 46 24Z", hair, W),
        outlined("M29.8 46L29.8 54L40.2 54L40.2 46Z", d.skin(), W * 0.6),
        oval_face(d),
        *eyes(35.6, "#2d7a4c", "#6a2410"), nose(36.4, 41.4),
        *lips(45.8, 2.4, "#b33a30"),
        outlined("M35 42.8C32.5 41.8 29.4 42.6 26.6 44.8C29.6 45.6 33 45.6 35 44.2C37 45.6 40.4 45.6 43.4 44.8"
                 "C40.6 42.6 37.5 41.8 35 42.8Z", hair, W * 0.55),
        outlined("M33.3 48.4Q35 47.6 36.7 48.4Q36.6 51.6 35 53.4Q33.4 51.6 33.3 48.4Z", hair, W * 0.5),
        # a falling collar of linen
        outlined("M35 55.4C31.5 54.6 29.5 53.6 27.6 51.8L18.5 56.2C20 59.2 22.4 61.6 25.6 62.8L33 61.4Z", LINEN),
        outlined("M35 55.4C38.5 54.6 40.5 53.6 42.4 51.8L51.5 56.2C50 59.2 47.6 61.6 44.4 62.8L37 61.4Z", LINEN),
        # hat: crown with its band, plume, brim turned up on one side
        outlined("M22.5 23C22 12.5 28 8.5 35 9.6C42 8.5 48 12.5 47.5 23Z", d.shade(8, 26, d.colours.trim)),
        outlined("M8.5 24.5C11 17.5 19 16.5 24 19.4C31 22 40 22 46 19.4C52 16.4 60 18.4 62 25.4"
                 "C55 31.6 45 28.4 35 28.4C25 28.4 15 31 8.5 24.5Z", d.shade(16, 31, d.colours.trim)),
        thin("M12 24.2C20 27.6 28 25.6 35 25.6C42 25.6 50 28 58.6 25", GOLD_PALE, 0.9, 0.8),
        outlined("M25 19.5C22 12 26 5.8 34 6C43 5.6 52 7.4 57.4 12.6C56.6 14.6 53.6 14.4 53.4 16.4"
                 "C50.4 15.6 49.6 17.8 46.6 16.6C43.6 18.4 41 16 38 17.2C33.6 17 29 17.6 25 19.5Z", LINEN, W * 0.9),
        thin("M27 16.4C32 10.4 42 9.4 52.6 12.4", "#a8966a", 0.9),
        circle(25.4, 19.4, 2.3, fill=d.gold(17, 22), stroke=INK, width=W * 0.8),
    ]


def of_diamonds(d):
    """A page with bobbed hair, a ruff and a plumed cap."""
    hair = d.hair()
    return [
        outlined("M5 66.6C6 57 16 54 26 52L44 52C54 54 64 57 65 66.6Z", d.robe()),
        path("M35 54L35 66.6", stroke=d.gold(44, 68), width=2.4),
        polygon([(22, 50), (27, 49), (35, 52), (43, 49), (48, 50), (50, 56), (44.5, 55), (41, 60), (35, 56.5),
                 (29, 60), (25.5, 55), (20, 56)], fill=LINEN, stroke=INK, width=W, join="round"),
        outlined("M21 26C17 36 18 46 20.5 49.5C24 51 28 49 28 45L42 45C42 49 46 51 49.5 49.5C52 46 53 36 49 26Z",
                 hair, W),
        oval_face(d, chin=50.8),
        outlined("M25 34C26 29 31 29.4 35 29.4C39 29.4 44 29 45 34C46.5 30 46 25 44 23L26 23C24 25 23.5 30 25 34Z",
                 hair, W * 0.6),
        mirrored([thin("M23.4 30C21.4 36 21.4 42 22.6 47", "#d8a878", 0.8, 0.7)], 35),
        *eyes(36.8, "#7a4a18", "#4e2a12"), nose(37.6, 42), thin("M31.2 45Q35 48.2 38.8 45", "#a8322a", 1.5),
        *blush((28.6, 42), (41.4, 42)),
        outlined("M44 22C46 12 53 6 62 9C58 10.5 62 14 58.5 16C62 18 56 21 57 23C52 26 47 25 44 22Z", LINEN, W * 0.9),
        thin("M45.5 22C50 19 54 14 58.5 11.5", "#a8966a", 1),
        outlined("M18 23C16 14 26 10 36 10.5C46 11 52 15 52 23Z", d.shade(10, 28, d.colours.robe)),
        outlined("M15.5 24.5C22 19.5 48 19.5 54.5 24.5C52 29 47 27.5 35 27.5C23 27.5 18 29 15.5 24.5Z",
                 d.gold(20, 29)),
        polygon([(45.5, 19.4), (48, 22.6), (45.5, 25.8), (43, 22.6)], fill="#c8202c", stroke=INK,
                width=W * 0.7, join="round"),
    ]


JACKS = {SPADES: of_spades, HEARTS: of_hearts, CLUBS: of_clubs, DIAMONDS: of_diamonds}
