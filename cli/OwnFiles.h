// The files of the program itself, which no answer may replace.
#pragma once
#include <optional>
#include <string>

// Also when there is no such file yet. Links and other spellings of a path are followed.
bool IsSameFile(const std::string& a, const std::string& b);

// True of the pay tables, game files, analyses, sounds and programs in the named data folder, in
// the player's and beside the program, whether there already or not, and of every game file that is
// there. What is compared are the files, as by IsSameFile.
bool IsOwnFile(const std::string& path, const std::optional<std::string>& dataFolder);
