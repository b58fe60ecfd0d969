#pragma once
#include "cli/Command.h"

Command AutoplayCommand();
