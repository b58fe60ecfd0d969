#include "game/paytables/PayTableEditor.h"

#include "core/paytable/GameCatalogue.h"
#include "core/paytable/ShippedPayTables.h"
#include "game/commands/GameSelection.h"
#include "game/paytables/PayTableLines.h"

namespace {

constexpr auto kNoTable = "This pay table is deleted. Choose another one with Change Game.";

bool CanBeGoneTo(int index) { return index >= 0 && index <= kLastTableIndex; }

}  // namespace

PayTableEditor::PayTableEditor(Seat& seat, const DataFilePaths& paths, TableOfGame shown,
                               bool newGame)
    : gameName(std::move(shown.gameName)),
      seat(seat),
      paths(paths),
      gameId(shown.gameId),
      tableIndex(newGame ? 0 : shown.tableIndex),
      making(newGame ? Making::kNothingStored : Making::kMade) {
    Load(gameName, tableIndex);
    if (newGame) CheckWilds(texts, texts.usesWilds);
    BeginTable();
}

PayTableFiles PayTableEditor::Files() const {
    return {seat.files.Main(), paths.analysisCache, seat.files.gamePath};
}

// The table need not be one of this game.
void PayTableEditor::Load(const std::string& fromGame, int fromIndex) {
    texts = ReadPayTableTexts(seat.files.Main(), fromGame, fromIndex);
    for (std::size_t i = 0; i < texts.lines.size(); ++i) {
        payoutLoaded[i] = !texts.lines[i].payout.empty();
        maxPayoutLoaded[i] = !texts.lines[i].maxPayout.empty();
    }
}

// The shown table is as it was stored, and there is nothing to undo.
void PayTableEditor::BeginTable() {
    keptName = gameName;
    KeepStored();
    history.Begin(State());
}

void PayTableEditor::KeepStored() {
    kept = AsKept(HasTable() ? ReadPayTableTexts(seat.files.Main(), keptName, tableIndex) : texts);
}

bool PayTableEditor::IsChanged() const {
    return HasTable() && (AsKept(texts) != kept || gameName != keptName);
}

std::optional<PayTable> PayTableEditor::StoredFigures() const {
    if (FindProblem(kept)) return std::nullopt;
    return TableOf(kept, gameId);
}

FormState PayTableEditor::State() const {
    return {gameName, tableIndex, texts, payoutLoaded, maxPayoutLoaded};
}

void PayTableEditor::Show(const FormState& state) {
    const bool sameTable = tableIndex == state.tableIndex;
    gameName = state.gameName;
    tableIndex = state.tableIndex;
    texts = state.texts;
    payoutLoaded = state.payoutLoaded;
    maxPayoutLoaded = state.maxPayoutLoaded;
    if (!sameTable) KeepStored();
}

void PayTableEditor::NoteTyped(FieldPlace place) { history.Note(State(), place); }

void PayTableEditor::NoteChange() { history.Note(State()); }

void PayTableEditor::Undo() {
    NoteChange();
    Show(history.Undo());
}

void PayTableEditor::Redo() {
    NoteChange();
    Show(history.Redo());
}

bool PayTableEditor::HasShippedTable() const {
    return HasTable() && !IsUserGame() && tableIndex == 0 &&
           ShippedSection(TableSection(gameName, 0)).has_value();
}

bool PayTableEditor::TakesCell(FieldPlace place) const {
    if (!HasOwnTable()) return IsEnabled(place);
    return place.field != FormField::kWildsOK || IsEnabled(place);
}

