// Where the pay tables and the other data are.
#pragma once
#include <optional>
#include <string>

#include "cli/Command.h"

// The path of the main profile file: Tolvane.ini in the named folder, or, as long as that holds
// none, the shipped release file there. Without a name it is in the folder where the window program
// keeps its data (its own when that can be written, otherwise the user's), and the shipped one is
// beside the program. One that is there and cannot be read is a failure: others would answer for
// it.
std::optional<Failure> FindMainFile(const std::optional<std::string>& dataFolder,
                                    std::string& path);

// The folder that data are written to: the named one, otherwise where the window program keeps its
// own. Empty when the system knows no such place.
std::string DataFolder(const std::optional<std::string>& named);
