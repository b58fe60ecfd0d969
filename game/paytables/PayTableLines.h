// What can be done with whole lines of a pay table, and with cells that come from a spreadsheet.
#pragma once
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "game/paytables/PayTableForm.h"

// Lines count from 0 to kMaxPayLines - 1. False, and nothing changes, where the last line is in use
// and one more would push it off the table.
bool InsertLine(PayTableTexts& table, int line);     // an empty one, above the line
bool DuplicateLine(PayTableTexts& table, int line);  // below it
void DeleteLine(PayTableTexts& table, int line);

// The lines in between move up or down by one.
void MoveLine(PayTableTexts& table, int from, int to);

// Whether nothing is chosen or typed in a line.
bool IsBlank(const PayLineTexts& line);

// The rank of a name as RankInfo has them, in any letter case, or of its number; a long name is
// looked for first. kUnknown for a text that is empty or "End of Table"; nothing for any other one.
std::optional<HandRank> RankOfText(std::string_view text);

// "yes", "no", "true", "false", "x", 1 and 0; an empty text is no.
std::optional<bool> FlagOfText(std::string_view text);

// The form as a spreadsheet would have it: how it is saved and read back says it, so that two forms
// are alike when saving them would come to the same. What is typed below the end of the table
// counts.
PayTableTexts AsKept(PayTableTexts table);

// Puts rows of cells, parted by tabs, into the table from a cell on, to the right and down. What
// keeps it from being done, by row and word, and then nothing is; nothing when it is done. Another
// rank that comes without a description brings its own.
std::optional<std::string> PasteCells(PayTableTexts& table, FieldPlace from, std::string_view cells,
                                      const std::function<bool(FieldPlace)>& mayChange);
