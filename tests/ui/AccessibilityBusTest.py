#!/usr/bin/python3
"""Plays the built program as a screen reader or a voice does, without a look at it or a key:
AccessibilityBusTest.py FOLDER, with the folder of the program. On a screen, a session bus and an accessibility bus
of its own it reads the machine's objects, presses them, and listens to what they say of their changes. Exit code
77: something that it takes is not installed. Debian's own Python has the bindings, whatever else is in the path."""
import glob
import os
import shutil
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
PATIENCE = 20  # seconds
START = 100  # credits
BET = 5
GAME = f"[main]\nGameName=Jacks or Better\nGameID=300\nCredits={START}\nBet={BET}\nSpeed=3\nShowDollar=0\n"


class Failure(Exception):
    """What was not as it should be."""


def wait_until(true, what):
    latest = time.monotonic() + PATIENCE
    while not (answer := true()):
        if time.monotonic() > latest:
            raise Failure(f"never happened: {what}")
        GLib.MainContext.default().iteration(False)
        time.sleep(0.02)
    return answer


class Machine:
    """The objects of the program on the bus, and what is heard of them."""

    def __init__(self):
        self.heard = []
        self.listener = Atspi.EventListener.new(self.hear)
        for kind in ("object:property-change:accessible-name", "object:property-change:accessible-description",
                     "object:state-changed"):
            self.listener.register(kind)
        self.table = wait_until(self.find, "the table on the bus")
        self.objects = [self.table.get_child_at_index(i) for i in range(self.table.get_child_count())]
        wait_until(self.objects[-1].get_name, "the first news")

    def hear(self, event, *_):
        self.heard.append((event.type, event.source.get_name(), event.detail1))

    @staticmethod
    def find():
        desktop = Atspi.get_desktop(0)
        for program in (desktop.get_child_at_index(i) for i in range(desktop.get_child_count())):
            if program and program.get_name() == "Tolvane":
                program.set_cache_mask(Atspi.Cache.NONE)  # what is read comes from the program
                return find_below(program, "Video poker table")
        return None

    def shown(self):
        return [part for part in self.objects if part.get_state_set().contains(Atspi.StateType.VISIBLE)]

    def names(self, role=None):
        return [part.get_name() for part in self.shown() if role in (None, part.get_role())]

    def cards(self):
        return [name.split(", ", 1)[1] for name in self.names() if name.startswith("card ")]

    def number(self, meter):
        return next(int(name.split()[1].replace(",", "")) for name in self.names() if name.startswith(meter + " "))

    def button(self, name):
        return next(part for part in self.shown() if part.get_name() == name)

    def press(self, name):
        """What is said of it when all is quiet again."""
        self.heard.clear()
        if not Atspi.Action.do_action(self.button(name), 0):
            raise Failure(f"{name} cannot be pressed")
        wait_until(self.news, f"news after {name}")
        return self.heard

    def news(self):
        return [name for kind, name, on in self.heard if kind == "object:state-changed:showing" and on and
                name.endswith(".")]


def find_below(part, name):
    for child in (part.get_child_at_index(i) for i in range(part.get_child_count())):
        if child and (child.get_name() == name or (child := find_below(child, name))):
            return child
    return None


def expect(true, what):
    if not true:
        raise Failure(what)


def is_pressable(part):
    return part.get_state_set().contains(Atspi.StateType.ENABLED)


def is_checked(part):
    return part.get_state_set().contains(Atspi.StateType.CHECKED)


