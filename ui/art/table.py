"""The rest of the table: buttons, bonus panels, coins, targets, Charlie, wheel, felt and the program's icon."""

import math
import random

from cards import cap
from drawing import (BLACK, GOLD_PALE, INK, RED, Drawing, arc_lettering, circle, ellipse, group,
                     lettering,
                     line, path, pip, pip_look, polygon, rect, star_points)

BUTTON_SIZES = {"small": (45, 30), "medium": (50, 40), "large": (80, 50)}
BUTTONS = {  # caption's lines, plastic from top to bottom, caption's colour
    "deal": (("DEAL", "DRAW"), ("#e4332f", "#cc181e", "#970a12"), "#fffaf0"),
    "bet_one": (("BET", "ONE"), ("#fffdf0", "#f6e7bb", "#d3b56c"), "#3a2205"),
    "max_bet": (("MAX", "BET"), ("#fffdf0", "#f6e7bb", "#d3b56c"), "#3a2205"),
    "hold": (("HOLD",), ("#ffe98a", "#fcc62e", "#d08a08"), "#3a1c02"),
    "double_up": (("DBL", "UP"), ("#426fe6", "#2a50c6", "#15297a"), "#fffaf0"),
}
FONT = {"small": (10.5, 12), "medium": (12.5, 13.5), "large": (17, 21)}  # two lines, one line


def darker(colour, k):
    return "#" + "".join(f"{int(int(colour[i:i + 2], 16) * k):02x}" for i in (1, 3, 5))


def button(name, size, pressed):
    """A lit plastic key in a gold rim; pressed it is unlit and one pixel and a half lower."""
    lines, plastic, ink = BUTTONS[name]
    w, h = BUTTON_SIZES[size]
    d = Drawing(w, h)
    rim = 2 if size == "large" else 1.6
    r = h * 0.2
    drop = 0 if not pressed else 1.5
    d.add(rect(0.5, 1, w - 1, h - 1.2, r + 0.5, fill="#000000", opacity=0.45))
    d.add(rect(0.5, 0.5, w - 1, h - 1.5, r, fill=d.linear(0, 0, 0, h, [
        (0, "#fff3c4"), (0.25, "#e0b853"), (0.6, "#a8781f"), (0.85, "#e3bf5e"), (1, "#7a5413")]),
        stroke="#4a3208", width=0.8))
    x, y, fw, fh = rim + 0.9, rim + 0.9, w - 2 * rim - 1.8, h - 2 * rim - 2.8
    d.add(rect(x - 0.6, y - 0.6, fw + 1.2, fh + 1.2, r * 0.8, fill="#2a1604"))
    top, mid, low = plastic
    if pressed:
        top, mid, low = darker(low, 0.72), darker(mid, 0.74), darker(mid, 0.82)
        y, fh = y + drop, fh - drop
    else:
        fh -= 1.2
    d.add(rect(x, y, fw, fh, r * 0.72, fill=d.linear(0, y, 0, y + fh, [(0, top), (0.5, mid), (1,
                                                                                              low)])))
    if not pressed:
        gloss = 0.28 if ink.startswith("#ff") else 0.75  # a light caption needs the plastic's colour
        d.add(ellipse(w / 2, y + fh * 0.5, fw * 0.42, fh * 0.4, fill=d.radial(
            w / 2, y + fh * 0.5, fw * 0.42, [(0, "#ffffff", gloss * 0.35), (1, "#ffffff", 0)])))
        d.add(rect(x + 1.5, y + 1, fw - 3, fh * 0.36, r * 0.5, fill=d.linear(
            0, y, 0, y + fh * 0.4, [(0, "#ffffff", gloss), (1, "#ffffff", 0.04)])))
        d.add(rect(x + 0.4, y + 0.4, fw - 0.8, fh - 0.8, r * 0.68, stroke="#ffffff", width=0.8,
                   opacity=0.35))
    else:
        d.add(rect(x, y - drop * 0.4, fw, fh * 0.3, r * 0.6, fill=d.linear(
            0, y - 1, 0, y + fh * 0.3, [(0, "#000000", 0.5), (1, "#000000", 0)])))
    caption(d, lines, w / 2, y + fh / 2, FONT[size][len(lines) == 1], ink, pressed)
    return d


