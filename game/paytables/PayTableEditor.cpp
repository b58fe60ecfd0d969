#include "game/paytables/PayTableEditor.h"

#include <algorithm>

#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"
#include "core/text/Numbers.h"
#include "game/commands/GameSelection.h"
#include "game/paytables/PayTableGameFiles.h"
#include "game/saving/SaveGame.h"

namespace {

constexpr auto kInputError = "Input Error";
constexpr auto kError = "Error";

constexpr auto kNoTable = "This pay table is deleted. Choose another one with Change Game.";

bool SaveFails(PayTableQuestions& questions) {
    questions.Tell(kError,
                   "The pay table could not be saved, and everything is as it was.\n\nMake room on "
                   "the disk, and see to it that you may write the program's data folder.");
    return false;
}

std::string AlreadyExists(const std::string& name) { return "\"" + name + "\" already exists"; }

bool IsBuiltIn(const std::string& name) {
    return std::ranges::any_of(BuiltInGames(),
                               [&](const BuiltInGame& game) { return SameText(game.name, name); });
}

bool CanBeGoneTo(int index) { return index >= 0 && index <= kLastTableIndex; }

// Without what the figures of an analysis, which are those of the full bet, do not depend on.
PayTable OfFigures(PayTable seat) {
    seat.maxBet = kFullBet;
    for (PayLine& line : seat.lines) line.description = line.shortDescription = "";
    return seat;
}

}  // namespace

PayTableEditor::PayTableEditor(Seat& seat, const DataFilePaths& paths, TableOfGame shown,
                               bool newGame)
    : gameName(std::move(shown.gameName)),
      seat(seat),
      paths(paths),
      gameId(shown.gameId),
      tableIndex(newGame ? 0 : shown.tableIndex),
      newGame(newGame) {
    Load(gameName, tableIndex);
    if (newGame) CheckWilds(texts, texts.usesWilds);
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
            return IsUserGame() && newGame;
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

// Under which the shown table is stored; empty for a new game that is not.
const std::string& PayTableEditor::StoredName() const { return newGame ? savedName : gameName; }

bool PayTableEditor::HasNextTable() const {
    return CanBeGoneTo(NextTable(seat.files.Main(), StoredName(), tableIndex));
}

bool PayTableEditor::HasPreviousTable() const {
    return CanBeGoneTo(PreviousTable(seat.files.Main(), StoredName(), tableIndex));
}

void PayTableEditor::GoTo(int index) {
    if (!CanBeGoneTo(index)) return;
    tableIndex = index;
    Load(StoredName(), index);
}

void PayTableEditor::GoToNextTable() {
    GoTo(NextTable(seat.files.Main(), StoredName(), tableIndex));
}

void PayTableEditor::GoToPreviousTable() {
    if (tableIndex != 0) GoTo(PreviousTable(seat.files.Main(), StoredName(), tableIndex));
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
        return;
    }
    for (PayLineTexts& line : texts.lines) {
        line.payout.clear();
        line.maxPayout.clear();
    }
}

void PayTableEditor::LoadTemplate(PayTableQuestions& questions) {
    const auto chosen = questions.SelectsGame(SelectableGames(seat.files.Main()), gameName);
    if (!chosen) return;
    tableIndex = 0;
    Load(*chosen, 0);
}

void PayTableEditor::ChangeGame(PayTableQuestions& questions) {
    const GameFiles& files = seat.files;
    const auto chosen = questions.SelectsGame(SelectableGames(files.Main()), gameName);
    if (!chosen) return;
    newGame = false;
    gameName = *chosen;
    gameId = GameIdFromName(files.Main(), gameName);
    tableIndex = ActiveTable(files.Game(), files.mainPath, gameName);
    Load(gameName, tableIndex);
}

bool PayTableEditor::IsOtherUserGame(const std::string& name) const {
    const int ownSlot = gameId - kFirstUserGameId + 1;
    for (int slot = 1; slot <= kMaxUserGames; ++slot) {
        if (slot != ownSlot && SameText(UserGameName(seat.files.Main(), slot), name)) return true;
    }
    return false;
}

