// Files as a whole: telling them apart, reading one, and writing one so that its old contents are
// there until the new ones are, whatever happens in between.
#pragma once
#include <optional>
#include <string>
#include <string_view>

// Whether two paths name one file. ASCII letters in either case are the same, unless the file
// system tells two such files apart and has both.
bool SamePath(const std::string& a, const std::string& b);

// Whether two paths lead to one file that is there, by links or other spellings too, or name one.
bool SameFile(const std::string& a, const std::string& b);

// Nothing when the path names something else than a plain file, or when not all of it could be
// read.
std::optional<std::string> ReadWholeFile(const std::string& path);

// Gives the file at path these contents. They are written to a file beside it, brought to the disk
// and renamed over the old one. A symbolic link stays: the file behind it is replaced. The new file
// has the mode of the old one, and its owner and group where the system lets us; a missing file is
// created. False when the path names something else than a plain file, when the old file may not be
// written (as when opening it for writing), or when any step fails: the old file is then as it was,
// and nothing is left beside it. A program that is killed in the middle may leave the file it was
// writing, ".tolvane-new-" and numbers: it is in nobody's way, and a replacement in the same folder
// an hour or more later takes it away.
bool ReplaceFile(const std::string& path, std::string_view contents);