def glass(d, x, y, w, h, r, strength):
    """The gloss of lacquer: a bright upper half and a thin bright edge."""
    d.add(rect(x + 1, y + 0.8, w - 2, h * 0.42, r * 0.7, fill=d.linear(0, y, 0, y + h * 0.45, [
        (0, "#ffffff", strength), (1, "#ffffff", strength * 0.12)])),
        rect(x + 0.4, y + 0.4, w - 0.8, h - 0.8, r * 0.9, stroke="#ffffff", width=0.8,
             opacity=strength * 0.6))


def spin_button(size, lit):
    """A silver key in a white rim; lit it is white in a yellow one. The table writes on it."""
    w, h = BUTTON_SIZES[size]
    d = Drawing(w, h)
    r = h * 0.2
    rim = 2 if size == "large" else 1.6
    edge = ("#ffffff", "#ffffff", "#dcdce2") if not lit else ("#ffffa0", "#ffff00", "#c8b400")
    face = ("#f0f0f0", "#c0c0c0", "#8c8c90") if not lit else ("#ffffff", "#ffffff", "#fff6b8")
    d.add(rect(0.5, 1, w - 1, h - 1.2, r + 0.5, fill="#000000", opacity=0.45))
    d.add(rect(0.5, 0.5, w - 1, h - 1.5, r, fill=d.linear(0, 0, 0, h, [
        (0, edge[0]), (0.6, edge[1]), (1, edge[2])]), stroke="#5a4a00" if lit else "#44444a",
        width=0.8))
    x, y, fw, fh = rim + 0.9, rim + 0.9, w - 2 * rim - 1.8, h - 2 * rim - 2.8
    d.add(rect(x - 0.6, y - 0.6, fw + 1.2, fh + 1.2, r * 0.8,
               fill="#8a7a00" if lit else "#5c5c62"))
    d.add(rect(x, y, fw, fh, r * 0.72, fill=d.linear(0, y, 0, y + fh, [
        (0, face[0]), (0.5, face[1]), (1, face[2])])))
    if not lit:
        glass(d, x, y, fw, fh, r * 0.72, 0.75)
    return d


def spin_window(size):
    """A window onto the rim of a wheel: a drum between two pointers, its front in the light."""
    w, h = BUTTON_SIZES[size]
    w -= w % 2  # two panels wide
    d = Drawing(w, h)
    d.add(rect(0, 0, w, h, 3, fill="#ffff00"), rect(1, 1, w - 2, h - 2, 2.2, fill="#000000"))
    x, y, dw, dh = 2.5, 2, w - 5, h - 4
    drum = [(0, "#000000"), (0.14, "#0e0e10"), (0.34, "#34343a"), (0.5, "#46464e"),
            (0.66, "#34343a"), (0.86, "#0e0e10"), (1, "#000000")]
    d.add(rect(x, y, dw, dh, 1.5, fill=d.linear(0, y, 0, y + dh, drum)))
    for turn in (-62, -38, 38, 62):  # the steps of the drum, closer where it turns away
        step = y + dh / 2 * (1 + math.sin(math.radians(turn)))
        light = 0.5 * math.cos(math.radians(turn)) ** 2
        d.add(line(x, step, x + dw, step, stroke="#000000", width=1),
              line(x, step + 0.9, x + dw, step + 0.9, stroke="#ffffff", width=0.6, opacity=light))
    for left in (True, False):
        tip, base = (x + dh * 0.13, x - 1) if left else (x + dw - dh * 0.13, x + dw + 1)
        d.add(polygon([(base, h / 2 - dh * 0.12), (tip, h / 2), (base, h / 2 + dh * 0.12)],
                      fill="#ffff00", stroke="#4a3208", width=0.5))
    return d


PANELS = {  # lacquer from top to bottom, and its glow when lit
    "red": (("#dc1414", "#c80000", "#8c0000"), "#ff6a50"),
    "black": (("#2a2a2e", "#060608", "#000000"), "#707078"),
}


def lacquered(colour, w, h, outline, width):
    """A lacquered plate in a frame of that width."""
    d = Drawing(w, h)
    top, mid, low = PANELS[colour][0]
    d.add(rect(0, 0, w, h, 3, fill=outline))
    x, y, pw, ph = width, width, w - 2 * width, h - 2 * width
    d.add(rect(x, y, pw, ph, 2, fill=d.linear(0, y, 0, y + ph, [(0, top), (0.5, mid), (1, low)])))
    return d, (x, y, pw, ph)


