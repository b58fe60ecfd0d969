"""Hands analysed by tolvane-cli, from Python.

    from tolvane import Analyst
    with Analyst("Jacks or Better", pays=["FLUSH=5"]) as analyst:
        print(analyst.best("AS KS QS JS 9H")["return"])
"""
import json
import os
import subprocess

PROGRAM = os.environ.get("TOLVANE_CLI", "tolvane-cli")


class WrongHand(ValueError):
    """A text that is no hand of the game; the message says how to mend it."""


def ask(command, *arguments, pays=()):
    """The answer to a sub-command: ask("analyze", "Deuces Wild")["payoutPercent"]."""
    options = [word for pay in pays for word in ("--pay", pay)]
    done = subprocess.run([PROGRAM, command, *map(str, arguments), *options, "--json"],
                          capture_output=True, encoding="utf-8", check=False)
    if done.returncode != 0:
        raise RuntimeError(done.stderr.strip())
    return json.loads(done.stdout)


class Analyst:
    """One running program that answers hand after hand."""

    def __init__(self, game, *, pays=(), options=(), only_best=True):
        words = [word for pay in pays for word in ("--pay", pay)]
        best = ["--best"] if only_best else []
        self.program = subprocess.Popen([PROGRAM, "hand", game, "-", *words, *options, *best],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        encoding="utf-8", bufsize=1)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.program.stdin.close()
        self.program.stdout.close()
        self.program.wait()

    def best(self, cards):
        """The answer to one hand, an object of docs/json.md."""
        self.program.stdin.write(" ".join(cards.split()) + "\n")
        answer = json.loads(self.program.stdout.readline())
        if "error" in answer:
            raise WrongHand(answer["error"])
        return answer


def held(answer):
    """The cards that the best hold of a five-card hand keeps."""
    return [card for position, card in enumerate(answer["cards"]) if answer["mask"] & 16 >> position]