// Of the name of a new game.
std::string PayTableEditor::NameProblem(const std::string& name) const {
    if (auto problem = GameNameProblem(name); !problem.empty()) return problem;
    if (IsOtherUserGame(name)) return AlreadyExists(name);
    const int id = GameIdFromName(seat.files.Main(), name);
    const bool hasTable = TableExists(seat.files.Main(), name, 0);
    if (IsBuiltIn(name) || (hasTable && !::IsUserGame(id))) {
        return AlreadyExists(name) +
               ". A user-defined game can not have the same name as a pre-defined game.";
    }
    return "";
}

// Of the name that a game shall be renamed to.
std::string PayTableEditor::NewNameProblem(const std::string& name) const {
    if (auto problem = GameNameProblem(name); !problem.empty()) return problem;
    const bool exists =
        TableExists(seat.files.Main(), name, 0) || IsBuiltIn(name) || IsOtherUserGame(name);
    return exists ? AlreadyExists(name) : "";
}

std::optional<FormProblem> PayTableEditor::Problem() const {
    if (!HasTable()) return {{kNoTable, {FormField::kName}}};
    const std::string name = newGame || gameName.empty() ? NameProblem(gameName) : "";
    if (!name.empty()) return {{name, {FormField::kName}}};
    return FindProblem(texts);
}

bool PayTableEditor::Refuses(PayTableQuestions& questions) const {
    const auto problem = Problem();
    if (problem) questions.Refuse(kInputError, problem->text, problem->where);
    return problem.has_value();
}

bool PayTableEditor::Save(PayTableQuestions& questions) {
    if (Refuses(questions)) return false;
    if (newGame) return WriteInPlace(questions);
    if (!IsUserGame() && tableIndex == 0) {
        questions.Tell(kError,
                       "You can not overwrite the default pay table for a pre-defined game");
        return false;
    }
    if (!TableExists(seat.files.Main(), gameName, 0)) return Append(questions);
    switch (questions.Overwrites("Overwrite?",
                                 "Do you wish to overwrite table " + std::to_string(tableIndex) +
                                     "? If NO, the current table will be added as a new index.")) {
        case OverwriteChoice::kOverwrite:
            return WriteInPlace(questions);
        case OverwriteChoice::kAppend:
            return Append(questions);
        case OverwriteChoice::kCancel:
            break;
    }
    return false;
}

bool PayTableEditor::Add(PayTableQuestions& questions) {
    if (Refuses(questions)) return false;
    return newGame ? WriteInPlace(questions) : Append(questions);
}

bool PayTableEditor::WriteInPlace(PayTableQuestions& questions) {
    if (newGame) tableIndex = 0;
    // A new game that is saved under one name and then under another is still one game.
    const std::string typed = gameName;
    UseSavedName();
    if (typed != gameName && !RenameTo(questions, typed)) {
        gameName = typed;
        return false;
    }
    const PayTable before = StoredTable();
    texts = WithPlainNumbers(texts);
    if (!WritePayTable(Files(), Shown(), texts, newGame ? kNoNeighbours : kStoredLinks)) {
        return SaveFails(questions);
    }
    // A report must never show the return of the table as it was.
    if (OfFigures(StoredTable()) != OfFigures(before)) {
        FollowInAnalyses(Files(), {TableEdit::Kind::kTableWritten, gameName, tableIndex});
    }
    FinishEdit(seat.files.Main());
    savedName = gameName;
    return true;
}

PayTable PayTableEditor::StoredTable() const {
    return LoadPayTable(seat.files.Main(), Shown(), "");
}

// A name that was typed since a new game was saved is dropped.
void PayTableEditor::UseSavedName() {
    if (newGame && !savedName.empty()) gameName = savedName;
}

bool PayTableEditor::Append(PayTableQuestions& questions) {
    const auto chain = TableChain(seat.files.Main(), gameName);
    if (!chain.empty() && chain.back() >= kLastTableIndex) {
        questions.Tell(kError, "There is no index left for another table of this game");
        return false;
    }
    texts = WithPlainNumbers(texts);
    const auto index = AppendTable(Files(), Shown(), texts);
    if (!index) return SaveFails(questions);
    tableIndex = *index;
    return true;
}

