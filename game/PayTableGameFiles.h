// What becomes of the game files when a pay table is deleted, or a game deleted or renamed. Each
// file is changed as a whole or not at all; false when it could not be saved.
#pragma once
#include <string>
#include <vector>

class ProfileFile;

// All game files of the data folder, and the one in use wherever it is, as far as they exist.
std::vector<std::string> GameFilesToKeep(const std::string& dataFolder,
                                         const std::string& gamePath);

// A file whose current game this is goes on with Jacks or Better.
bool ForgetGame(ProfileFile& file, const std::string& gamePath, const std::string& gameName);

// A file in which the table was active goes on with table 0. The index is 1 or more.
bool ForgetTable(ProfileFile& file, const std::string& gamePath, const std::string& gameName,
                 int tableIndex);

// No game has the new name; what a file has under it is left over, and goes where it is in the way.
bool RenameGame(ProfileFile& file, const std::string& gamePath, const std::string& oldName,
                const std::string& newName);