def panel(colour, size, lit):
    """One half of Red or Black; lit it glows in a yellow frame."""
    w, h = BUTTON_SIZES[size]
    w //= 2
    frame = ("#ffff00", 2.5) if lit else ("#000000", 1)
    d, (x, y, pw, ph) = lacquered(colour, w, h, *frame)
    if lit:
        glow = PANELS[colour][1]
        d.add(rect(x, y, pw, ph, 2, fill=d.radial(w / 2, h / 2, h * 0.55, [
            (0, glow, 0.9), (1, glow, 0)])))
    glass(d, x, y, pw, ph, 2, 0.3 if colour == "red" else 0.22)
    return d


def choice(colour, size):
    """The colour that was chosen, in a white frame."""
    d, place = lacquered(colour, *BUTTON_SIZES[size], "#ffffff", 1.5)
    glass(d, *place, 2, 0.3 if colour == "red" else 0.22)
    return d


def caption(d, lines, cx, cy, font, ink, pressed):
    cap = font * 0.688
    gap = font * 0.24
    height = cap * len(lines) + gap * (len(lines) - 1)
    light = ink.startswith("#ff")
    shade = "#000000" if light else "#ffffff"
    for k, text in enumerate(lines):
        base = round((cy - height / 2 + cap + k * (cap + gap)) * 2) / 2
        if not pressed or light:
            d.add(group([lettering(text, cx, base + (0.8 if not light else 0.9), font, fill=shade)],
                        opacity=0.45))
        d.add(lettering(text, cx, base, font, fill=ink))


COINS = {  # worth, metal from light to dark, ink; silver grows brighter with the worth
    "nickel": ("5¢", ("#f1ece4", "#c2b7a8", "#8b7f70"), "#4c4237"),
    "quarter": ("25¢", ("#ffffff", "#cfd6dc", "#8d98a3"), "#3c4650"),
    "half": ("50¢", ("#ffffff", "#d5dde6", "#8796a8"), "#2f3c4c"),
    "dollar": ("$1", ("#fff6cf", "#ecc650", "#a8771a"), "#5c3c06"),
}


def coin(name):
    """A coin lying on the felt, seen from the player's side."""
    worth, (light, mid, dark), ink = COINS[name]
    d = Drawing(80, 40)
    cx, cy, rx, ry, thick = 40, 17.5, 37, 16, 5
    d.add(ellipse(cx, cy + thick + 1.6, rx + 1, ry, fill="#000000", opacity=0.35))
    edge = d.linear(cx - rx, 0, cx + rx, 0, [(0, dark), (0.2, light), (0.45, mid), (0.75, light),
                                             (1, dark)])
    d.add(path(f"M{cx - rx} {cy}L{cx - rx} {cy + thick}A{rx} {ry} 0 0 0 {cx + rx} {cy + thick}L{cx + rx} {cy}Z",
               fill=edge, stroke=ink, width=0.8))
    for k in range(1, 36):  # reeds, closer to each other where the edge turns away
        angle = math.pi * k / 36
        x, y = cx + rx * math.cos(angle), cy + ry * math.sin(angle)
        d.add(line(x, y, x, y + thick, stroke=ink, width=0.55, opacity=0.55))
    metal = d.linear(cx - rx, cy - ry, cx + rx * 0.6, cy + ry, [(0, light), (0.45, mid), (0.62,
                                                                                          light),
                                                                                          (1,
                                                                                           dark)])
    d.add(ellipse(cx, cy, rx, ry, fill=metal, stroke=ink, width=0.8))
    field = metal
    if name == "half":  # two metals
        field = d.linear(cx - rx, cy - ry, cx + rx * 0.6, cy + ry,
                         [(0, "#fff3c4"), (0.45, "#e3bd55"), (0.62, "#fff0b8"), (1, "#a8781f")])
    d.add(ellipse(cx, cy, rx - 5.5, ry - 3, fill=field, stroke=dark, width=0.8))
    d.add(ellipse(cx, cy + 0.6, rx - 5.5, ry - 3, stroke="#ffffff", width=0.7, opacity=0.7))
    for k in range(24):  # beads between rim and field
        angle = 2 * math.pi * (k + 0.5) / 24
        d.add(ellipse(cx + (rx - 2.7) * math.cos(angle), cy + (ry - 1.5) * math.sin(angle), 0.9,
                      0.6, fill=dark))
    font, base = 23, cy + 7.2
    d.add(group([lettering(worth, cx, base + 0.9, font, stretch=1.12, fill="#ffffff")],
                opacity=0.8))
    d.add(lettering(worth, cx, base, font, stretch=1.12, fill="#4a3208" if name == "half" else ink))
    for side in (-1, 1):
        d.add(polygon([(cx + side * 27.5 + x, cy + y * 0.75) for x, y in star_points(0, 0, 3.4,
                                                                                     1.4, 5)],
                                                                                     fill=ink,
                      opacity=0.8))
    return d


