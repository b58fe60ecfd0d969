#!/usr/bin/env python3
"""The examples do what they say: ExamplesTest.py FOLDER, with the folder of the built programs."""
import os
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

EXAMPLES = Path(__file__).resolve().parents[2] / "examples"
PROGRAM = Path(sys.argv.pop(1)).resolve() / "tolvane-cli"
HOME = tempfile.TemporaryDirectory()
os.environ.update(TOLVANE_CLI=str(PROGRAM), HOME=HOME.name, PYTHONDONTWRITEBYTECODE="1")
os.environ.pop("XDG_DATA_HOME", None)
sys.dont_write_bytecode = True
sys.path.insert(0, str(EXAMPLES))
import tolvane  # noqa: E402 (its place is known only now)


def run(script, *arguments):
    done = subprocess.run([sys.executable, EXAMPLES / script, *arguments], capture_output=True,
                          encoding="utf-8", check=True)
    return done.stdout


class Examples(unittest.TestCase):
    def test_the_module_asks_one_program_hand_after_hand(self):
        with tolvane.Analyst("Jacks or Better", pays=["FLUSH=5"]) as analyst:
            royal = analyst.best("AS KS QS JS 9H")
            self.assertEqual(tolvane.held(royal), ["AS", "KS", "QS", "JS"])
            self.assertAlmostEqual(royal["return"], (4000 + 8 * 25 + 3 * 20 + 12 * 5) / 47)
            with self.assertRaisesRegex(tolvane.WrongHand, "given twice"):
                analyst.best("AS AS QS JS 9H")
            self.assertEqual(analyst.best("KS KH KD 9C 9S")["mask"], 31)
        with self.assertRaisesRegex(RuntimeError, "unknown game"):
            tolvane.ask("analyze", "Jakcs")

    def test_the_pays_found_are_the_published_ones(self):
        found = [line.split() for line in run("find_pays.py", "Jacks or Better", "97", "98.5", "--spread", "1").splitlines()]
        self.assertEqual([["8", "6", "98.3927"], ["9", "5", "98.4498"]],
                         [line for line in found if line[:2] in (["8", "6"], ["9", "5"])])
        self.assertNotIn(["9", "6", "99.5439"], found)

    def test_the_plot_is_a_picture_with_the_break_even_meter(self):
        tree = ElementTree.fromstring(run("plot_meter.py", "Jacks or Better", "4000", "6000"))
        self.assertIn("even at 4,880 coins", tree[0].text)
        self.assertEqual(len(tree.findall("{*}polyline")[1].get("points").split()), 9)


unittest.main()
