#include "game/paytables/TableCsv.h"

#include <algorithm>
#include <array>
#include <optional>

#include "core/paytable/PayTableStore.h"
#include "core/text/Csv.h"
#include "core/text/Numbers.h"
#include "core/text/WholeNumber.h"
#include "game/paytables/PayTableLines.h"

namespace {

using enum FormField;

constexpr std::array<std::string_view, 6> kTypes = {"Standard", "5 Aces",     "OEJ",
                                                    "Pick 'Em", "Ace$ Bonus", "Double Draw Aces"};

// Where a cell of a table, or of one of its lines, goes to: one member at most.
struct Column {
    std::string_view name;
    std::string PayTableTexts::*text = nullptr;
    bool PayTableTexts::*flag = nullptr;
    std::string PayLineTexts::*lineText = nullptr;
    bool PayLineTexts::*lineFlag = nullptr;
    std::optional<FormField> field{};
};

constexpr std::string_view kGame = "Game";
constexpr std::string_view kTable = "Table";
constexpr std::string_view kType = "Type";
constexpr std::string_view kRankName = "Hand Rank";

using Table = PayTableTexts;
using Line = PayLineTexts;

// In the order in which they are written. What has no member is told apart by its name.
const std::array<Column, 19> kColumns = {{
    {kGame},
    {kTable},
    {kType},
    {"Uses Wilds", {}, &Table::usesWilds, {}, {}, kWilds},
    {"Jokers", &Table::jokers, {}, {}, {}, kJokers},
    {"Wild Ranks", &Table::wildRanks, {}, {}, {}, kWildRanks},
    {"Min Pair", &Table::minPair, {}, {}, {}, kMinPair},
    {"Max Bet", &Table::maxBet, {}, {}, {}, kMaxBet},
    {"Charlie", {}, &Table::charlieBonus, {}, {}, {}},
    {"Red or Black", {}, &Table::redBlackBonus, {}, {}, {}},
    {"Spin", {}, &Table::spinBonus, {}, {}, {}},
    {"Target", {}, &Table::targetBonus, {}, {}, {}},
    {kRankName, {}, {}, {}, {}, kRank},
    {"Description", {}, {}, &Line::description, {}, kDescription},
    {"Payout", {}, {}, &Line::payout, {}, kPayout},
    {"Max Payout", {}, {}, &Line::maxPayout, {}, kMaxPayout},
    {"Bonus/Quads", {}, {}, &Line::bonusQuads, {}, kBonusQuads},
    {"Kicker", {}, {}, &Line::kickers, {}, kKickers},
    {"Wilds OK", {}, {}, {}, &Line::wildsOK, kWildsOK},
}};

std::string FlagText(bool flag) { return flag ? "yes" : "no"; }

std::string CellOf(const Column& column, const NamedTable& table, const PayLineTexts& line) {
    if (column.text) return table.texts.*column.text;
    if (column.flag) return FlagText(table.texts.*column.flag);
    if (column.lineText) return line.*column.lineText;
    if (column.lineFlag) return FlagText(line.*column.lineFlag);
    if (column.name == kGame) return table.gameName;
    if (column.name == kTable) return std::to_string(table.tableIndex);
    if (column.name == kType)
        return std::string(kTypes.at(static_cast<std::size_t>(table.texts.type) - 1));
    return std::string(RankInfo(line.rank).longName);
}

std::optional<GameType> TypeOfText(const std::string& text) {
    const auto named =
        std::ranges::find_if(kTypes, [&](std::string_view type) { return SameText(type, text); });
    if (named != kTypes.end()) return static_cast<GameType>(named - kTypes.begin() + 1);
    const int number = ParseInt(PlainWholeNumber(text).value_or("0"));
    if (number < 1 || number > static_cast<int>(kTypes.size())) return std::nullopt;
    return static_cast<GameType>(number);
}

class Reader {
  public:
    explicit Reader(std::string_view text) : rows(text, CsvSeparator(text)) {}

    TablesRead Read() {
        if (const auto head = NextRow()) TakeHead(*head);
        while (read.problem.empty()) {
            const auto row = NextRow();
            if (!row) break;
            if (row->quoteOpen) {
                Refuse(row->line, row->cells.back(), "begins with a quote that is not closed.");
            } else {
                TakeRow(*row);
            }
        }
        EndTable();
        if (read.problem.empty() && read.tables.empty()) {
            read.problem =
                "There is no pay table in it: its first row names the columns, among "
                "them \"Hand Rank\" and \"Max Payout\".";
        }
        if (!read.problem.empty()) read.tables.clear();
        return read;
    }

  private:
    // The next one that is not empty.
    std::optional<CsvCells> NextRow() {
        auto row = rows.Next();
        while (row && std::ranges::all_of(row->cells, &std::string::empty)) row = rows.Next();
        return row;
    }

    void Refuse(int line, std::string_view word, std::string_view problem) {
        if (read.problem.empty()) read.problem = LineProblemText(line, word, problem);
    }

    void TakeHead(const CsvCells& head) {
        for (const std::string& name : head.cells) {
            const auto column = std::ranges::find_if(
                kColumns, [&](const Column& known) { return SameText(known.name, name); });
            if (column == kColumns.end()) return Refuse(head.line, name, "is no column.");
            if (std::ranges::count(columns, &*column) > 0) {
                return Refuse(head.line, name, "is there twice.");
            }
            columns.push_back(&*column);
        }
        for (const Column& known : kColumns) {
            const bool needed =
                known.name == kRankName || known.field == kPayout || known.field == kMaxPayout;
            if (needed && std::ranges::count(columns, &known) == 0) {
                return Refuse(head.line, known.name, "is a column that is missing.");
            }
        }
    }