def target(number):
    """A target whose bull bears its number, by which it is shot from the keyboard."""
    d = Drawing(50, 50)
    d.add(circle(25, 26, 23.5, fill="#000000", opacity=0.35))
    d.add(circle(25, 25, 23.8, fill=d.linear(0, 1, 0, 49, [
        (0, "#fff3c4"), (0.4, "#d9ae48"), (1, "#7a5413")]), stroke="#4a3208", width=0.8))
    white, red = ("#fffef8", "#e2d8c2"), ("#e8383f", "#9c0c14")
    for radius, (light, dark) in ((21.6, white), (18.2, red), (14.8, white), (11.6, red)):
        d.add(circle(25, 25, radius, fill=d.radial(20, 18, 30, [(0, light), (1, dark)]),
                     stroke="#3a1206", width=0.6))
    d.add(circle(25, 25, 8.8, fill=d.radial(22, 20, 14, [(0, "#fffbe6"), (1, "#f0cf74")]),
                 stroke="#3a1206", width=0.7))
    d.add(lettering(str(number), 25, 30.2, 15, fill=INK))
    return d


def small_card(d, suit, turn):
    """A card of the Charlie's fan, turned about a point below it; the outer ones end behind the ribbon."""
    height = 17 if abs(turn) > 30 else 23
    return group([rect(40.5, 61, 19, height, 2.5, fill="#fffdf5", stroke=INK, width=0.9),
                  pip(d, suit, 42, 62.6, 9)], f"rotate({turn} 50 100)")


