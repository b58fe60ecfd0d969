#!/usr/bin/env python3
"""The return of a game as one line grows, drawn as an SVG picture without any library:

    plot_meter.py "Jacks or Better" 4000 8000 >meter.svg
    plot_meter.py "Deuces Wild" 1000 2000 --line "FOUR DEUCES" >meter.svg
"""
import argparse

from tolvane import ask

WIDTH, HEIGHT, MARGIN, STEPS = 640, 400, 60, 8


def picture(game, meters, returns, even):
    low, high = min(*returns, 100), max(*returns, 100)

    def place(meter, percent):
        right = MARGIN + (meter - meters[0]) / (meters[-1] - meters[0]) * (WIDTH - 2 * MARGIN)
        down = HEIGHT - MARGIN - (percent - low) / (high - low) * (HEIGHT - 2 * MARGIN)
        return f"{right:.1f},{down:.1f}"

    def text(meter, percent, words, more=""):
        right, down = place(meter, percent).split(",")
        return f'<text x="{right}" y="{down}" {more}>{words}</text>'

    title = f"{game}: even at {even:,.0f} coins" if even is not None else f"{game}: never even"
    title = title.replace("&", "&amp;").replace("<", "&lt;")
    curve = " ".join(map(place, meters, returns))
    yield f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{HEIGHT}" font-family="sans-serif" font-size="13">'
    yield f'<title>{title}</title><rect width="100%" height="100%" fill="white"/>'
    yield f'<text x="{MARGIN}" y="30" font-size="16">{title}</text>'
    yield f'<polyline points="{place(meters[0], 100)} {place(meters[-1], 100)}" stroke="grey" stroke-dasharray="4"/>'
    yield f'<polyline points="{curve}" fill="none" stroke="navy" stroke-width="2"/>'
    for meter in (meters[0], meters[-1]):
        yield text(meter, low, f"{meter:,.0f}", 'text-anchor="middle" dy="20"')
    for percent in sorted({low, 100, high}):
        yield text(meters[0], percent, f"{percent:.2f} %", 'text-anchor="end" dx="-4"')
    yield "</svg>"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("game")
    parser.add_argument("least", type=int, help="coins for the full bet")
    parser.add_argument("most", type=int, help="coins for the full bet")
    parser.add_argument("--line", default="ROYAL FLUSH", help="which one grows")
    wish = parser.parse_args()
    if wish.most <= wish.least:
        parser.error("the second meter has to be the higher one")
    meters = [wish.least + (wish.most - wish.least) * step // STEPS for step in range(STEPS + 1)]
    answers = [ask("analyze", wish.game, pays=[f"{wish.line}={meter // 5}:{meter}"]) for meter in meters]
    even = ask("meter", wish.game, "--line", wish.line)["breakEven"]
    print("\n".join(picture(wish.game, meters, [answer["payoutPercent"] for answer in answers], even)))


if __name__ == "__main__":
    main()