    void TakeRow(const CsvCells& row) {
        for (std::size_t i = columns.size(); i < row.cells.size(); ++i) {
            if (!row.cells[i].empty()) return Refuse(row.line, row.cells[i], "is in no column.");
        }
        NamedTable named{"Pay Table", 0, {}};
        PayLineTexts line;
        const std::size_t cells = std::min(row.cells.size(), columns.size());
        for (std::size_t i = 0; i < cells; ++i) {
            TakeCell(*columns[i], row.line, row.cells[i], named, line);
        }
        if (!read.problem.empty()) return;
        if (line.rank == HandRank::kUnknown) return Refuse(row.line, "", "is no hand rank.");
        if (line.description.empty()) ChooseRank(line, line.rank);
        AddLine(row, named, line);
    }

    void TakeCell(const Column& column, int at, const std::string& cell, NamedTable& named,
                  PayLineTexts& line) {
        const std::string problem = TextProblem(cell);
        if (!problem.empty()) return Refuse(at, cell, problem);
        if (column.text) named.texts.*column.text = cell;
        if (column.lineText) line.*column.lineText = cell;
        if (column.flag || column.lineFlag) {
            const auto flag = FlagOfText(cell);
            if (!flag) return Refuse(at, cell, "is neither yes nor no.");
            (column.flag ? named.texts.*column.flag : line.*column.lineFlag) = *flag;
        } else if (column.name == kGame) {
            named.gameName = cell;
        } else if (column.name == kTable) {
            const auto index = PlainWholeNumber(cell);
            if (!index) return Refuse(at, cell, "is no whole number.");
            named.tableIndex = ParseInt(*index);
        } else if (column.name == kType) {
            const auto type = TypeOfText(cell);
            if (!type) return Refuse(at, cell, "is no type of game.");
            named.texts.type = *type;
        } else if (column.name == kRankName) {
            const auto rank = RankOfText(cell);
            if (!rank) return Refuse(at, cell, "is no hand rank.");
            line.rank = *rank;
        }
    }

    // What a row says of its table and what the rows before have said agree.
    void AddLine(const CsvCells& row, const NamedTable& named, const PayLineTexts& line) {
        const bool goesOn = draft && SameText(draft->table.gameName, named.gameName) &&
                            draft->table.tableIndex == named.tableIndex;
        if (!goesOn) {
            EndTable();
            BeginTable(row, named);
        }
        if (!read.problem.empty()) return;
        if (settings != named.texts) {
            return Refuse(row.line, TableSection(named.gameName, named.tableIndex),
                          "has other settings here than in its first row.");
        }
        const auto number = static_cast<std::size_t>(LineCount(draft->table.texts));
        if (number >= kMaxPayLines) {
            return Refuse(row.line, RankInfo(line.rank).longName, "is more than fifteen lines.");
        }
        draft->table.texts.lines[number] = line;
        for (std::size_t i = 0; i < std::min(row.cells.size(), columns.size()); ++i) {
            const auto& field = columns[i]->field;
            if (!field) continue;
            const int ofLine = *field >= kRank ? static_cast<int>(number) : 0;
            draft->Place({*field, ofLine}, row.line, row.cells[i]);
        }
    }

    void BeginTable(const CsvCells& row, const NamedTable& named) {
        const std::string section = TableSection(named.gameName, named.tableIndex);
        const std::string problem = PlaceProblem(named.gameName, named.tableIndex);
        if (!problem.empty()) return Refuse(row.line, section, problem);
        for (const NamedTable& table : read.tables) {
            if (SameText(TableSection(table.gameName, table.tableIndex), section)) {
                return Refuse(row.line, section, "is there twice.");
            }
        }
        draft.emplace();
        draft->line = row.line;
        draft->table = named;
        settings = named.texts;
        const bool wildJacks = named.texts.type == GameType::kOneEyedJacks;
        for (PayLineTexts& line : draft->table.texts.lines) line.wildsOK = wildJacks;
    }

    void EndTable() {
        if (!draft || !read.problem.empty()) return;
        read.problem = draft->Problem();
        draft->table.texts = AsKept(draft->table.texts);
        read.tables.push_back(std::move(draft->table));
        draft.reset();
    }

    CsvReader rows;
    std::vector<const Column*> columns;  // as they stand in the file
    TablesRead read;
    std::optional<TableDraft> draft;
    PayTableTexts settings;  // of the draft, without lines
};

}  // namespace

std::string TablesAsCsv(std::span<const NamedTable> tables) {
    std::string text;
    const auto addRow = [&text](const auto& cellOf) {
        std::vector<std::string> cells;
        for (const Column& column : kColumns) cells.push_back(cellOf(column));
        text += CsvRow(cells) + "\r\n";
    };
    addRow([](const Column& column) { return std::string(column.name); });
    for (const NamedTable& table : tables) {
        const PayTableTexts plain = AsKept(table.texts);
        const NamedTable kept{table.gameName, table.tableIndex, plain};
        for (int i = 0; i < LineCount(plain); ++i) {
            const PayLineTexts& line = plain.lines[static_cast<std::size_t>(i)];
            addRow([&](const Column& column) { return CellOf(column, kept, line); });
        }
    }
    return text;
}

TablesRead ReadTablesCsv(std::string_view text) { return Reader(WithoutMark(text)).Read(); }
