"""What the pictures of ace, jack, queen and king share: a suit's colours, the gold frame, parts of faces."""

from dataclasses import dataclass

from drawing import INK, Drawing, circle, ellipse, path, rect

W = 1.3  # outline: two thirds of a pixel in the smallest court
LINEN = "#fbf6ea"
SPADES, HEARTS, CLUBS, DIAMONDS, STARS = 1, 2, 3, 4, 5


@dataclass(frozen=True)
class Colours:
    """From light to dark, of one suit; each stands out against the others."""

    ground: tuple
    four: tuple  # the ground where each suit has a colour of its own
    robe: tuple
    trim: tuple  # lining, band of the crown, gems
    hair: tuple


COLOURS = {
    SPADES: Colours(("#4a5fae", "#26356f", "#10183a"), ("#747482", "#3a3a44", "#131318"),
                    ("#dc3640", "#7a0f1a"), ("#f0c95e", "#a8771c"), ("#5a4438", "#1d1210")),
    HEARTS: Colours(("#e0434c", "#a81c28", "#640a14"), ("#e0434c", "#a81c28", "#640a14"),
                    ("#4466c8", "#16224e"), ("#f3e3b0", "#c09a40"), ("#f6d26c", "#b47a1c")),
    CLUBS: Colours(("#4c86a8", "#1d4a66", "#0a2236"), ("#4fb070", "#17693a", "#06351b"),
                   ("#f0a83a", "#9c5a10"), ("#7a3f8e", "#4a1d5c"), ("#c4623a", "#6a2410")),
    DIAMONDS: Colours(("#ea6440", "#b4361c", "#641608"), ("#5fa2f0", "#1f56b8", "#0a2866"),
                      ("#2fa878", "#0c4a36"), ("#f3e3b0", "#c09a40"), ("#a06a3a", "#4e2a12")),
    STARS: Colours(("#c4bb52", "#857d22", "#454008"), ("#c4bb52", "#857d22", "#454008"),
                   (), (), ()),
}


class Portrait(Drawing):
    """A court's picture: ground and frame, and between them whatever is added."""

    def __init__(self, suit, four_colours=False):
        super().__init__(70, 70)
        self.colours = COLOURS[suit]
        light, mid, dark = self.colours.four if four_colours else self.colours.ground
        self.add(rect(1.5, 1.5, 67, 67, 9,
                      fill=self.radial(35, 28, 46, [(0, light), (0.55, mid), (1, dark)])))

    def shade(self, top, bottom, colours):
        """Light at the top, dark at the bottom."""
        return self.linear(0, top, 0, bottom, [(0, colours[0]), (1, colours[1])])

    def robe(self):
        return self.shade(46, 68, self.colours.robe)

    def trim(self, top, bottom):
        return self.shade(top, bottom, self.colours.trim)

    def hair(self):
        return self.shade(18, 58, self.colours.hair)

    def skin(self):
        return self.linear(0, 24, 0, 54, [(0, "#ffe9d0"), (1, "#eebd94")])

    def close(self):
        """Lays the frame over what reaches under it."""
        gold = self.linear(0, 0, 70, 70, [
            (0, "#fff0b8"), (0.3, "#dcb24a"), (0.55, "#9a6c1c"), (0.8, "#e8c662"), (1, "#8a5f17")])
        self.add(rect(2, 2, 66, 66, 8.5, stroke=gold, width=3),
                 rect(0.9, 0.9, 68.2, 68.2, 9.5, stroke="#5a3d0c", width=0.8),
                 rect(3.9, 3.9, 62.2, 62.2, 6.8, stroke=INK, width=0.7, opacity=0.55))
        return self


def outlined(d, fill, width=W):
    return path(d, fill=fill, stroke=INK, width=width, join="round")


def thin(d, stroke, width=1.0, opacity=None):
    return path(d, stroke=stroke, width=width, cap="round", join="round", opacity=opacity)


def blush(*places):
    return [circle(x, y, 2.6, fill="#e0564a", opacity=0.22) for x, y in places]


def eyes(y, iris, brow, apart=5.3, stern=0.0):
    """Both eyes of a face from the front; stern, up to 1, draws the brows together."""
    shapes = []
    for side in (-1, 1):
        x = 35 + side * apart
        shapes += [
            path(f"M{x - 2.7:.2f} {y + 0.2:.2f}Q{x:.2f} {y - 2.8:.2f} {x + 2.7:.2f} {y + 0.2:.2f}"
                 f"Q{x:.2f} {y + 2.6:.2f} {x - 2.7:.2f} {y + 0.2:.2f}Z", fill="#fffdf6"),
            circle(x, y - 0.05, 1.6, fill=iris), circle(x, y - 0.05, 0.95, fill=INK),
            circle(x + 0.55, y - 0.7, 0.5, fill="#ffffff"),
            thin(f"M{x - 3:.2f} {y + 0.3:.2f}Q{x:.2f} {y - 3.2:.2f} {x + 3:.2f} {y + 0.3:.2f}", INK, 1.05),
        ]
        inner, outer = x - side * 3.1, x + side * 3.4
        shapes.append(thin(f"M{inner:.2f} {y - 3.6 + 1.1 * stern:.2f}Q{x:.2f} {y - 5.4 + 0.2 * stern:.2f} "
                           f"{outer:.2f} {y - 3 - 0.5 * stern:.2f}", brow, 1.35))
    return shapes


def nose(top, tip, tone="#b5744c"):
    return thin(f"M35.4 {top}L34 {tip - 0.6}Q34.2 {tip + 0.3} 36.4 {tip}", tone, 1.1)


def lips(y, wide=3.4, fill="#c8202c"):
    return [path(f"M{35 - wide} {y}Q{35 - wide / 2} {y - 1.5} 35 {y - 0.5}Q{35 + wide / 2} {y - 1.5} "
                 f"{35 + wide} {y}Q35 {y + 3.2} {35 - wide} {y}Z", fill=fill),
            thin(f"M{35 - wide} {y}Q35 {y + 0.9} {35 + wide} {y}", "#7a0f14", 0.6)]


def oval_face(d, left=25.4, right=44.6, top=25, chin=51):
    """From the brow down: cheeks, then a round chin."""
    mid = (left + right) / 2
    return outlined(
        f"M{left} {top}L{right} {top}C{right + 0.6} {top + 12} {right - 1.6} {chin - 3} {mid + 2.6} {chin - 0.4}"
        f"Q{mid} {chin + 0.5} {mid - 2.6} {chin - 0.4}C{left + 1.6} {chin - 3} {left - 0.6} {top + 12} "
        f"{left} {top}Z", d.skin(), W * 0.7)


def gem(x, y, r, fill):
    return [circle(x, y, r, fill=fill, stroke=INK, width=W * 0.7),
            ellipse(x - r * 0.25, y - r * 0.35, r * 0.35, r * 0.25, fill="#ffffff", opacity=0.8)]
