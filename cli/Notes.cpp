#include "cli/Notes.h"

#include <iostream>

#include "cli/Command.h"

void Tell(std::string_view message) { std::cerr << kProgramName << ": " << message << '\n'; }
