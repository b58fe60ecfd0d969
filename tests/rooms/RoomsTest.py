#!/usr/bin/env python3
"""Holds the includes to the arrows that docs/contributing.md draws under "Rooms": RoomsTest.py, without arguments.
A folder that is not drawn belongs to the room around it. Inside a room, a header and its .cpp count as one file;
they may not include one another in a circle, and stand on no more floors than the page says."""
import re
import sys
from functools import cache
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs" / "contributing.md"
TOPS = ("core", "game", "ui", "app", "cli")
INCLUDE = re.compile(r'\s*#\s*include\s*"([^"]+)"')


def read_drawing(text):
    """Each room with those that its arrows reach. "a, b ─► c ─► d" has an arrow from a to c, from b to c and from c
    to d."""
    arrows = {}
    for line in re.findall(r"^    (\S.*─►.*)$", text, re.M):
        steps = [re.split(r"\s*,\s*", step.strip()) for step in re.split(r"─+►", line)]
        for tails, heads in zip(steps, steps[1:]):
            for tail in tails:
                arrows.setdefault(tail, set()).update(heads)
        for head in steps[-1]:
            arrows.setdefault(head, set())
    return arrows


def room_of(path, rooms):
    """The innermost room around a file; None where nothing around it is drawn."""
    return next((str(folder) for folder in path.parents if str(folder) in rooms), None)


def reach(start, arrows):
    """All that can be come to from there."""
    found, open_ends = set(), [start]
    while open_ends:
        for end in arrows[open_ends.pop()] - found:
            found.add(end)
            open_ends.append(end)
    return found


def read_includes():
    """Each file with the lines on which it includes another by its place in the tree."""
    for top in TOPS:
        for file in sorted((ROOT / top).rglob("*")):
            if file.suffix in (".h", ".cpp"):
                for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
                    if found := INCLUDE.match(line):
                        yield file.relative_to(ROOT), number, Path(found[1])


def check_arrows(arrows, includes):
    may_enter = {room: reach(room, arrows) for room in arrows}
    for room in (room for room in arrows if room in may_enter[room]):
        yield f"{PAGE.name}: the arrows lead from {room} back to {room}"
    for room in (room for room in arrows if not (ROOT / room).is_dir()):
        yield f"{PAGE.name}: no folder {room}"
    for file, line, included in includes:
        tail, head = room_of(file, arrows), room_of(included, arrows)
        if not tail:
            yield f"{file}: the drawing has no room for it"
        elif not (ROOT / included).exists():
            yield f"{file}:{line}: there is no {included} in the tree"
        elif head != tail and head not in may_enter[tail]:
            yield f"{file}:{line}: includes {included}, but no arrow leads {tail} ─► {head or included.parent}"


def check_floors(arrows, includes, most, with_circles):
    units = {}
    for file, _, included in includes:
        unit, other = file.with_suffix(""), included.with_suffix("")
        inside = unit != other and room_of(file, arrows) == room_of(included, arrows)
        units.setdefault(unit, set()).update([other] if inside else [])
        units.setdefault(other, set())
    reached = {unit: reach(unit, units) for unit in units}

    @cache
    def floor(unit):  # a circle is one floor
        below = [other for other in reached[unit] if unit not in reached[other]]
        return 1 + max(map(floor, below), default=0)

    floors = {room: [unit for unit in units if room_of(unit, arrows) == room] for room in arrows}
    for room, members in floors.items():
        circle = sorted(unit.name for unit in members if unit in reached[unit])
        if circle and room not in with_circles:
            yield f"{room} has a circle of includes among {', '.join(circle)}"
        if not circle and room in with_circles:
            yield f"{PAGE.name}: {room} has no circle of includes any more"
        height = max(map(floor, members), default=0)
        print(f"{room}: {height} floors, {len(members)} files")
        if height > most:
            top = max(members, key=floor)
            yield f"{room} has {height} floors of includes, {top.name} on the highest; at most {most} are wanted"


def main():
    text = re.search(r"^## Rooms\n(.*?)(?=^## )", PAGE.read_text(encoding="utf-8"), re.S | re.M)[1]
    arrows = read_drawing(text)
    most = re.search(r"at most (\d+)\s+floors", text)
    circles = re.search(r"in a\s+circle,\s+except\s+in([\w\s,`/]+)", text)
    includes = list(read_includes())
    complaints = [*check_arrows(arrows, includes),
                  *check_floors(arrows, includes, int(most[1]), re.findall(r"`([^`]+)`", circles[1] if circles else ""))]
    print(f"{len(includes)} includes, {sum(map(len, arrows.values()))} arrows between {len(arrows)} rooms")
    print(*complaints, sep="\n")
    return 1 if complaints or not includes or not arrows else 0


sys.exit(main())