def charlie():
    """A dealer with an eye shade behind a fan of five cards, his name on a ribbon."""
    d = Drawing(100, 100)
    gold = d.gold(2, 98)
    d.add(circle(50, 51.5, 47.5, fill="#000000", opacity=0.35))
    d.add(circle(50, 50, 48, fill=gold, stroke="#4a3208", width=1))
    d.add(circle(50, 50, 44, fill=d.radial(50, 40, 46, [(0, "#c62833"), (1, "#6d0c16")]),
                 stroke="#4a3208", width=0.8))
    d.add(circle(50, 50, 42, stroke=GOLD_PALE, width=0.7, opacity=0.6))
    skin = d.linear(0, 22, 0, 64, [(0, "#ffe6cb"), (1, "#f0bf96")])
    hair = d.linear(0, 18, 0, 50, [(0, "#d9803a"), (1, "#8a4316")])
    shade = d.linear(0, 27, 0, 40, [(0, "#5fe09a"), (1, "#0d6a3a")])
    d.add(
        path("M25 76C25 62 36 58 50 58C64 58 75 62 75 76Z", fill="#fbf6ea", stroke=INK, width=1.2),
        # head: ears, hair, face
        path("M31 44C27 26 37 19.5 47 20.5C58 17.5 73 24 69 44Z", fill=hair, stroke=INK, width=1.2,
             join="round"),
        ellipse(32.5, 46, 3.2, 4.4, fill=skin, stroke=INK, width=1),
        ellipse(67.5, 46, 3.2, 4.4, fill=skin, stroke=INK, width=1),
        path("M33.5 36C32 52 39 63 50 63C61 63 68 52 66.5 36Z", fill=skin, stroke=INK, width=1.2),
        # eye shade on its band
        path("M32 37C38 30.5 62 30.5 68 37L67.5 32.5C60 26.5 40 26.5 32.5 32.5Z", fill="#fbf6ea",
             stroke=INK, width=1),
        path("M32 36.5C39 31 61 31 68 36.5L77 42.5C62 37 38 37 23 42.5Z", fill=shade, stroke=INK,
             width=1.2,
             join="round"),
        path("M36 36C43 33 57 33 64 36", stroke="#ffffff", width=1, opacity=0.6, cap="round"),
        ellipse(43, 44.6, 2, 2.6, fill=INK), ellipse(57, 44.6, 2, 2.6, fill=INK),
        circle(43.7, 43.6, 0.7, fill="#fff"), circle(57.7, 43.6, 0.7, fill="#fff"),
        circle(38.5, 50.5, 3.1, fill="#e0564a", opacity=0.45), circle(61.5, 50.5, 3.1,
                                                                      fill="#e0564a", opacity=0.45),
        path("M50 45.5Q53.2 50.4 49.4 51", stroke="#b5744c", width=1.2, cap="round"),
        path("M41.5 53Q50 56.5 58.5 53Q56 60.5 50 60.5Q44 60.5 41.5 53Z", fill="#a01822",
             stroke=INK, width=0.9,
             join="round"),
        path("M43.5 54.4Q50 56.9 56.5 54.4L55.5 56.6Q50 58.4 44.5 56.6Z", fill="#fff"),
    )
    for suit, turn in ((4, -38), (3, -19), (2, 0), (1, 19), (5, 38)):
        d.add(small_card(d, suit, turn))
    d.add(path("M3 75L14 77L14 93L1 92L6 83.5Z", fill="#8a5f17", stroke=INK, width=0.9,
               join="round"),
          path("M97 75L86 77L86 93L99 92L94 83.5Z", fill="#8a5f17", stroke=INK, width=0.9,
               join="round"),
          path("M8 77.5Q50 81.5 92 77.5L92 93Q50 97 8 93Z", fill=d.linear(0, 77, 0, 98, [
              (0, "#fff3c4"), (0.5, "#ecc965"), (1, "#b0812a")]), stroke=INK, width=1.1,
              join="round"),
          path("M9 79.4Q50 83.4 91 79.4M9 91.2Q50 95.2 91 91.2", stroke="#8a5f17",
               width=0.7))
    d.add(lettering("CHARLIE", 50, 91.9, 13.5, spacing=1, fill="#5c0812"))
    d.add(arc_lettering("5 CARD", 50, 50, 33.6, 11, spacing=1.2, fill="#fff0b8"))
    return d


def wheel():
    """Emblem of the spin: eight segments about a hub."""
    d = Drawing(50, 50)
    d.add(circle(25, 25, 24, fill=d.gold(1, 49), stroke="#4a3208", width=0.8))
    for k in range(12):
        a, b = math.radians(30 * k - 15), math.radians(30 * k + 15)
        d.add(path(f"M25 25L{25 + 20 * math.cos(a):.2f} {25 + 20 * math.sin(a):.2f}A20 20 0 0 1 "
                   f"{25 + 20 * math.cos(b):.2f} {25 + 20 * math.sin(b):.2f}Z",
                   fill=("#c8202c", "#fbf3df", "#16703f", "#fbf3df")[k % 4], stroke="#7a5413",
                   width=0.7))
        m = math.radians(30 * k)
        d.add(circle(25 + 22.1 * math.cos(m + 0.26), 25 + 22.1 * math.sin(m + 0.26), 0.9,
                     fill="#fffbe6"))
    d.add(circle(25, 25, 6.5, fill=d.radial(23, 22, 9, [(0, "#fff3c4"), (1, "#a8781f")]),
                 stroke="#4a3208",
                 width=0.8))
    d.add(polygon(star_points(25, 25, 4.6, 1.9, 5), fill="#7d0f1a"))
    return d


