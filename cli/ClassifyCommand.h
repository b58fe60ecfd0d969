// tolvane-cli classify GAME CARDS: the pay line that five cards are paid on.
#pragma once
#include "cli/Command.h"

Command ClassifyCommand();
