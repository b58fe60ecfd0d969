// A report as a table, without a window: what each cell shows, and what it is sorted by. A function
// of the report makes one from an engine or a file; the window shows it, copies it and saves it.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/cards/Hand.h"

struct ReportColumn {
    std::string title = {};  // "Return"
    std::string unit = {};   // "$", "%", "1 in"; in the heading behind the title; empty = none
    bool number = false;     // right-aligned, and sorted by the values of its cells
    std::string tip = {};    // a sentence for who does not know the title; empty = none
};

struct ReportCell {
    std::string text = {};             // as it is shown, searched, copied and saved; UTF-8
    std::optional<double> value = {};  // of a number; a cell without one comes last in either order
    // Drawn as small cards in front of the text's place, which then is only searched and saved. A
    // face that shows no card leaves its place empty.
    std::vector<CardFace> cards = {};
};

enum class RowMark {
    kNone,
    kBest,    // the best choice, or one that is as good
    kChosen,  // what the player chose
    kBad,     // what is wrong, out of date or incomplete
};

struct ReportRow {
    std::int64_t id = 0;  // the report's own: a hold, an entry, a line; no two rows' same
    std::vector<ReportCell> cells = {};  // one for each column
    RowMark mark = RowMark::kNone;
    std::string remark = {};  // in words what the mark means here; empty = MarkWord's own word
};

// "Game" and "Deuces Wild".
struct ReportFact {
    std::string label = {};
    std::string value = {};
};

struct ReportTable {
    std::string title = {};             // "Hand Analysis"
    std::vector<ReportFact> head = {};  // what the figures belong to, in the order shown
    std::string warning = {};  // above the figures: why they must not be trusted; empty = none
    std::vector<ReportColumn> columns = {};
    std::vector<ReportRow> rows = {};  // in the report's own order, to which sorting comes back
};