def felt():
    """A seamless square of cloth: short fibres, repeated across the edges that they touch."""
    side = 96
    d = Drawing(side, side)
    d.add(rect(-1, -1, side + 2, side + 2, fill="#0b5a37"))
    chance = random.Random(17)
    layers = {"#0f6a42": [], "#084a2c": [], "#138050": []}
    for k in range(900):
        tone = ("#0f6a42", "#084a2c", "#0f6a42", "#084a2c", "#138050")[k % 5]
        x, y = chance.uniform(0, side), chance.uniform(0, side)
        angle, length = chance.uniform(0, math.pi), chance.uniform(1.2, 3.4)
        dx, dy = length * math.cos(angle), length * math.sin(angle)
        bx, by = dx / 2 + chance.uniform(-0.4, 0.4), dy / 2 + chance.uniform(-0.4, 0.4)
        for sx in (-side, 0, side):
            for sy in (-side, 0, side):
                if -6 < x + sx < side + 6 and -6 < y + sy < side + 6:
                    layers[tone].append(f"M{x + sx:.1f} {y + sy:.1f}q{bx:.1f} {by:.1f} {dx:.1f} {dy:.1f}")
    for tone, fibres in layers.items():
        for k in range(0, len(fibres), 12):  # many short paths are drawn faster than a long one
            d.add(path("".join(fibres[k:k + 12]), stroke=tone, width=0.6, opacity=0.42))
    return d


def icon(small):
    """A fan of cards on felt in a gold frame; the small one shows a single card."""
    d = Drawing(64, 64)
    d.add(rect(1, 1, 62, 62, 13, fill=d.linear(0, 0, 64, 64, [
        (0, "#fff3c4"), (0.3, "#dcb24a"), (0.55, "#9a6c1c"), (0.8, "#ecc965"), (1, "#7a5413")]),
        stroke="#4a3208", width=1))
    rim = 4.5 if small else 3.6
    d.add(rect(rim, rim, 64 - 2 * rim, 64 - 2 * rim, 10.5, fill=d.radial(32, 24, 42, [
        (0, "#1f9a60"), (1, "#06391f")]), stroke="#2a1604", width=0.8))
    if small:
        d.add(group([rect(13.5, 7, 37, 50, 4.5, fill="#fffdf5", stroke=INK, width=1.5)],
                    "rotate(8 32 32)"))
        d.add(group([pip(d, 2, 16.5, 17, 31)], "rotate(8 32 32)"))
        return d
    fan = []
    for turn, suit in ((-27, 1), (-14, 4), (-1, 3), (12, 5)):
        fan.append(group([rect(20.5, 13, 23, 34, 2.8, fill="#fffdf5", stroke=INK, width=1),
                          pip(d, suit, 22, 14.8, 8)], f"rotate({turn} 32 58)"))
    fan.append(group([rect(20.5, 13, 23, 34, 2.8, fill=d.linear(0, 13, 0, 47, [(0, "#ffffff"), (1,
                                                                                                "#f2e9d2")]),
                           stroke=INK, width=1),
                      pip(d, 2, 22.8, 20.5, 18.4)], "rotate(25 32 58)"))
    d.add(group(fan, "translate(3.4 4.4) scale(0.9)"))
    return d


def tile(d, w, h, fill=("#ffffff", "#f3ebd6")):
    d.add(rect(0.5, 0.5, w - 1, h - 1, 3, fill=d.linear(0, 0, 0, h, [(0, fill[0]), (1, fill[1])]),
               stroke="#8d8168", width=1))


RANK_TEXT = {1: "A", 10: "10", 11: "J", 12: "Q", 13: "K"}


def rank_tile(rank, red):
    d = Drawing(24, 28)
    tile(d, 24, 28)
    text = RANK_TEXT.get(rank, str(rank))
    d.add(lettering(text, 12, 21.5, 21.5, stretch=0.82 if rank == 10 else 1,
                    fill=RED if red else BLACK))
    return d


def suit_tile(suit):
    d = Drawing(24, 24)
    tile(d, 24, 24)
    d.add(pip(d, suit, 4, 4, 16))
    return d


def empty_tile():
    d = Drawing(24, 28)
    d.add(rect(0.5, 0.5, 23, 27, 3, fill=d.linear(0, 0, 0, 28, [(0, "#0f6a42"), (1, "#0a4f30")]),
               stroke="#073a22"))
    d.add(rect(3.5, 3.5, 17, 21, 2, stroke="#3f9a6c", width=0.8, opacity=0.8))
    return d


def joker_tile():
    d = Drawing(24, 28)
    tile(d, 24, 28)
    d.add(group(cap(d), "translate(1.5 4) scale(0.21 0.28)"))
    return d


def single_pip(suit, four_colours=False):
    d = Drawing(80, 80)
    d.add(pip(d, suit, 0, 0, 80, pip_look(d, suit, 0, 100, four_colours)))
    return d
