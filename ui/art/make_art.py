#!/usr/bin/env python3
"""Draws every picture of the program into svg/ and lists them by number in art.qrc.

    python3 ui/art/make_art.py

The results are committed beside it, so that a build needs no Python. The numbers are those of
Picture in Pictures.h; a picture per size class takes a number for small, medium and large in a row.
"""

from pathlib import Path

import backs
import cards
import courts
import table

FOLDER = Path(__file__).resolve().parent
SIZES = ("small", "medium", "large")
SUITS = {1: "spades", 2: "hearts", 3: "clubs", 4: "diamonds", 5: "stars"}
RANKS = ("ace", "two", "three", "four", "five", "six", "seven", "eight", "nine", "ten", "jack",
         "queen", "king")
COURTS = (1, 11, 12, 13)


def all_pictures():
    """(number, file name, drawing) of every picture."""
    yield 1019, "felt", table.felt()
    for suit, number in {1: 1043, 2: 1039, 3: 1046, 4: 1035, 5: 1105}.items():
        yield number, f"suit_{SUITS[suit]}", table.suit_tile(suit)
    yield 1119, "empty", table.empty_tile()
    yield 1120, "joker_cap", table.joker_tile()
    for rank, name in enumerate(RANKS, 1):
        yield 1121 + rank, f"rank_{name}_black", table.rank_tile(rank, False)
        yield 1134 + rank, f"rank_{name}_red", table.rank_tile(rank, True)
    yield 1200, "icon", table.icon(False)
    yield 1201, "icon_small", table.icon(True)
    for k, size in enumerate(SIZES):
        yield 1210 + k, f"card_face_{size}", cards.face(size)
        yield 1230 + k, f"card_joker_{size}", cards.joker(size)
        yield 1240 + k, f"card_alternate_{size}", cards.face(size, tinted=True)
        for number, back in enumerate(backs.BACKS):
            yield 1220 + 3 * number + k, f"card_back_{back.__name__}_{size}", back(size)
            yield 1260 + 3 * number + k, f"card_stack_{back.__name__}_{size}", cards.stack(size, number)
    for suit, name in SUITS.items():
        yield 1300 + suit, f"pip_{name}", table.single_pip(suit)
    yield 1306, "pip_clubs_green", table.single_pip(3, four_colours=True)
    yield 1307, "pip_diamonds_blue", table.single_pip(4, four_colours=True)
    for suit, name in list(SUITS.items())[:4]:
        for rank in COURTS:
            number, file = 20 * (suit - 1) + rank, f"court_{RANKS[rank - 1]}_{name}"
            yield 1310 + number, file, courts.court(rank, suit)
            if name != "hearts":  # red with two colours and with four
                yield 1600 + number, f"{file}_four_colours", courts.court(rank, suit, four_colours=True)
    yield 1391, "court_ace_stars", courts.court(1, 5)
    for k, size in enumerate(SIZES):
        for j, name in enumerate(table.BUTTONS):
            yield 1400 + 10 * k + 2 * j, f"button_{name}_{size}", table.button(name, size, False)
            yield 1401 + 10 * k + 2 * j, f"button_{name}_{size}_pressed", table.button(name, size,
                                                                                       True)
    for k, size in enumerate(SIZES):
        yield 1440 + 2 * k, f"spin_{size}", table.spin_button(size, False)
        yield 1441 + 2 * k, f"spin_{size}_lit", table.spin_button(size, True)
        yield 1450 + k, f"spin_window_{size}", table.spin_window(size)
        for j, colour in enumerate(table.PANELS):
            yield 1460 + 4 * k + 2 * j, f"panel_{colour}_{size}", table.panel(colour, size, False)
            yield 1461 + 4 * k + 2 * j, f"panel_{colour}_{size}_lit", table.panel(colour, size,
                                                                                  True)
            yield 1480 + 2 * k + j, f"choice_{colour}_{size}", table.choice(colour, size)
    for k, name in enumerate(table.COINS):
        yield 1500 + k, f"coin_{name}", table.coin(name)
    for number in range(1, 6):
        yield 1519 + number, f"target_{number}", table.target(number)
    yield 1511, "charlie", table.charlie()
    yield 1512, "wheel", table.wheel()


def main():
    (FOLDER / "svg").mkdir(exist_ok=True)
    for old in (FOLDER / "svg").glob("*.svg"):
        old.unlink()
    entries = []
    for number, name, drawing in all_pictures():
        (FOLDER / "svg" / f"{name}.svg").write_text(drawing.text(), encoding="utf-8")
        entries.append((number, name))
    lines = [f'    <file alias="{number}">svg/{name}.svg</file>' for number,
             name in sorted(entries)]
    (FOLDER / "art.qrc").write_text(
        '<!DOCTYPE RCC>\n<RCC version="1.0">\n  <qresource prefix="/art">\n' + "\n".join(lines)
        + "\n  </qresource>\n</RCC>\n", encoding="utf-8")


if __name__ == "__main__":
    main()
