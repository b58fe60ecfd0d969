// What becomes of the game files when a pay table is deleted, or a game deleted or renamed. Each
// file is changed as a whole or not at all; false when it could not be saved. Each change can be
// repeated.
#pragma once
#include <string>
#include <vector>

#include "core/paytable/PayTableStore.h"

// All game files follow a change of the pay tables: those of the data folder, and the one that was
// in use. The paths of those that could not be saved.
std::vector<std::string> FollowInGameFiles(ProfileFile& file, const TableEdit& edit,
                                           const std::string& dataFolder);

// What a start does before it reads a game: a change during which the program ended is finished.
// One that a file does not take now is tried again at the next start.
void ResumeUnfinishedEdit(const PayTableFiles& files, const std::string& dataFolder);