bool PayTableEditor::MakeActive(PayTableQuestions& questions) {
    if (Refuses(questions) || !WriteInPlace(questions)) return false;
    madeActive = Shown();
    return true;
}

void PayTableEditor::Delete(PayTableQuestions& questions) {
    if (Refuses(questions)) return;
    const bool wholeGame = tableIndex == 0;
    const bool confirmed = questions.Confirms(
        "Confirm Delete",
        wholeGame ? "Deleting the default pay table will delete the entire game? Continue?"
                  : "Are you sure you want to delete this pay table?");
    if (!confirmed) return;
    UseSavedName();
    const bool deleted =
        wholeGame ? DeleteGameTables(Files(), Shown()) : UnlinkTable(Files(), gameName, tableIndex);
    if (!deleted) {
        SaveFails(questions);
        return;
    }
    LeaveDeletedTable();
    const auto kind = wholeGame ? TableEdit::Kind::kGameDeleted : TableEdit::Kind::kTableDeleted;
    const auto unsaved = FinishInGameFiles({kind, gameName, tableIndex});
    Empty();
    TellOfGameFiles(questions, unsaved);
}

// What cannot be saved is told, and not tried again.
std::vector<std::string> PayTableEditor::FinishInGameFiles(TableEdit edit) {
    edit.gamePath = seat.files.gamePath;
    auto unsaved = FollowInGameFiles(seat.files.file, edit, paths.folder);
    FinishEdit(seat.files.Main());
    return unsaved;
}

// Before its statistics go: what leaves a game saves them once more.
void PayTableEditor::LeaveDeletedTable() {
    const MachineSettings& settings = seat.engine.settings;
    const auto isDeleted = [this](const std::string& name, int index) {
        return SameText(name, gameName) && (tableIndex == 0 || index == tableIndex);
    };
    if (madeActive && isDeleted(madeActive->gameName, madeActive->tableIndex)) {
        if (tableIndex == 0) {
            madeActive.reset();
        } else {
            madeActive->tableIndex = 0;
        }
    }
    if (!isDeleted(settings.gameName, settings.activeTable)) return;
    if (tableIndex == 0) {
        ChooseGame(seat, MachineSettings().gameId);
    } else {
        ChooseGame(seat, settings.gameId, 0);
    }
}

void PayTableEditor::Rename(PayTableQuestions& questions) {
    if (Refuses(questions)) return;
    UseSavedName();
    for (;;) {
        const auto newName = questions.RenamesGame(gameName);
        if (!newName) return;
        const std::string problem = NewNameProblem(*newName);
        if (problem.empty()) {
            RenameTo(questions, *newName);
            return;
        }
        questions.Tell(kInputError, problem);
    }
}

// The game in play is saved before its statistics are renamed with those of the other files.
bool PayTableEditor::RenameTo(PayTableQuestions& questions, const std::string& newName) {
    GameEngine& engine = seat.engine;
    if (!RenameGameTables(Files(), Shown(), newName)) return SaveFails(questions);
    const bool inPlay = SameText(engine.settings.gameName, gameName);
    if (inPlay) SaveGame(seat);
    const auto unsaved = FinishInGameFiles({TableEdit::Kind::kGameRenamed, gameName, 0, newName});
    if (inPlay) {
        engine.settings.gameName = newName;
        ReloadPayTable(seat);
    }
    if (madeActive && SameText(madeActive->gameName, gameName)) madeActive->gameName = newName;
    gameName = newName;
    if (newGame && !savedName.empty()) savedName = newName;
    TellOfGameFiles(questions, unsaved);
    return true;
}

void PayTableEditor::TellOfGameFiles(PayTableQuestions& questions,
                                     const std::vector<std::string>& unsaved) {
    if (unsaved.empty()) return;
    std::string text = "These game files could not be saved, and still have the old name or table:";
    for (const std::string& path : unsaved) text += "\n" + path;
    questions.Tell(kError, text);
}

void PayTableEditor::Empty() {
    gameName.clear();
    savedName.clear();
    tableIndex = -1;
    texts = PayTableTexts();
}
