// tolvane-cli hand GAME CARDS: what each of the 32 ways to hold a hand is worth.
#pragma once
#include "cli/Command.h"

Command HandCommand();
