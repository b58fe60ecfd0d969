// tolvane-cli games: the catalogue.
#pragma once
#include "cli/Command.h"

Command GamesCommand();