def a_hand_is_played(machine):
    expect(machine.names(Atspi.Role.PUSH_BUTTON) == [f"HOLD {i}" for i in range(1, 6)] + ["DEAL/DRAW", "BET ONE",
           "MAX BET"], f"the buttons are {machine.names(Atspi.Role.PUSH_BUTTON)}")
    expect(machine.cards() == ["face down"] * 5, f"before the first hand the cards are {machine.cards()}")
    expect(not is_pressable(machine.button("HOLD 1")), "there is nothing to hold")
    expect("JACKS OR BETTER pays 1, 2, 3, 4, 5" in machine.names(), "the pay lines are read")

    machine.press("DEAL/DRAW")
    news = machine.news()
    dealt = machine.cards()
    expect("face down" not in dealt and len(set(dealt)) == 5, f"the cards are {dealt}")
    expect(machine.number("credits") == START - BET, f"{machine.names()} after a bet of {BET}")
    expect(len(news) == 1 and dealt[4] in news[0] and "HOLD/DRAW" in news[0] and "bet" not in news[0],
           f"of the deal is said {news}")
    expect(not is_pressable(machine.button("BET ONE")), "the bet stands during the hand")

    for number in (2, 4):
        button = machine.button(f"HOLD {number}")
        machine.press(f"HOLD {number}")
        card = dealt[number - 1]
        expect(machine.news() == [f"card {number}, {card}, held."], f"of HOLD {number} is said {machine.news()}")
        expect(("object:state-changed:checked", f"HOLD {number}", 1) in machine.heard and is_checked(button),
               f"HOLD {number} does not say that it is held: {machine.heard}")
    expect(not any("accessible-description" in kind for kind, *_ in machine.heard), "the whole table is told again")

    machine.press("DEAL/DRAW")
    drawn = machine.cards()
    message = next(name for name in machine.names() if name.startswith(("WON", "GAME OVER")))
    won = int(message.split()[1]) if message.startswith("WON") else 0
    expect([drawn[1], drawn[3]] == [f"{dealt[1]}, held", f"{dealt[3]}, held"], f"{drawn} were drawn to cards 2 and 4 of {dealt}")
    expect(all(drawn[i] not in dealt for i in (0, 2, 4)), f"{drawn} were drawn to {dealt}")
    expect(machine.number("credits") == START - BET + won, f"{message}, but {machine.number('credits')} credits")
    lines = [name for name in machine.names() if ", won " in name]
    expect([int(name.rsplit(" ", 1)[1]) for name in lines] == [won] * bool(won), f"{message}, but {lines}")
    print(f"{dealt} became {drawn}: {message}, {machine.number('credits')} credits")


def a_place_has_its_object(machine):
    deal = machine.button("DEAL/DRAW")
    box = Atspi.Component.get_extents(deal, Atspi.CoordType.SCREEN)
    there = Atspi.Component.get_accessible_at_point(
        machine.table, box.x + box.width // 2, box.y + box.height // 2, Atspi.CoordType.SCREEN)
    expect(there and there.get_name() == "DEAL/DRAW", f"in the place of DEAL/DRAW is {there and there.get_name()}")
    expect(deal.get_parent() == machine.table and machine.objects[deal.get_index_in_parent()] == deal,
           "the tree of the objects does not fit together")
    expect(Atspi.Action.get_key_binding(deal, 0) == "D", "its key is not told")


def play(folder, home):
    for file in (f"{folder}/Tolvane", *glob.glob(f"{folder}/*.114"), *glob.glob(f"{folder}/*.wav")):
        shutil.copy(file, home)
    with open(f"{home}/hand.qdx", "w", encoding="ascii") as file:
        file.write(GAME)
    program = subprocess.Popen([f"{home}/Tolvane", "hand.qdx"], cwd=home, env={
        **os.environ, "HOME": home, "XDG_CONFIG_HOME": f"{home}/config", "QT_QPA_PLATFORM": "xcb",
        "PULSE_SERVER": "unix:/nowhere", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
    try:
        machine = Machine()
        a_hand_is_played(machine)
        a_place_has_its_object(machine)
        program.terminate()
        expect(program.wait(PATIENCE) == 0, "the program failed at its end")
    finally:
        program.kill()
        program.wait()


def main():
    with tempfile.TemporaryDirectory() as home:
        try:
            play(sys.argv[1], home)
        except Failure as failure:
            print("FAILED:", failure)
            return 1
    print("a hand was played on the accessibility bus")
    return 0


def on_screen_and_bus_of_its_own():
    if missing := [tool for tool in ("Xvfb", "dbus-run-session") if not shutil.which(tool)]:
        print("Skipped: there is no", ", ".join(missing))
        return SKIPPED
    told, tells = os.pipe()  # the number of a display that nobody else has
    screen = subprocess.Popen(["Xvfb", "-displayfd", str(tells), "-noreset", "-screen", "0", "1280x1024x24"],
                              pass_fds=[tells], stderr=subprocess.DEVNULL)
    try:
        with tempfile.TemporaryDirectory() as runtime:
            environment = {**os.environ, "XDG_RUNTIME_DIR": runtime, "TOLVANE_BUS_TEST": "1", "LC_ALL": "C.UTF-8",
                           "DISPLAY": f":{os.read(told, 16).decode().strip()}"}
            for name in ("AT_SPI_BUS_ADDRESS", "XAUTHORITY", "XDG_DATA_HOME", "WAYLAND_DISPLAY"):
                environment.pop(name, None)
            return subprocess.run(["dbus-run-session", "--", *sys.argv], env=environment, check=False).returncode
    finally:
        screen.terminate()
        screen.wait()


if __name__ == "__main__":
    try:
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi, GLib
    except (ImportError, ValueError) as missing_binding:
        print("Skipped:", missing_binding)
        sys.exit(SKIPPED)
    sys.exit(main() if "TOLVANE_BUS_TEST" in os.environ else on_screen_and_bus_of_its_own())
