// tolvane-cli analyze GAME: the exact return of a whole game, or of every game.
#pragma once
#include "cli/Command.h"

Command AnalyzeCommand();
