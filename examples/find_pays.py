#!/usr/bin/env python3
"""All full house and flush pays of a game that return what is wished:

    find_pays.py "Jacks or Better" 98 99.6

The first column is the full house, the second the flush, the third the return in percent.
"""
import argparse

from tolvane import ask


def pays_within(game, least, most, spread):
    """The pairs of pays around those of the table, with their returns."""
    lines = {line["description"]: line["payout"] for line in ask("analyze", game)["lines"]}
    house, flush = lines["FULL HOUSE"], lines["FLUSH"]
    for full in range(max(1, house - spread), house + spread + 1):
        for five in range(max(1, flush - spread), flush + spread + 1):
            answer = ask("analyze", game, pays=[f"FULL HOUSE={full}", f"FLUSH={five}"])
            if least <= answer["payoutPercent"] <= most:
                yield full, five, answer["payoutPercent"]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("game")
    parser.add_argument("least", type=float, help="percent")
    parser.add_argument("most", type=float, help="percent")
    parser.add_argument("--spread", type=int, default=3, help="coins up and down from the table's pays")
    wish = parser.parse_args()
    for full, five, percent in pays_within(wish.game, wish.least, wish.most, wish.spread):
        print(f"{full:3} {five:3} {percent:10.4f}")


if __name__ == "__main__":
    main()
