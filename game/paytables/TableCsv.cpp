#include "game/paytables/TableCsv.h"

#include <algorithm>
#include <array>
#include <optional>

#include "core/paytable/PayTableStore.h"
#include "core/text/Numbers.h"
#include "core/text/WholeNumber.h"
#include "game/paytables/PayTableLines.h"

namespace {

using enum FormField;

constexpr std::array<std::string_view, 6> kTypes = {"Standard", "5 Aces",     "OEJ",
                                                    "Pick 'Em", "Ace$ Bonus", "Double Draw Aces"};

// Where a cell of a table, or of one of its lines, goes to. One of the four is set.
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

std::string Quoted(const std::string& cell) {
    if (cell.find_first_of(",;\t\"\r\n") == std::string::npos) return cell;
    std::string quoted = "\"";
    for (const char c : cell) {
        quoted += c;
        if (c == '"') quoted += c;
    }
    return quoted + "\"";
}

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

struct Row {
    int line = 0;  // of the file, where it begins
    std::vector<std::string> cells;
};

// The rows of the text that are not empty.
class RowReader {
  public:
    explicit RowReader(std::string_view text) : text(WithoutMark(text)) {
        const std::string_view first = this->text.substr(0, this->text.find('\n'));
        for (const char c : {',', ';', '\t'}) {
            if (std::ranges::count(first, c) > std::ranges::count(first, separator)) separator = c;
        }
    }

    std::optional<Row> Next() {
        while (at < text.size()) {
            Row row{line, {}};
            do {
                row.cells.push_back(Cell());
            } while (at < text.size() && text[at++] == separator);
            ++line;
            if (std::ranges::any_of(row.cells, [](auto& cell) { return !cell.empty(); }))
                return row;
        }
        return std::nullopt;
    }

    bool IsQuoteOpen() const { return open; }

  private:
    // Ends at the separator, the line feed or the end.
    std::string Cell() {
        std::string cell;
        bool quoted = at < text.size() && text[at] == '"';
        if (quoted) ++at;
        for (; at < text.size(); ++at) {
            const char c = text[at];
            if (quoted && c == '"') {
                if (at + 1 < text.size() && text[at + 1] == '"') {
                    ++at;
                } else {
                    quoted = false;
                    continue;
                }
            } else if (!quoted && (c == separator || c == '\n')) {
                break;
            }
            if (c == '\n') ++line;
            cell += c;
        }
        open = quoted;
        while (cell.ends_with('\r')) cell.pop_back();
        return cell;
    }

    std::string_view text;
    std::size_t at = 0;
    char separator = ',';
    int line = 1;
    bool open = false;
};

class Reader {
  public:
    explicit Reader(std::string_view text) : rows(text) {}

    TablesRead Read() {
        if (const auto head = rows.Next()) TakeHead(*head);
        while (read.problem.empty()) {
            const auto row = rows.Next();
            if (!row) break;
            if (rows.IsQuoteOpen()) {
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
    void Refuse(int line, std::string_view word, std::string_view problem) {
        if (read.problem.empty()) read.problem = LineProblemText(line, word, problem);
    }

    void TakeHead(const Row& head) {
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

    void TakeRow(const Row& row) {
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
    void AddLine(const Row& row, const NamedTable& named, const PayLineTexts& line) {
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

    void BeginTable(const Row& row, const NamedTable& named) {
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

    RowReader rows;
    std::vector<const Column*> columns;  // as they stand in the file
    TablesRead read;
    std::optional<TableDraft> draft;
    PayTableTexts settings;  // of the draft, without lines
};

}  // namespace

std::string TablesAsCsv(std::span<const NamedTable> tables) {
    std::string text;
    const auto addRow = [&text](const auto& cellOf) {
        for (const Column& column : kColumns) {
            text += &column == kColumns.data() ? "" : ",";
            text += Quoted(cellOf(column));
        }
        text += "\r\n";
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

TablesRead ReadTablesCsv(std::string_view text) { return Reader(text).Read(); }
