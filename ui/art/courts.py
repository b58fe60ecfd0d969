"""The pictures of ace, jack, queen and king: a portrait a suit, in its colours."""

import aces
import jacks
import kings
import queens
from portrait import Portrait

DRAWN_BY = {1: aces.ACES, 11: jacks.JACKS, 12: queens.QUEENS, 13: kings.KINGS}


def court(rank, suit, four_colours=False):
    """The ground is blue or red as the card is black or red, or else of the suit's own colour."""
    d = Portrait(suit, four_colours)
    d.add(*DRAWN_BY[rank][suit](d))
    return d.close()