bool PayTableEditor::IsEnabled(FieldPlace place) const {
    using enum FormField;
    if (!HasTable()) return false;
    const auto line = static_cast<std::size_t>(place.line);
    const auto mayCheck = [this](GameType type) {
        return IsUserGame() && (texts.type == GameType::kStandard || texts.type == type);
    };
    // What cannot be saved must never stand where the player cannot get at it.
    const auto mayList = [&](const std::string& typed) {
        const bool taken = TakesRanks(texts.lines.at(line).rank, place.field);
        return (IsUserGame() && taken) || !IsRankList(typed);
    };
    switch (place.field) {
        case kName:
            return IsUserGame() && MayName();
        case kOneEyedJacks:
            return mayCheck(GameType::kOneEyedJacks);
        case kFiveAces:
            return mayCheck(GameType::kFiveAces);
        case kPickEm:
            return mayCheck(GameType::kPickEm);
        case kWilds:
            return IsUserGame() && texts.type == GameType::kStandard;
        case kJokers:
        case kWildRanks:
            return IsUserGame() && texts.usesWilds && texts.type != GameType::kOneEyedJacks;
        case kMaxBet:
            return true;
        case kPayout:
            return IsUserGame() || payoutLoaded.at(line);
        case kMaxPayout:
            return IsUserGame() || maxPayoutLoaded.at(line);
        case kWildsOK:
            return IsUserGame() && texts.usesWilds;
        case kBonusQuads:
            return mayList(texts.lines.at(line).bonusQuads);
        case kKickers:
            return mayList(texts.lines.at(line).kickers);
        case kMinPair:
        case kRank:
        case kDescription:
            break;
    }
    return IsUserGame();
}

bool PayTableEditor::HasNextTable() const {
    return CanBeGoneTo(NextTable(seat.files.Main(), StoredName(), tableIndex));
}

bool PayTableEditor::HasPreviousTable() const {
    return CanBeGoneTo(PreviousTable(seat.files.Main(), StoredName(), tableIndex));
}

void PayTableEditor::GoTo(PayTableQuestions& questions, int index) {
    if (!CanBeGoneTo(index) || !MayLeave(questions)) return;
    tableIndex = index;
    Load(gameName, index);
    BeginTable();
}

void PayTableEditor::GoToNextTable(PayTableQuestions& questions) {
    GoTo(questions, NextTable(seat.files.Main(), StoredName(), tableIndex));
}

void PayTableEditor::GoToPreviousTable(PayTableQuestions& questions) {
    if (tableIndex != 0)
        GoTo(questions, PreviousTable(seat.files.Main(), StoredName(), tableIndex));
}

void PayTableEditor::Clear() {
    if (IsUserGame()) {
        // The features have no boxes here, and stay.
        PayTableTexts cleared;
        cleared.charlieBonus = texts.charlieBonus;
        cleared.redBlackBonus = texts.redBlackBonus;
        cleared.spinBonus = texts.spinBonus;
        cleared.targetBonus = texts.targetBonus;
        texts = cleared;
    } else {
        for (PayLineTexts& line : texts.lines) {
            line.payout.clear();
            line.maxPayout.clear();
        }
    }
    NoteChange();
}

void PayTableEditor::LoadTemplate(PayTableQuestions& questions) {
    const auto chosen = questions.SelectsGame(SelectableGames(seat.files.Main()), gameName);
    if (!chosen) return;
    NoteChange();
    tableIndex = 0;
    Load(*chosen, 0);
    KeepStored();
    NoteChange();
}

void PayTableEditor::ChangeGame(PayTableQuestions& questions) {
    if (!MayLeave(questions)) return;
    const GameFiles& files = seat.files;
    const auto chosen = questions.SelectsGame(SelectableGames(files.Main()), gameName);
    if (!chosen) return;
    making = Making::kMade;
    gameName = *chosen;
    gameId = GameIdFromName(files.Main(), gameName);
    tableIndex = ActiveTable(files.Game(), files.mainPath, gameName);
    Load(gameName, tableIndex);
    BeginTable();
}

std::optional<FormProblem> PayTableEditor::TableProblem() const {
    if (!HasTable()) return {{kNoTable, {FormField::kName}}};
    return FindProblem(texts);
}

std::optional<FormProblem> PayTableEditor::Problem() const {
    if (!HasTable()) return TableProblem();
    const std::string name = MayName() || gameName.empty() ? NameProblem(gameName) : "";
    if (!name.empty()) return {{name, {FormField::kName}}};
    return TableProblem();
}
