// Pay tables as a text that a mail can carry: sections of a profile file, as Tolvane.ini has them,
// without the keys that chain them.
#pragma once
#include <span>
#include <string>
#include <string_view>

#include "game/paytables/TableImport.h"

// The tables have no problem (FindProblem) and names that can be kept.
std::string TablesAsText(std::span<const NamedTable> tables);

// Reads what TablesAsText writes, and sections cut out of Tolvane.ini. Unlike a profile file, it is
// refused where a line says nothing that a table has, or says it twice: whoever typed it meant
// something.
TablesRead ReadTablesText(std::string_view text);
