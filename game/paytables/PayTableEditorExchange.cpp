// Tables that leave the manager as a text, and those that come as one.
#include <algorithm>

#include "game/paytables/PayTableEditor.h"
#include "game/paytables/PayTableLines.h"
#include "game/paytables/TableCsv.h"
#include "game/paytables/TableTextFile.h"

namespace {

constexpr auto kImport = "Import";
constexpr auto kInputError = "Input Error";

std::string Written(const std::vector<NamedTable>& tables, TableFormat format) {
    return format == TableFormat::kCsv ? TablesAsCsv(tables) : TablesAsText(tables);
}

TablesRead ReadTables(const std::string& text) {
    const std::string_view shown = WithoutMark(text);
    const auto first = shown.find_first_not_of(" \t\r\n");
    const bool isCsv = first != std::string_view::npos && shown[first] != '[' &&
                       shown.substr(first, shown.find('\n', first) - first).find_first_of(",;\t") !=
                           std::string_view::npos;
    return isCsv ? ReadTablesCsv(text) : ReadTablesText(text);
}

// Without what the player may change of the table of a built-in game.
PayTableTexts WithoutPays(const PayTableTexts& table) {
    PayTableTexts bare = AsKept(table);
    bare.maxBet.clear();
    for (int i = 0; i < kMaxPayLines; ++i) {
        PayLineTexts& line = bare.lines[static_cast<std::size_t>(i)];
        if (i >= LineCount(table)) line = PayLineTexts();
        line.payout.clear();
        line.maxPayout.clear();
    }
    return bare;
}

}  // namespace

std::optional<std::string> PayTableEditor::ExportTable(PayTableQuestions& questions,
                                                       TableFormat format) const {
    if (Refuses(questions)) return std::nullopt;
    return Written({NamedShown()}, format);
}

std::optional<std::string> PayTableEditor::ExportGame(PayTableQuestions& questions,
                                                      TableFormat format) const {
    if (Refuses(questions)) return std::nullopt;
    std::vector<NamedTable> tables;
    for (const int index : TableChain(seat.files.Main(), StoredName())) {
        tables.push_back(
            {gameName, index, ReadPayTableTexts(seat.files.Main(), StoredName(), index)});
        if (index == tableIndex) tables.back() = NamedShown();
        if (const auto problem = FindProblem(tables.back().texts)) {
            questions.Tell(kInputError,
                           "Table " + std::to_string(index) +
                               " has a fault and can not be exported: " + problem->text);
            return std::nullopt;
        }
    }
    const bool isAmong = std::ranges::count(tables, tableIndex, &NamedTable::tableIndex) > 0;
    if (!isAmong) tables.push_back(NamedShown());
    return Written(tables, format);
}

// Why the table cannot be one of this game; empty when it can.
std::string PayTableEditor::MisfitOf(const PayTableTexts& table) const {
    if (IsUserGame()) return "";
    const auto own = ReadPayTableTexts(seat.files.Main(), gameName, 0);
    if (WithoutPays(table) == WithoutPays(own)) return "";
    return "The table has other lines or settings than " + gameName +
           ", of which only the pays and Max Bet can be changed. Import it into a game of your "
           "own.";
}

std::optional<std::string> PayTableEditor::Import(PayTableQuestions& questions,
                                                  const std::string& text) {
    if (!HasTable()) {
        questions.Tell(kInputError, TableProblem()->text);
        return std::nullopt;
    }
    TablesRead read = ReadTables(text);
    for (const NamedTable& table : read.tables) {
        if (read.problem.empty()) read.problem = MisfitOf(table.texts);
    }
    if (!read.problem.empty()) {
        questions.Tell(kInputError, read.problem);
        return std::nullopt;
    }
    if (read.tables.size() > 1) return ImportAll(questions, read.tables);
    ImportOne(read.tables.front());
    return "The table is imported and not yet saved.";
}

// As a change that can be undone.
void PayTableEditor::ImportOne(const NamedTable& table) {
    NoteChange();
    TakeImportedName(table.gameName);
    if (IsUserGame()) {
        texts = table.texts;
    } else {
        texts.maxBet = table.texts.maxBet;
        for (std::size_t i = 0; i < texts.lines.size(); ++i) {
            texts.lines[i].payout = table.texts.lines[i].payout;
            texts.lines[i].maxPayout = table.texts.lines[i].maxPayout;
            payoutLoaded[i] = payoutLoaded[i] || !texts.lines[i].payout.empty();
            maxPayoutLoaded[i] = maxPayoutLoaded[i] || !texts.lines[i].maxPayout.empty();
        }
    }
    NoteChange();
}

// A new game that the player has not named yet gets the name that comes along, if no game has it.
void PayTableEditor::TakeImportedName(const std::string& name) {
    const bool unnamed = !IsStored() && gameName == keptName;
    if (unnamed && NameProblem(name).empty()) gameName = name;
}

std::optional<std::string> PayTableEditor::ImportAll(PayTableQuestions& questions,
                                                     const std::vector<NamedTable>& tables) {
    if (!MayLeave(questions)) return std::nullopt;
    DropTypedName();
    const std::string nameBefore = gameName;
    TakeImportedName(tables.front().gameName);
    const std::string problem = MayName() ? NameProblem(gameName) : "";
    if (!problem.empty()) {
        questions.Refuse(kInputError, problem, {FormField::kName});
        return std::nullopt;
    }
    const std::string count = std::to_string(tables.size());
    const bool confirmed = questions.Confirms(
        kImport, "The file has " + count + " pay tables. Do you wish to add them to " + gameName +
                     "? No table of it is overwritten.");
    std::vector<PayTableTexts> added;
    added.reserve(tables.size());
    for (const NamedTable& table : tables) added.push_back(WithPlainNumbers(table.texts));
    const auto first = confirmed ? AppendTables(Files(), Shown(), added) : std::nullopt;
    if (!first) {
        gameName = nameBefore;
        if (confirmed) {
            questions.Tell("Error",
                           "The pay tables could not be saved, and everything is as it "
                           "was: there are not as many indices left, or no room on the "
                           "disk.");
        }
        return std::nullopt;
    }
    making = Making::kMade;
    tableIndex = *first;
    Load(gameName, tableIndex);
    BeginTable();
    return count + " tables are saved.";
}
