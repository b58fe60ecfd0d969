// Pay tables that come from a file which anybody may have written: what the readers of its formats
// have in common.
#pragma once
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "game/paytables/PayTableForm.h"

struct NamedTable {
    std::string gameName;
    int tableIndex = 0;  // 0..kLastTableIndex
    PayTableTexts texts;

    bool operator==(const NamedTable&) const = default;
};

// What was read, or what cannot be, by line and word: "Line 12: "Payot0" is no key of a pay
// table.". No table is given then.
struct TablesRead {
    std::vector<NamedTable> tables;
    std::string problem;
};

std::string LineProblemText(int line, std::string_view word, std::string_view problem);

// In quotes, of a long one the beginning.
std::string QuotedWord(std::string_view word);

// One of them while it is read, and where its fields stand.
class TableDraft {
  public:
    NamedTable table;
    int line = 0;  // of the file, where it begins; they count from 1

    void Place(FieldPlace place, int lineOfFile, std::string_view word);

    // What keeps it from being saved; empty when nothing does.
    std::string Problem() const;

  private:
    struct Position {
        int line;
        std::string word;
    };
    std::map<std::pair<FormField, int>, Position> places;
};

// Why a table of this game and index cannot be taken, the word being the one that names them; empty
// when it can.
std::string PlaceProblem(std::string_view gameName, int tableIndex);

// The text up to the next line feed, without the carriage returns before it; the text goes on
// behind it.
std::string_view TakeTextLine(std::string_view& text);

// Why a text cannot be kept in a table: it is too long, has control characters, or is no UTF-8;
// empty when it can.
std::string TextProblem(std::string_view text);

// Without a byte order mark.
std::string_view WithoutMark(std::string_view text);
